// The eighteen arguments of ZrDraw_DisplayMuxRGBA as one record, so that a
// test names only the ones it sets.
#ifndef ZR_TESTS_MUX_MUX_ARGS_H
#define ZR_TESTS_MUX_MUX_ARGS_H

#include <chrono>
#include <cstdint>
#include <thread>

#include "fx/band_job.h"
#include "zrmux.h"

namespace zr::test {

struct MuxArgs {
  uint32_t flags = 0, width = 0, height = 0, pitch = 0;
  uint32_t sizeA = 0, sizeB = 0, wipeCode = 0, mixPosition = 0, mixLevel = 0, splitX = 0, splitY = 0;
  uint32_t gridMode = 0, gridStepX = 0, gridStepY = 0;
};

// Returns when every transition worker is done: MUX_WIPE's driver stops
// waiting after 100 ms, and on a slow run a worker may still be writing.
inline int32_t CallMux(void* a, void* b, void* out, const MuxArgs& g) {
  const int32_t result = ZrDraw_DisplayMuxRGBA(
      static_cast<uint32_t*>(a), g.sizeA, static_cast<uint32_t*>(b), g.sizeB, static_cast<uint32_t*>(out),
      0xDEADBEEF, g.flags, g.wipeCode, g.mixPosition, g.mixLevel, g.splitX, g.splitY, g.gridMode, g.gridStepX,
      g.gridStepY, g.width, g.height, g.pitch);
  while (zr::fx::BandJobBlock::LiveBlocks() != 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return result;
}

// The modes that take each frame as one tight run of width pixels a row.
inline bool TightRows(uint32_t flags) {
  const uint32_t mode = flags & MUX_MODE_MASK;
  return mode == MUX_SIDE_BY_SIDE || mode == MUX_TWO_UP || mode == MUX_CROP_PAIR;
}

}  // namespace zr::test

#endif
