// The pixel mix modes on single pixels with the values where their odd
// corners show, and with the output written over a source.
#include <gtest/gtest.h>

#include <vector>

#include "common/test_random.h"
#include "mux/mux_model.h"
#include "zrmux.h"

namespace zr::test {
namespace {

// A row of 41 equal pixels through the mux, so that both the vector steps and
// the scalar rest run; a and b are pixels as little-endian words.
uint32_t MixOne(uint32_t flags, uint32_t a, uint32_t b, uint32_t mixPosition = 0, uint32_t mixLevel = 0) {
  constexpr uint32_t kW = 41;
  std::vector<uint32_t> rowA(kW, a), rowB(kW, b), out(kW, 0x5A5A5A5A);
  ZrDraw_DisplayMuxRGBA(rowA.data(), 0, rowB.data(), 0, out.data(), 0, flags, 0, mixPosition, mixLevel, 0, 0,
                        0, 0, 0, kW, 1, kW * 4);
  for (uint32_t x = 1; x < kW; ++x) EXPECT_EQ(out[x], out[0]) << "x " << x;
  return out[0];
}

TEST(MuxPixelModes, MergesTakeWholeBytes) {
  const uint32_t a = 0xA3A2A1A0, b = 0xB3B2B1B0;
  EXPECT_EQ(MixOne(MUX_MERGE_BYTE2_BYTE0, a, b), 0x00A200B0u);  // bytes 1 and 3 dropped
  EXPECT_EQ(MixOne(MUX_MERGE_HIGH_LOW, a, b), 0xA3A2B1B0u);
  EXPECT_EQ(MixOne(MUX_MERGE_BYTE0, a, b), 0xA3A2A1B0u);
  EXPECT_EQ(MixOne(MUX_MERGE_ODD_EVEN, a, b), 0xA3B2A1B0u);
}

TEST(MuxPixelModes, AverageDropsLowBitsBeforeAdding) {
  EXPECT_EQ(MixOne(MUX_AVERAGE, 0x03FF0103, 0x03FF0003), 0x02FE0002u);  // 3+3 -> 2, 255+255 -> 254, 1+0 -> 0
  EXPECT_EQ(MixOne(MUX_AVERAGE, 0xFFFFFFFF, 0x00000000), 0x7F7F7F7Fu);
}

TEST(MuxPixelModes, DifferenceIsOneSidedGreyWithAlphaCleared) {
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x12345678, 0x12345678), 0x00808080u);
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x000000C8, 0x00000064), 0x00B2B2B2u);          // 200 - 100: 50, bytes 178
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x00000064, 0x00000065), 0x00FFFFFFu);          // A darker by 1: full grey
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x00000202, 0x00000200, 0, 255), 0x00FFFFFFu);  // m 1 times 255
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x00000204, 0x00000200, 0, 256), 0x00828282u);  // gain 1, not 256
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x00000204, 0x00000200, 0, 3), 0x00868686u);
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0xFF000000, 0x00000000), 0x00808080u);  // byte 3 ignored
  EXPECT_EQ(MixOne(MUX_DIFFERENCE, 0x00000000, 0xFF000000), 0x00808080u);
}

TEST(MuxPixelModes, MatchGatePassesBOrFills) {
  EXPECT_EQ(MixOne(MUX_MATCH_GATE, 0x11223344, 0x11223344), 0x11223344u);
  EXPECT_EQ(MixOne(MUX_MATCH_GATE, 0x11223344, 0x11223345), 0u);
  EXPECT_EQ(MixOne(MUX_MATCH_GATE, 0x11223344, 0x12223344), 0u);  // byte 3 counts
  EXPECT_EQ(MixOne(MUX_MATCH_GATE, 0x11223344, 0x11223346, 0, 2), 0x11223346u);
  EXPECT_EQ(MixOne(MUX_MATCH_GATE, 0x00000000, 0xFFFFFFFF, 0, 255), 0xFFFFFFFFu);
  // Under MUXF_SWAP the roles exchange and the fill turns white.
  EXPECT_EQ(MixOne(MUX_MATCH_GATE | MUXF_SWAP, 0x11223344, 0x11223350, 0, 4), 0xFFFFFFFFu);
  EXPECT_EQ(MixOne(MUX_MATCH_GATE | MUXF_SWAP, 0x11223344, 0x11223346, 0, 4), 0x11223344u);
}

TEST(MuxPixelModes, CrossfadeShiftsWithoutRoundingAndWraps) {
  const uint32_t a = 0x8040FF0A, b = 0x10C00005;
  EXPECT_EQ(MixOne(MUX_CROSSFADE, a, b, 65536), a);
  EXPECT_EQ(MixOne(MUX_CROSSFADE, a, b, 0), b);
  EXPECT_EQ(MixOne(MUX_CROSSFADE, a, b, 255), b);  // low eight bits have no effect
  EXPECT_EQ(MixOne(MUX_CROSSFADE, 0xFF, 0x00, 32768), 0x7Fu);
  // p 512 and q 256 - 512: (2a - b) in the low byte.
  EXPECT_EQ(MixOne(MUX_CROSSFADE, 0x0A03, 0x050A, 0x20000), 0x0FFCu);
}

TEST(MuxPixelModes, ChannelViewShowsOneChannelOrTheMeanAsGrey) {
  const uint32_t a = 0x401F140A;  // bytes 10, 20, 31, 64
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0x000000FF), 0x0A0A0A0Au);
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0x0000FF00), 0x14141414u);
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0x00FF0000), 0x1F1F1F1Fu);
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0xFF000000), 0x40404040u);
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0), 0x14141414u);  // 61 / 3
  EXPECT_EQ(MixOne(MUX_CHANNEL_VIEW, a, 0, 0, 0xFFFF), 0x14141414u);
}

// Each output pixel depends only on the source pixels at its place, so the
// output may be either source.
TEST(MuxPixelModes, OutputMayBeEitherSource) {
  constexpr uint32_t kW = 37, kH = 5, kPitch = kW * 4 + 8;
  uint64_t seed = 0;
  for (uint32_t mode : {MUX_MERGE_BYTE2_BYTE0, MUX_MERGE_HIGH_LOW, MUX_MERGE_BYTE0, MUX_MERGE_ODD_EVEN,
                        MUX_AVERAGE, MUX_DIFFERENCE, MUX_MATCH_GATE, MUX_CROSSFADE, MUX_CHANNEL_VIEW})
    for (bool overA : {true, false}) {
      Rng rng(++seed);
      std::vector<uint8_t> a(kPitch * kH), b(kPitch * kH), out(kPitch * kH);
      rng.Fill(a.data(), a.size());
      rng.Fill(b.data(), b.size());
      MuxArgs g;
      g.muxFlags = mode;
      g.mixPosition = 40000;
      g.mixLevel = 30;
      g.width = kW, g.height = kH, g.pitch = kPitch;
      std::vector<uint8_t> want = overA ? a : b;
      ModelMux(a.data(), b.data(), want.data(), g, kSideBySideEngine);
      CallMux(a.data(), b.data(), overA ? a.data() : b.data(), g);
      EXPECT_EQ(overA ? a : b, want) << "mode " << mode << (overA ? " over A" : " over B");
    }
}

}  // namespace
}  // namespace zr::test
