// zrfxDISSOLVE and zrfxDISSOLVE2 on whole pictures: golden checksums as one
// band and on the driver, the formats each takes, the band, and output that
// shares memory with a source.
#include <gtest/gtest.h>

#include <cstring>

#include "common/crc32.h"
#include "fx/fx_format.h"
#include "fx/fx_frames.h"

namespace {

using zr::fx::FxCall;

struct Golden {
  uint32_t format, wipeCode, progressStart, progressEnd, progress, crc;
};

constexpr Golden kGoldens[] = {
    {1, 0, 0, 65536, 23456, 0x84ae7056},
    {1, 0x80000000u, 0, 65536, 23456, 0x2428593e},
    {1, 0, 0, 100, 37, 0xda764252},
    {1, 0, 10, 110, 37, 0xda764252},  // the start counts through the span only
    {5, 0, 0, 65536, 23456, 0xad7f61c5},
    {33, 0, 0, 1001, 999, 0x6649a1a6},
    {31, 0, 0, 65536, 23456, 0x3cc2bcdc},
    {32, 0, 0, 65536, 23456, 0xb113a091},
    {32, 0x80000000u, 0, 1001, 3, 0xa06af1c6},
    {29, 0, 0, 65536, 23456, 0xac10a7ec},
    {30, 0, 0, 100, 37, 0x658be6e2},
};

// 37 x 11 pixels (odd, so the four bands differ) in padded rows, each
// picture seeded on its own, the CRC taken over the whole output. Float
// pictures hold eighths between -250 and 250, where both builds agree, in
// every sample and the padding. Returns the call as one band.
FxCall GoldenCall(zr::test::Frames& f, const Golden& g) {
  constexpr uint32_t kW = 37, kH = 11;
  const bool floats = zr::fx::FxFormatOf(g.format).BytesPerSample() == 4;
  const uint32_t pitch = kW * zr::fx::FxFormatOf(g.format).bytesPerPixel + (floats ? 16 : 13);
  for (auto* v : {&f.a, &f.b, &f.d}) {
    v->resize(size_t{pitch} * kH);
    zr::test::Rng rng(1 + (v == &f.b) + 2 * (v == &f.d));
    if (!floats) rng.Fill(v->data(), v->size());
    for (size_t j = 0; floats && j < v->size(); j += 4) {
      const float x = static_cast<float>(static_cast<int32_t>(rng.Below(4001)) - 2000) / 8.0f;
      std::memcpy(v->data() + j, &x, 4);
    }
  }
  FxCall c = f.Call(pitch, g.wipeCode, g.format, kW, kH, g.progressEnd, g.progress);
  c.progressStart = g.progressStart;
  return c;
}

TEST(Dissolve, GoldenAsOneBandAndOnTheDriver) {
  for (const Golden& g : kGoldens)
    for (zrfxEffectFn* effect : {zrfxDISSOLVE, zrfxDISSOLVE2})
      for (bool driver : {false, true}) {
        zr::test::Frames f(0, 0);
        EXPECT_EQ(zr::test::Run(effect, GoldenCall(f, g), driver), 0u);
        const uint32_t crc = zr::test::Crc32(f.d.data(), f.d.size());
        EXPECT_EQ(crc, g.crc) << "format " << g.format << " progress " << g.progress
                              << (driver ? " on the driver" : "") << std::hex << " got " << crc;
      }
}

// The two effects give the same bytes for every format, and a format in no
// group writes nothing; a band writes exactly its own samples.
TEST(Dissolve, FormatsAndBands) {
  zr::test::Rng r(2024);
  for (uint32_t format = 0; format <= 40; ++format)
    for (uint32_t i = 0; i < 8; ++i) {
      const bool inGroup = (format >= 1 && format <= 6) || (format >= 29 && format <= 36);
      const uint32_t w = 1 + r.Below(20), h = 1 + r.Below(5), pitch = w * 16 + 5;
      zr::test::Frames one(pitch * h, r.Next()), two = one, band = one;
      const auto before = one.d;
      zr::test::Run(zrfxDISSOLVE, one.Call(pitch, (i & 1) << 31, format, w, h, 1000, 100 * i));
      zr::test::Run(zrfxDISSOLVE2, two.Call(pitch, (i & 1) << 31, format, w, h, 1000, 100 * i));
      ASSERT_EQ(two.d, one.d) << "format " << format;
      ASSERT_EQ(one.d != before, inGroup) << "format " << format;
      zr::test::ExpectBandWritesItsPixels(i % 2 ? zrfxDISSOLVE : zrfxDISSOLVE2, band,
                                          band.Call(pitch, (i & 1) << 31, format, w, h, 1000, 100 * i),
                                          zr::fx::FxFormatOf(format).bytesPerPixel, r);
    }
}

// Output on a source, at its place or one pixel further on: each result
// depends only on the samples at its own place, read before it is written,
// so a row comes out as one-pixel bands in memory order give it.
TEST(Dissolve, OutputSharingASourceRunsInMemoryOrder) {
  constexpr uint32_t kW = 40;
  for (const auto& [format, bpp] : zr::test::kGroupFormats)
    for (uint32_t shift : {0u, 1u})
      for (bool intoA : {true, false}) {
        const uint32_t pitch = (kW + 1) * bpp;
        zr::test::Frames row(pitch, format), pixels = row;
        const auto run = [&](zr::test::Frames& f, uint32_t left, uint32_t right) {
          uint8_t* dst = (intoA ? f.a.data() : f.b.data()) + shift * bpp;
          zrfxDISSOLVE2(f.a.data(), pitch, f.b.data(), pitch, dst, pitch, 0, format, kW, 1, 0, 0, 0, 0, 0, 0,
                        1000, 777, left, right, 0, 1);
        };
        run(row, 0, kW);
        for (uint32_t x = 0; x < kW; ++x) run(pixels, x, x + 1);
        EXPECT_TRUE(row.a == pixels.a && row.b == pixels.b)
            << "format " << format << " shift " << shift << (intoA ? " into srcA" : " into srcB");
      }
}

}  // namespace
