// Every mode and flag of the mux against the model, on random frames of many
// sizes and pitches, misaligned too, with guard bytes around every frame.
#include <gtest/gtest.h>

#include <algorithm>

#include "common/test_random.h"
#include "mux/mux_harness.h"
#include "zrmux.h"

namespace zr::test {
namespace {

constexpr uint32_t kModes[] = {
    MUX_COPY_B,         MUX_MERGE_BYTE2_BYTE0,
    MUX_MERGE_HIGH_LOW, MUX_MERGE_BYTE0,
    MUX_MERGE_ODD_EVEN, MUX_INTERLEAVE,
    MUX_AVERAGE,        MUX_DIFFERENCE,
    MUX_OVER_UNDER,     MUX_SIDE_BY_SIDE,
    MUX_SPLIT,          MUX_MIRROR,
    MUX_MIRROR2,        MUX_MATCH_GATE,
    MUX_CROSSFADE,      MUX_WIPE,
    MUX_CHECKER,        MUX_BLOCK_CHECKER,
    MUX_TWO_UP,         MUX_CROP_PAIR,
    MUX_CHANNEL_VIEW,   MUX_DEFAULT,
    0x000001,           0x000003,
    0x020000,           0x400000,
    0xFFFFFF,
};

struct Size {
  uint32_t width, height;
};
constexpr Size kSizes[] = {{0, 0}, {0, 3},  {3, 0},  {1, 1},  {2, 1},  {1, 2},  {2, 2},
                           {3, 3}, {3, 2},  {2, 3},  {4, 4},  {5, 3},  {7, 5},  {8, 2},
                           {9, 9}, {16, 3}, {17, 4}, {31, 2}, {33, 5}, {64, 3}, {100, 7}};
constexpr uint32_t kPitchExtra[] = {0, 4, 3, 12};

uint32_t Pick(Rng& rng, std::initializer_list<uint32_t> values) {
  return rng.Below(4) == 0 ? rng.Next32() : values.begin()[rng.Below(static_cast<uint32_t>(values.size()))];
}

// Random arguments that keep the grid steps usable.
MuxArgs RandomArgs(Rng& rng, uint32_t mode, Size size, uint32_t pitchExtra) {
  MuxArgs g;
  g.width = size.width;
  g.height = size.height;
  g.pitch = size.width * 4 + pitchExtra;
  const uint32_t bytes = g.height * g.pitch;
  g.muxFlags = mode | (rng.Next32() & 0xFF000000);
  g.sizeA = rng.Below(bytes + 1);
  g.sizeB = rng.Below(bytes + 1);
  g.wipeCode = Pick(rng, {1, 2, 3, 5, 8, 22, 25, 0x80000001, 0x80000004, 500, 0, 9});
  g.mixPosition = Pick(rng, {0, 255, 256, 0x300, 0x7F00, 32768, 40000, 65535, 65536, 65537 << 8});
  g.mixLevel = Pick(rng, {0, 1, 2, 3, 40, 254, 255, 256, 0xFF, 0xFF00, 0xFF0000, 0xFF000000});
  g.splitX = Pick(rng, {0, 1, g.width / 3, g.width - 1, g.width, g.width + 1});
  g.splitY = Pick(rng, {0, 1, g.height / 3, g.height - 1, g.height, g.height + 1});
  g.gridMode = Pick(rng, {0, 0, 0, 1, 2, 5}) % 6;
  if (g.gridMode < 2) {
    const uint32_t parts = 1 + rng.Below(std::max(std::min(g.width, g.height), 1u));
    g.gridStepX = 100 / parts;
    if (100 / g.gridStepX > std::min(g.width, g.height)) g.gridStepX = 100;
  } else {
    g.gridStepX = 1 + rng.Below(g.width + 2);
    g.gridStepY = 1 + rng.Below(g.height + 2);
  }
  return g;
}

TEST(MuxModes, EveryModeAndFlagMatchesTheModel) {
  uint64_t seed = 1;
  for (uint32_t mode : kModes)
    for (Size size : kSizes)
      for (uint32_t extra : kPitchExtra)
        for (int round = 0; round < 2; ++round, ++seed) {
          Rng rng(seed);
          const MuxArgs g = RandomArgs(rng, mode, size, extra);
          ASSERT_TRUE(MuxMatchesModel(g, seed * 7919, seed % 3, seed % 9 == 0));
        }
}

TEST(MuxModes, EachFlagAloneMatchesTheModel) {
  uint64_t seed = 100000;
  for (uint32_t mode : kModes)
    for (int bit = 24; bit < 32; ++bit)
      for (Size size : {Size{5, 3}, Size{6, 4}}) {
        Rng rng(++seed);
        MuxArgs g = RandomArgs(rng, mode, size, 4);
        g.muxFlags = mode | (1u << bit);
        g.gridMode = 0;
        g.gridStepX = 50;
        ASSERT_TRUE(MuxMatchesModel(g, seed)) << "flag bit " << bit;
      }
}

// Pixel modes are byte-exact whatever the vector width: long rows with every
// remainder of a 32-pixel step.
TEST(MuxModes, LongRowsOfThePixelModesMatchTheModel) {
  uint64_t seed = 200000;
  for (uint32_t mode : {MUX_MERGE_BYTE2_BYTE0, MUX_MERGE_HIGH_LOW, MUX_MERGE_BYTE0, MUX_MERGE_ODD_EVEN,
                        MUX_AVERAGE, MUX_DIFFERENCE, MUX_MATCH_GATE, MUX_CROSSFADE, MUX_CHANNEL_VIEW})
    for (uint32_t width = 64; width < 64 + 33; ++width) {
      Rng rng(++seed);
      MuxArgs g = RandomArgs(rng, mode, Size{width, 2}, 4 * (seed % 3));
      g.gridMode = 0;
      g.muxFlags = mode | (g.muxFlags & MUXF_SWAP);
      ASSERT_TRUE(MuxMatchesModel(g, seed, seed % 2));
    }
}

}  // namespace
}  // namespace zr::test
