// zrfxDISSOLVE and zrfxDISSOLVE2 called directly with explicit bands: the
// band, the pitches, the source roles, the formats each takes, output that
// shares memory with a source, and the golden checksums.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "common/test_random.h"
#include "dissolve_golden.h"
#include "dissolve_test_support.h"
#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"
#include "fx/fx_format.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

using test::EffectArgs;
using test::RunEffect;
using test::TestPicture;

DissolveRowFn PlainRowFor(const FxFormatInfo& info) {
  return info.BytesPerSample() == 1   ? DissolveRow8_C
         : info.BytesPerSample() == 2 ? DissolveRow16_C
                                      : DissolveRowF32_C;
}

// The band of `dst` pixel by pixel: bit 31 of the wipe code makes srcA the
// incoming picture, each source keeps its pitch, dst rows are pitchB apart
// and dstPitch is not read. Every other byte stays.
std::vector<uint8_t> ExpectedOutput(const EffectArgs& a, std::vector<uint8_t> dst) {
  const FxFormatInfo info = FxFormatOf(a.format);
  const bool reversed = a.wipeCode >> 31;
  const uint8_t *in = reversed ? a.srcA : a.srcB, *out = reversed ? a.srcB : a.srcA;
  const uint32_t inPitch = reversed ? a.pitchA : a.pitchB, outPitch = reversed ? a.pitchB : a.pitchA;
  const double t = zrfxDissolveRatio(a.progress, a.progressEnd - a.progressStart);
  const size_t bpp = info.bytesPerPixel;
  for (uint32_t y = a.bandTop; y < a.bandBottom; ++y)
    for (uint32_t x = a.bandLeft; x < a.bandRight; ++x)
      PlainRowFor(info)(in + y * inPitch + x * bpp, out + y * outPitch + x * bpp,
                        dst.data() + y * a.pitchB + x * bpp, info.samplesPerPixel, t, 1.0 - t);
  return dst;
}

TEST(DissolveEffects, MixExactlyTheBandInEveryFormatGroup) {
  constexpr uint32_t kFormats[] = {1, 2, 3, 4, 34, 5, 6, 33, 31, 35, 32, 36, 29, 30};
  test::Rng rng(2024);
  for (int round = 0; round < 400; ++round) {
    const uint32_t format = kFormats[round % std::size(kFormats)];
    const uint32_t bpp = FxFormatOf(format).bytesPerPixel;
    const uint32_t width = 1 + rng.Below(40), height = 1 + rng.Below(6);
    const uint64_t seed = rng.Next();
    TestPicture a(width * bpp + rng.Below(20), height, seed, rng.Below(2));
    TestPicture b(width * bpp + rng.Below(20), height, seed + 1, rng.Below(2));
    TestPicture dst(b.pitch(), height, seed + 2, rng.Below(2));
    EffectArgs args{a.data(), a.pitch(), b.data(), b.pitch(), dst.data(), 7, 0, format, width,
                    height,   {},        0,        0,         0,          0, 0, 0,      0};
    args.wipeCode = (rng.Next32() & 0x80000000u) | rng.Below(1000);
    args.progressStart = rng.Below(3);
    args.progressEnd = args.progressStart + 1 + rng.Below(70000);
    args.progress = rng.Below(args.progressEnd - args.progressStart + 1);
    args.bandLeft = rng.Below(width + 1);
    args.bandRight = args.bandLeft + rng.Below(width - args.bandLeft + 1);
    args.bandTop = rng.Below(height + 1);
    args.bandBottom = args.bandTop + rng.Below(height - args.bandTop + 1);

    const auto srcA = a.Bytes(), srcB = b.Bytes(), before = dst.Bytes();
    const auto want = ExpectedOutput(args, before);
    for (zrfxEffectFn* effect : {zrfxDISSOLVE, zrfxDISSOLVE2}) {
      std::memcpy(dst.data(), before.data(), before.size());
      EXPECT_EQ(RunEffect(effect, args), 0u);
      const std::string context = "seed " + std::to_string(seed) + " format " + std::to_string(format);
      ASSERT_TRUE(test::SameBytes(dst.data(), want.data(), want.size(), dst.pitch(), context));
      ASSERT_TRUE(dst.GuardsIntact() && a.Bytes() == srcA && b.Bytes() == srcB) << context;
    }
  }
}

TEST(DissolveEffects, FormatsOutsideTheirGroupsAndEmptyBandsWriteNothing) {
  TestPicture a(52, 3, 1), b(52, 3, 2), dst(52, 3, 3);
  const auto before = dst.Bytes();
  for (uint32_t format : {0u, 7u, 10u, 28u, 37u, 99u, 0xFFFFFFFFu})
    for (zrfxEffectFn* effect : {zrfxDISSOLVE, zrfxDISSOLVE2}) {
      EffectArgs args{a.data(), 52, b.data(), 52,  dst.data(), 52, 0,  format, 12,
                      3,        {}, 0,        100, 50,         0,  12, 0,      3};
      EXPECT_EQ(RunEffect(effect, args), 0u);
    }
  const uint32_t bands[][4] = {{5, 5, 0, 3}, {6, 5, 0, 3}, {0, 12, 2, 2}, {0, 12, 3, 1}};
  for (const auto& band : bands) {
    EffectArgs args{a.data(), 52, b.data(), 52,  dst.data(), 52,      0,       1,       12,
                    3,        {}, 0,        100, 50,         band[0], band[1], band[2], band[3]};
    EXPECT_EQ(RunEffect(zrfxDISSOLVE2, args), 0u);
  }
  EXPECT_EQ(dst.Bytes(), before);
}

// Output into a source at the same place and pitch matches a separate output:
// each result depends only on the samples at its own position.
TEST(DissolveEffects, OutputIntoASourceMatchesASeparateOutput) {
  for (uint32_t format : {1u, 5u, 31u, 32u, 29u}) {
    for (bool intoA : {false, true}) {
      const uint32_t bpp = FxFormatOf(format).bytesPerPixel, pitch = 40 * bpp + 8;
      TestPicture a(pitch, 5, 10), b(pitch, 5, 11), dst(pitch, 5, 12);
      EffectArgs args{a.data(), pitch, b.data(), pitch, dst.data(), pitch, 0,  format, 40,
                      5,        {},    0,        65536, 12345,      3,     37, 1,      5};
      RunEffect(zrfxDISSOLVE, args);
      args.dst = intoA ? a.data() : b.data();
      RunEffect(zrfxDISSOLVE, args);
      for (uint32_t y = 1; y < 5; ++y)
        EXPECT_EQ(std::memcmp(args.dst + y * pitch + 3 * bpp, dst.data() + y * pitch + 3 * bpp, 34 * bpp), 0)
            << "format " << format << " row " << y;
    }
  }
}

// Output one pixel further on than a source: the plain loop runs in memory
// order, each sample reading what the ones before it wrote.
TEST(DissolveEffects, OutputShiftedAgainstASourceRunsInMemoryOrder) {
  for (uint32_t format : {1u, 32u}) {
    const FxFormatInfo info = FxFormatOf(format);
    const uint32_t bpp = info.bytesPerPixel, pitch = 64 * bpp;
    TestPicture a(pitch + bpp, 1, 20), b(pitch, 1, 21);
    std::vector<uint8_t> model = a.Bytes();
    const double t = zrfxDissolveRatio(777, 1000);
    for (size_t i = 0; i < pitch; i += info.BytesPerSample())
      PlainRowFor(info)(b.data() + i, model.data() + i, model.data() + bpp + i, 1, t, 1.0 - t);
    EffectArgs args{a.data(), pitch, b.data(), pitch, a.data() + bpp, pitch, 0, format,
                    64,       1,     {},       0,     1000,           777,   0, 64,
                    0,        1};
    RunEffect(zrfxDISSOLVE2, args);
    EXPECT_TRUE(test::SameBytes(a.data(), model.data(), model.size(), model.size(), std::to_string(format)));
  }
}

TEST(DissolveEffects, BothEffectsGiveTheGoldenOutputInOneBand) {
  for (const auto& g : test::kDissolveGoldens) {
    for (zrfxEffectFn* effect : {zrfxDISSOLVE, zrfxDISSOLVE2}) {
      test::GoldenFrames frames(g.format);
      EXPECT_EQ(RunEffect(effect, frames.Args(g)), 0u);
      EXPECT_EQ(frames.DstCrc(), g.crc)
          << "format " << g.format << " progress " << g.progress << std::hex << " got 0x" << frames.DstCrc();
    }
  }
}

}  // namespace
}  // namespace zr::fx
