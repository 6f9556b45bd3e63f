// The layout modes on small frames of labelled pixels, against the examples
// hosts know them by: where each output pixel comes from, what stays
// untouched, and the reads and writes one row or column past the frame.
#include <gtest/gtest.h>

#include <vector>

#include "common/test_random.h"
#include "mux/mux_model.h"
#include "zrmux.h"
#if defined(__x86_64__)
#include "zripp.h"
#endif

namespace zr::test {
namespace {

constexpr uint32_t kUntouched = 0x0C0C0C0C;
constexpr uint32_t A(uint32_t r, uint32_t x) { return 0xA0000000 | r << 12 | x; }
constexpr uint32_t B(uint32_t r, uint32_t x) { return 0xB0000000 | r << 12 | x; }

struct Example {
  const char* name;
  uint32_t flags, width, height, pitchPixels, mixPosition, splitX, splitY;
  std::vector<uint32_t> out;  // the output's first pixels, rows pitchPixels apart
};

// Runs the mux on frames with a spare row and two spare pixels; returns the
// output.
std::vector<uint32_t> RunExample(const Example& e) {
  const uint32_t pitch = e.pitchPixels ? e.pitchPixels : e.width;
  const size_t n = size_t{e.height + 1} * pitch + 2;
  std::vector<uint32_t> a(n), b(n), out(n, kUntouched);
  for (uint32_t i = 0; i < n; ++i) a[i] = A(i / pitch, i % pitch), b[i] = B(i / pitch, i % pitch);
  ZrDraw_DisplayMuxRGBA(a.data(), 0, b.data(), 0, out.data(), 0, e.flags, 0, e.mixPosition, 0, e.splitX,
                        e.splitY, 0, 0, 0, e.width, e.height, pitch * 4);
  return out;
}

// Flags, width, height, pitch in pixels (0: width), mixPosition, splitX,
// splitY, and the output's first pixels.
// clang-format off
const Example kExamples[] = {
    {"rows interleave into row height", MUX_INTERLEAVE, 1, 3, 0, 0, 0, 0, {A(0, 0), B(1, 0), A(2, 0), B(3, 0)}},
    {"an odd width keeps its last column", MUX_INTERLEAVE | MUXF_ALT_AXIS, 5, 1, 0, 0, 0, 0,
     {A(0, 0), B(0, 1), A(0, 2), B(0, 3), kUntouched}},
    {"an odd height keeps its last row", MUX_OVER_UNDER, 1, 5, 0, 0, 0, 0,
     {A(0, 0), A(2, 0), B(0, 0), B(2, 0), kUntouched}},
    {"divider one past the row", MUX_SPLIT | MUXF_DIVIDER, 4, 1, 6, 0, 4, 0,
     {A(0, 0), A(0, 1), A(0, 2), A(0, 3), 0x80808080, kUntouched}},
    {"divider at column 0", MUX_SPLIT | MUXF_DIVIDER, 4, 1, 0, 0, 0, 0, {0x80808080, B(0, 1), B(0, 2), B(0, 3)}},
    {"split beyond the width snaps to the centre", MUX_SPLIT, 4, 1, 0, 0, 5, 0, {A(0, 0), A(0, 1), B(0, 2), B(0, 3)}},
    {"no divider row at height", MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, 1, 3, 0, 0, 0, 3,
     {A(0, 0), A(1, 0), A(2, 0), kUntouched}},
    {"divider row", MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, 1, 3, 0, 0, 0, 1, {A(0, 0), 0x80808080, B(2, 0)}},
    {"mirror of width 4", MUX_MIRROR, 4, 1, 0, 0, 0, 0, {A(0, 0), A(0, 1), B(0, 2), B(0, 1)}},
    {"mirror of width 5", MUX_MIRROR2, 5, 1, 0, 0, 0, 0, {A(0, 0), A(0, 1), B(0, 2), B(0, 1), B(0, 0)}},
    {"mirror of rows", MUX_MIRROR | MUXF_ALT_AXIS, 1, 4, 0, 0, 0, 0, {A(0, 0), A(1, 0), B(2, 0), B(1, 0)}},
    {"checker past an odd frame", MUX_CHECKER, 3, 1, 5, 0, 0, 0,
     {A(0, 0), B(0, 1), A(0, 2), B(0, 3), kUntouched, B(1, 0), A(1, 1), B(1, 2), A(1, 3)}},
    {"blocks of 3", MUX_BLOCK_CHECKER, 7, 4, 0, 0x0300, 0, 0,
     {A(0, 0), A(0, 1), A(0, 2), B(0, 3), B(0, 4), B(0, 5), A(0, 6),
      A(1, 0), A(1, 1), A(1, 2), B(1, 3), B(1, 4), B(1, 5), A(1, 6),
      A(2, 0), A(2, 1), A(2, 2), B(2, 3), B(2, 4), B(2, 5), A(2, 6),
      B(3, 0), B(3, 1), B(3, 2), A(3, 3), A(3, 4), A(3, 5), B(3, 6)}},
    {"two-up on 4 by 4", MUX_TWO_UP, 4, 4, 0, 0, 0, 0,
     {0, 0, 0, 0, A(0, 0), A(0, 2), B(0, 0), B(0, 2), A(2, 0), A(2, 2), B(2, 0), B(2, 2), 0, 0, 0, 0}},
    {"two-up's odd width: A's last pixel wins", MUX_TWO_UP, 5, 1, 0, 0, 0, 0,
     {A(0, 0), A(0, 2), A(0, 4), B(0, 2), B(0, 4)}},
    {"two-up of one pixel: B is written last", MUX_TWO_UP, 1, 1, 0, 0, 0, 0, {B(0, 0)}},
    {"crop pair from the half, last column black", MUX_CROP_PAIR, 5, 1, 0, 0, 100, 0,
     {A(0, 2), A(0, 3), B(0, 2), B(0, 3), 0}},
    {"lower crop mid-row", MUX_CROP_PAIR | MUXF_ALT_AXIS, 3, 3, 0, 0, 0, 1,
     {A(1, 0), A(1, 1), A(1, 2), 0, B(1, 0), B(1, 1), B(1, 2), 0, 0}},
    {"crop pair below width 2", MUX_CROP_PAIR, 1, 3, 0, 0, 0, 0, {0, 0, 0, kUntouched}},
    {"side by side", MUX_SIDE_BY_SIDE, 4, 2, 0, 0, 0, 0,
     {A(0, 0), A(0, 2), B(0, 0), B(0, 2), A(1, 0), A(1, 2), B(1, 0), B(1, 2)}},
    {"side by side of height 0", MUX_SIDE_BY_SIDE, 4, 0, 0, 0, 0, 0, {kUntouched, kUntouched}},
#if defined(__x86_64__)
    // Two pixels a call; B's start 6 bytes into the row, mid-pixel, and its
    // last two bytes run into the next row.
    {"side by side's odd width", MUX_SIDE_BY_SIDE, 3, 1, 0, 0, 0, 0,
     {A(0, 0), (A(0, 2) & 0xFFFF) | B(0, 0) << 16, (B(0, 0) >> 16) | B(0, 2) << 16,
      (B(0, 2) >> 16) | (kUntouched & 0xFFFF0000)}},
#else
    // The NEON build's loop: width / 2 columns of each, the last one alone.
    {"side by side's odd width", MUX_SIDE_BY_SIDE, 3, 1, 0, 0, 0, 0, {A(0, 0), B(0, 0), kUntouched}},
#endif
};
// clang-format on

TEST(MuxLayoutModes, Examples) {
  for (const Example& e : kExamples) {
    const std::vector<uint32_t> out = RunExample(e);
    EXPECT_EQ(std::vector<uint32_t>(out.begin(), out.begin() + e.out.size()), e.out) << e.name;
  }
}

#if defined(__x86_64__)
// Without scratch only B's call is made, and the engine refuses it.
TEST(MuxLayoutModes, SideBySideDrawsNothingWithoutScratch) {
  void* (*const saved)(size_t) = i_malloc;
  i_malloc = [](size_t) -> void* { return nullptr; };
  const std::vector<uint32_t> out = RunExample({"", MUX_SIDE_BY_SIDE, 4, 2, 0, 0, 0, 0, {}});
  i_malloc = saved;
  EXPECT_EQ(out, std::vector<uint32_t>(out.size(), kUntouched));
}
#endif

// The tight modes clear the output before they draw; over a source, the
// cleared pixels are what they then read.
TEST(MuxLayoutModes, TightModesDrawingOverASourceReadTheClearedFrame) {
  for (uint32_t flags : {MUX_TWO_UP, MUX_CROP_PAIR, MUX_CROP_PAIR | MUXF_ALT_AXIS})
    for (bool overA : {true, false}) {
      MuxArgs g;
      g.muxFlags = flags, g.splitX = 2, g.splitY = 1, g.width = 7, g.height = 5, g.pitch = 28;
      std::vector<uint8_t> a(g.pitch * 6 + 8), b(a.size());
      Rng rng(overA ? 3 : 4);
      rng.Fill(a.data(), a.size());
      rng.Fill(b.data(), b.size());
      std::vector<uint8_t> modelA = a, modelB = b;
      ModelMux(modelA.data(), modelB.data(), overA ? modelA.data() : modelB.data(), g, kSideBySideEngine);
      CallMux(a.data(), b.data(), overA ? a.data() : b.data(), g);
      EXPECT_EQ(a, modelA) << "flags " << flags;
      EXPECT_EQ(b, modelB) << "flags " << flags;
    }
}

}  // namespace
}  // namespace zr::test
