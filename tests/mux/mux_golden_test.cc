// Golden checksums: the CRC of all three frames after each mode and flag set,
// on fixed seeded frames. The same constants hold in every build; a change
// here is a change hosts will see.
#include <gtest/gtest.h>

#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "mux/mux_model.h"
#include "zrmux.h"

namespace zr::test {
namespace {

struct Golden {
  uint32_t muxFlags;
  uint32_t mixPosition;
  uint32_t mixLevel;
  uint32_t splitX;
  uint32_t splitY;
  uint32_t gridMode;
  uint32_t gridStep;
  uint32_t crc;
};

// Odd sizes with a pitch above the row; the tight modes take an even width
// and a tight pitch, where MUX_SIDE_BY_SIDE is the same in both builds.
uint32_t RunGolden(const Golden& c, bool tight) {
  MuxArgs g;
  g.width = tight ? 36 : 37;
  g.height = 23;
  g.pitch = g.width * 4 + (tight ? 0 : 12);
  g.sizeA = 1000, g.sizeB = 2000;
  g.muxFlags = c.muxFlags, g.mixPosition = c.mixPosition, g.mixLevel = c.mixLevel;
  g.splitX = c.splitX, g.splitY = c.splitY;
  g.gridMode = c.gridMode, g.gridStepX = c.gridStep, g.gridStepY = c.gridStep + 2;
  const size_t bytes = size_t{g.height + 1} * g.pitch + 8;
  std::vector<uint8_t> a(bytes), b(bytes), out(bytes);
  Rng rng(20240601);
  rng.Fill(a.data(), bytes);
  rng.Fill(b.data(), bytes);
  rng.Fill(out.data(), bytes);
  // Some equal pixels, so that the difference and the gate see matches.
  for (size_t i = 0; i < bytes; i += 12) b[i] = a[i], b[i + 1] = a[i + 1];
  CallMux(a.data(), b.data(), out.data(), g);
  return Crc32(out.data(), bytes, Crc32(b.data(), bytes, Crc32(a.data(), bytes)));
}

constexpr Golden kPitchModes[] = {
    {MUX_DEFAULT, 0, 0, 0, 0, 0, 0, 0xD7FC713C},
    {MUX_COPY_B | MUXF_SWAP, 0, 0, 0, 0, 0, 0, 0x0F9E0EA4},
    {MUX_MERGE_BYTE2_BYTE0, 0, 0, 0, 0, 0, 0, 0xBDA7AF70},
    {MUX_MERGE_HIGH_LOW | MUXF_FLIP_V_A, 0, 0, 0, 0, 0, 0, 0x4CED9AEA},
    {MUX_MERGE_BYTE0 | MUXF_FLIP_H_B, 0, 0, 0, 0, 0, 0, 0x26A7D8AD},
    {MUX_MERGE_ODD_EVEN | MUXF_SWAP, 0, 0, 0, 0, 0, 0, 0x30B61267},
    {MUX_INTERLEAVE, 0, 0, 0, 0, 0, 0, 0xE2A33577},
    {MUX_INTERLEAVE | MUXF_ALT_AXIS, 0, 0, 0, 0, 0, 0, 0x72405A76},
    {MUX_AVERAGE | MUXF_GRID, 0, 0, 0, 0, 0, 25, 0xABAA7982},
    {MUX_DIFFERENCE, 0, 0, 0, 0, 0, 0, 0xE55B02C6},
    {MUX_DIFFERENCE | MUXF_FLIP_V_B, 0, 37, 0, 0, 0, 0, 0x3951E91F},
    {MUX_OVER_UNDER, 0, 0, 0, 0, 2, 5, 0xAF2EAEFD},
    {MUX_SPLIT | MUXF_DIVIDER, 0, 0, 11, 0, 0, 0, 0x5178EA75},
    {MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, 0, 0, 0, 9, 0, 0, 0x7AFC4F85},
    {MUX_MIRROR, 0, 0, 0, 0, 0, 0, 0x2A2D28A3},
    {MUX_MIRROR2 | MUXF_ALT_AXIS, 0, 0, 0, 0, 0, 0, 0x9C33AF45},
    {MUX_MATCH_GATE, 0, 3, 0, 0, 0, 0, 0xA35FD0AB},
    {MUX_MATCH_GATE | MUXF_SWAP, 0, 100, 0, 0, 0, 0, 0xA1B4B7F2},
    {MUX_CROSSFADE, 40000, 0, 0, 0, 0, 0, 0x29B770DE},
    {MUX_CROSSFADE | MUXF_FLIP_H_A, 0x123456, 0, 0, 0, 1, 50, 0x590630E7},
    {MUX_CHECKER, 0, 0, 0, 0, 0, 0, 0x499A6CB5},
    {MUX_BLOCK_CHECKER, 0x0500, 0, 0, 0, 0, 0, 0xAD9F5516},
    {MUX_CHANNEL_VIEW, 0, 0xFF0000, 0, 0, 0, 0, 0x7CB8B99D},
    {MUX_CHANNEL_VIEW, 0, 0, 0, 0, 0, 0, 0xF6B359E0},
};

constexpr Golden kTightModes[] = {
    {MUX_SIDE_BY_SIDE, 0, 0, 0, 0, 0, 0, 0xBB08CFE1},
    {MUX_SIDE_BY_SIDE | MUXF_SWAP | MUXF_GRID, 0, 0, 0, 0, 3, 7, 0x7C7C8DCF},
    {MUX_TWO_UP, 0, 0, 0, 0, 0, 0, 0x7E8C9313},
    {MUX_CROP_PAIR, 0, 0, 5, 0, 0, 0, 0x9616FD68},
    {MUX_CROP_PAIR | MUXF_ALT_AXIS | MUXF_FLIP_V_A, 0, 0, 0, 4, 0, 0, 0xC01BC908},
};

TEST(MuxGolden, PitchSteppedModes) {
  for (const Golden& c : kPitchModes)
    EXPECT_EQ(RunGolden(c, false), c.crc) << "flags " << std::hex << c.muxFlags;
}

TEST(MuxGolden, TightModes) {
  for (const Golden& c : kTightModes)
    EXPECT_EQ(RunGolden(c, true), c.crc) << "flags " << std::hex << c.muxFlags;
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
