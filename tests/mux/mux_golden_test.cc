// Golden checksums: the CRC of all three frames after each mode and flag set,
// on fixed seeded frames. The same constants hold in every build; a change
// here is a change hosts will see.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "mux/mux_args.h"

namespace zr::test {
namespace {

// Seeded frames with a spare row and 8 spare bytes, for the modes that reach
// past the frame, and some pixels of B equal to A's, so that the difference
// and the gate see matches. The output is its own frame, or A (over 1) or B
// (over 2). Returns the CRC of A, B and the output, chained onto crc.
uint32_t RunGolden(const MuxArgs& g, size_t misalign = 0, uint32_t crc = 0, int over = 0) {
  const size_t bytes = size_t{g.height + 1} * g.pitch + 8;
  std::vector<uint8_t> a(bytes + misalign), b(bytes + misalign), out(bytes + misalign);
  uint8_t *pa = a.data() + misalign, *pb = b.data() + misalign, *po = out.data() + misalign;
  Rng rng(20240601);
  for (uint8_t* p : {pa, pb, po}) rng.Fill(p, bytes);
  for (size_t i = 0; i < bytes; i += 12) pb[i] = pa[i], pb[i + 1] = pa[i + 1];
  CallMux(pa, pb, over == 1 ? pa : over == 2 ? pb : po, g);
  return Crc32(po, bytes, Crc32(pb, bytes, Crc32(pa, bytes, crc)));
}

struct Example {
  uint32_t flags, mixPosition, mixLevel, splitX, splitY, gridMode, gridStep, crc;
};

// 37 x 23 with a pitch 12 bytes above the row; the tight modes 36 x 23 with a
// tight pitch, where MUX_SIDE_BY_SIDE is the same in both builds.
// clang-format off
constexpr Example kExamples[] = {
    {MUX_DEFAULT, 0, 0, 0, 0, 0, 0, 0xD7FC713C},                {MUX_COPY_B | MUXF_SWAP, 0, 0, 0, 0, 0, 0, 0x0F9E0EA4},
    {MUX_MERGE_BYTE2_BYTE0, 0, 0, 0, 0, 0, 0, 0xBDA7AF70},      {MUX_MERGE_HIGH_LOW | MUXF_FLIP_V_A, 0, 0, 0, 0, 0, 0, 0x4CED9AEA},
    {MUX_MERGE_BYTE0 | MUXF_FLIP_H_B, 0, 0, 0, 0, 0, 0, 0x26A7D8AD}, {MUX_MERGE_ODD_EVEN | MUXF_SWAP, 0, 0, 0, 0, 0, 0, 0x30B61267},
    {MUX_INTERLEAVE, 0, 0, 0, 0, 0, 0, 0xE2A33577},             {MUX_INTERLEAVE | MUXF_ALT_AXIS, 0, 0, 0, 0, 0, 0, 0x72405A76},
    {MUX_AVERAGE | MUXF_GRID, 0, 0, 0, 0, 0, 25, 0xABAA7982},   {MUX_DIFFERENCE, 0, 0, 0, 0, 0, 0, 0xE55B02C6},
    {MUX_DIFFERENCE | MUXF_FLIP_V_B, 0, 37, 0, 0, 0, 0, 0x3951E91F}, {MUX_OVER_UNDER, 0, 0, 0, 0, 2, 5, 0xAF2EAEFD},
    {MUX_SPLIT | MUXF_DIVIDER, 0, 0, 11, 0, 0, 0, 0x5178EA75},  {MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, 0, 0, 0, 9, 0, 0, 0x7AFC4F85},
    {MUX_MIRROR, 0, 0, 0, 0, 0, 0, 0x2A2D28A3},                 {MUX_MIRROR2 | MUXF_ALT_AXIS, 0, 0, 0, 0, 0, 0, 0x9C33AF45},
    {MUX_MATCH_GATE, 0, 3, 0, 0, 0, 0, 0xA35FD0AB},             {MUX_MATCH_GATE | MUXF_SWAP, 0, 100, 0, 0, 0, 0, 0xA1B4B7F2},
    {MUX_CROSSFADE, 40000, 0, 0, 0, 0, 0, 0x29B770DE},          {MUX_CROSSFADE | MUXF_FLIP_H_A, 0x123456, 0, 0, 0, 1, 50, 0x590630E7},
    {MUX_CHECKER, 0, 0, 0, 0, 0, 0, 0x499A6CB5},                {MUX_BLOCK_CHECKER, 0x0500, 0, 0, 0, 0, 0, 0xAD9F5516},
    {MUX_CHANNEL_VIEW, 0, 0xFF0000, 0, 0, 0, 0, 0x7CB8B99D},    {MUX_CHANNEL_VIEW, 0, 0, 0, 0, 0, 0, 0xF6B359E0},
    {MUX_SIDE_BY_SIDE, 0, 0, 0, 0, 0, 0, 0xBB08CFE1},           {MUX_SIDE_BY_SIDE | MUXF_SWAP | MUXF_GRID, 0, 0, 0, 0, 3, 7, 0x7C7C8DCF},
    {MUX_TWO_UP, 0, 0, 0, 0, 0, 0, 0x7E8C9313},                 {MUX_CROP_PAIR, 0, 0, 5, 0, 0, 0, 0x9616FD68},
    {MUX_CROP_PAIR | MUXF_ALT_AXIS | MUXF_FLIP_V_A, 0, 0, 0, 4, 0, 0, 0xC01BC908},
};
// clang-format on

TEST(MuxGolden, Examples) {
  for (const Example& c : kExamples) {
    const uint32_t w = TightRows(c.flags) ? 36 : 37;
    MuxArgs g{c.flags, w, 23, w * 4 + (w == 37 ? 12 : 0), 1000, 2000, 0, c.mixPosition, c.mixLevel, c.splitX};
    g.splitY = c.splitY, g.gridMode = c.gridMode, g.gridStepX = c.gridStep, g.gridStepY = c.gridStep + 2;
    EXPECT_EQ(RunGolden(g), c.crc) << "flags " << std::hex << c.flags;
  }
}

struct ModeCrc {
  uint32_t bits, crc;
};
// clang-format off
constexpr ModeCrc kModes[] = {
    {MUX_DEFAULT, 0xD9B12A89}, {MUX_COPY_B, 0x7EE3BD3B}, {MUX_MERGE_BYTE2_BYTE0, 0xE6115951},
    {MUX_MERGE_HIGH_LOW, 0x1AAFF07A}, {MUX_MERGE_BYTE0, 0xFB4753BD}, {MUX_MERGE_ODD_EVEN, 0xD16AD990},
    {MUX_INTERLEAVE, 0x8CBD62AA}, {MUX_AVERAGE, 0x4AD56414}, {MUX_DIFFERENCE, 0xF6F9BA62},
    {MUX_OVER_UNDER, 0x987AF86D}, {MUX_SIDE_BY_SIDE, 0xF75B2388}, {MUX_SPLIT, 0xAC8222D7},
    {MUX_MIRROR, 0xB91E57B3}, {MUX_MIRROR2, 0xB91E57B3}, {MUX_MATCH_GATE, 0xCE698409},
    {MUX_CROSSFADE, 0x0ABA09F9}, {MUX_WIPE, 0x0FAAFC83}, {MUX_CHECKER, 0xF971CBB0},
    {MUX_BLOCK_CHECKER, 0xF145D59F}, {MUX_TWO_UP, 0xB893E483}, {MUX_CROP_PAIR, 0x77C025C2},
    {MUX_CHANNEL_VIEW, 0x481F0F2E},
};
// clang-format on

// One mode and flag over frames of many shapes: odd sizes, pitches above the
// row and off a multiple of four, misaligned and empty frames, and rows
// longer than a chunk of the block checker; each with four sets of the
// arguments the modes read.
uint32_t Cell(uint32_t flags) {
  constexpr struct {
    uint32_t width, height, pitchExtra, misalign;
  } kShapes[] = {{37, 23, 12, 0}, {36, 24, 0, 0}, {1, 1, 4, 0}, {2, 3, 0, 1},
                 {5, 3, 3, 2},    {0, 3, 0, 0},   {3, 0, 4, 0}, {1030, 2, 0, 3}};
  constexpr uint32_t kWipe[] = {1, 0x80000004, 22, 5}, kPosition[] = {40000, 0x7F00, 0x300, 0x123456},
                     kLevel[] = {2, 0xFF0000, 256, 255};
  const uint32_t mode = flags & MUX_MODE_MASK;
  uint32_t crc = 0;
  for (const auto& s : kShapes) {
    // An odd width of MUX_SIDE_BY_SIDE differs between builds.
    if (mode == MUX_SIDE_BY_SIDE && s.width % 2) continue;
    const uint32_t w = s.width, h = s.height, pitch = w * 4 + (TightRows(flags) ? 0 : s.pitchExtra);
    const uint32_t splitX[] = {w / 3, w, w + 1, 0}, splitY[] = {h / 3, h, h + 1, 0};
    for (uint32_t k = 0; k < 4; ++k) {
      MuxArgs g{flags, w, h, pitch, (h * pitch) >> k, h * pitch * k / 3, kWipe[k], kPosition[k], kLevel[k]};
      g.splitX = splitX[k], g.splitY = splitY[k], g.gridStepX = std::min(w, h) >= 3 ? 34 : 100;
      crc = RunGolden(g, s.misalign, crc);
      // The tight modes clear the output first: over a source, they read the cleared pixels.
      if ((mode == MUX_TWO_UP || mode == MUX_CROP_PAIR) && k == 0)
        crc = RunGolden(g, 0, RunGolden(g, 0, crc, 1), 2);
    }
  }
  return crc;
}

// A CRC for each mode over the mode alone and with each flag.
TEST(MuxGolden, EveryModeWithEachFlag) {
  for (const ModeCrc& mode : kModes) {
    uint32_t cells[9];  // no flag, then bits 24 to 31 one at a time
    for (uint32_t f = 0; f < 9; ++f) cells[f] = Cell(mode.bits | (f ? 1u << (23 + f) : 0));
    EXPECT_EQ(Crc32(cells, sizeof cells), mode.crc) << "mode " << std::hex << mode.bits;
  }
}

TEST(MuxGolden, WeighPlane) {
  std::vector<uint8_t> dst(333 * 17 + 5), src(341 * 17);
  Rng rng(99);
  rng.Fill(dst.data(), dst.size());
  rng.Fill(src.data(), src.size());
  weigh_plane(dst.data(), src.data(), 333, 341, 331, 17, 40000, 30000);
  weigh_plane(dst.data() + 5, src.data(), 333, 341, 300, 16, -7, 0x123456);
  EXPECT_EQ(Crc32(dst.data(), dst.size()), 0xDBFEE7D5u);
}

}  // namespace
}  // namespace zr::test
