// Runs the library's mux and the model on equal random frames with guard
// bytes, and compares all three buffers whole.
#ifndef ZR_TESTS_MUX_MUX_HARNESS_H
#define ZR_TESTS_MUX_MUX_HARNESS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "common/guarded_buffer.h"
#include "mux/mux_model.h"

namespace zr::test {

// Three frames of (height + 1) * pitch + 8 bytes: the spare row and bytes
// take the reads and writes one row or pixel past the frame that some modes
// make. `same` passes one buffer as both sources.
struct MuxRun {
  explicit MuxRun(const MuxArgs& args, uint64_t seed, size_t misalign = 0, bool same = false);

  size_t bytes;
  GuardedBuffer a, b, out;
  std::vector<uint8_t> modelA, modelB, modelOut;
  bool same;

  // The library on the guarded frames, the model on the copies.
  ::testing::AssertionResult Matches(const MuxArgs& args, uint64_t seed);
};

inline ::testing::AssertionResult MuxMatchesModel(const MuxArgs& args, uint64_t seed, size_t misalign = 0,
                                                  bool same = false) {
  return MuxRun(args, seed, misalign, same).Matches(args, seed);
}

}  // namespace zr::test

#endif
