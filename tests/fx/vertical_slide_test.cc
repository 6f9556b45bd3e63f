// The two whole-row effects: the edge from the top, which copies rows of
// pitchA or pitchB bytes whatever the band's columns, and the slide, which
// reads packed frames and clamps its shift.
#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "zrfx.h"

namespace {

std::vector<uint8_t> Filled(size_t n, uint8_t first) {
  std::vector<uint8_t> v(n);
  std::iota(v.begin(), v.end(), first);
  return v;
}

TEST(Vertical, IncomingRowsCopyPitchABytesAndOutgoingRowsPitchB) {
  // Width 3 at 4 bytes: pitchA 12 is the bare row, pitchB 20 has padding.
  constexpr uint32_t kW = 3, kH = 4, kPitchA = 12, kPitchB = 20;
  for (uint32_t code : {0u, 0x80000000u}) {
    const auto a = Filled(kPitchA * kH + 8, 0), b = Filled(kPitchB * kH, 100);
    std::vector<uint8_t> d(kPitchB * kH, 0xEE);
    // progress 50 of 100: rows 0 and 1 incoming.
    zrfxSMPTE_Vertical(const_cast<uint8_t*>(a.data()), kPitchA, const_cast<uint8_t*>(b.data()), kPitchB,
                       d.data(), 1, code, 1, kW, kH, 0, 0, 0, 0, 0, 0, 100, 50, 0, 77, 0, kH);
    const bool reversed = code != 0;
    for (uint32_t y = 0; y < kH; ++y) {
      const bool incoming = y < 2;
      const uint8_t* src = (incoming != reversed) ? b.data() + y * kPitchB : a.data() + y * kPitchA;
      const uint32_t length = incoming ? kPitchA : kPitchB;
      for (uint32_t i = 0; i < kPitchB; ++i)
        EXPECT_EQ(d[y * kPitchB + i], i < length ? src[i] : 0xEE)
            << "row " << y << " byte " << i << " code " << code;
    }
  }
}

TEST(Vertical, OnlyBandsAtColumnZeroActAndTheyDoWholeRows) {
  constexpr uint32_t kW = 10, kH = 6, kPitch = 40;
  auto a = Filled(kPitch * kH, 0), b = Filled(kPitch * kH, 128);
  std::vector<uint8_t> d(kPitch * kH, 0xEE);
  const auto untouched = d;
  // The band of the upper right job.
  zrfxSMPTE_Vertical(a.data(), kPitch, b.data(), kPitch, d.data(), kPitch, 0, 1, kW, kH, 0, 0, 0, 0, 0, 0,
                     100, 50, 5, 10, 0, 3);
  EXPECT_EQ(d, untouched);
  // The band of the upper left job: whole rows 0 to 2, whatever bandRight.
  zrfxSMPTE_Vertical(a.data(), kPitch, b.data(), kPitch, d.data(), kPitch, 0, 1, kW, kH, 0, 0, 0, 0, 0, 0,
                     100, 50, 0, 5, 0, 3);
  for (uint32_t i = 0; i < kPitch * kH; ++i) EXPECT_EQ(d[i], i < 3 * kPitch ? b[i] : 0xEE) << i;
}

struct SlideFrames {
  static constexpr uint32_t kW = 7, kH = 5, kBpp = 4, kRow = kW * kBpp;
  std::vector<uint8_t> a = Filled(kRow * kH, 0), b = Filled(kRow * kH, 140),
                       d = std::vector<uint8_t>(kRow * kH, 0xEE);
  void Slide(uint32_t code, uint32_t progress, uint32_t format = 1, uint32_t pitch = kRow) {
    zrfxSLIDE_Basic(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, format, kW, kH, 0, 0, 0, 0, 0, 0,
                    100, progress, 0, 0, 0, 0);
  }
};

TEST(Slide, StartsOnSrcAAndEndsOnSrcBClampedPastTheEnd) {
  for (uint32_t code = 500; code <= 507; ++code) {
    SlideFrames f;
    f.Slide(code, 0);
    EXPECT_EQ(f.d, f.a) << code;
    for (uint32_t progress : {100u, 101u, 250u, 0xFFFFFFFFu / SlideFrames::kH}) {
      f.Slide(code, progress);
      EXPECT_EQ(f.d, f.b) << code << " at " << progress;
    }
  }
}

TEST(Slide, ReadsPackedRowsWhateverThePitchAndTakesAnyOtherFormatAsFourBytes) {
  SlideFrames packed, pitched, unknown;
  packed.Slide(501, 30);
  pitched.Slide(501, 30, 1, 999);
  unknown.Slide(501, 30, 10);
  EXPECT_EQ(pitched.d, packed.d);
  EXPECT_EQ(unknown.d, packed.d);
}

TEST(Slide, DoesNothingForOtherNumbersTheReverseFlagOrABandOffTheOrigin) {
  SlideFrames f;
  const auto untouched = f.d;
  for (uint32_t code = 508; code <= 515; ++code) f.Slide(code, 30);
  f.Slide(0x80000000u | 500, 30);
  f.Slide(499, 30);
  zrfxSLIDE_Basic(f.a.data(), 0, f.b.data(), 0, f.d.data(), 0, 500, 1, 7, 5, 0, 0, 0, 0, 0, 0, 100, 30, 1, 7,
                  0, 5);
  zrfxSLIDE_Basic(f.a.data(), 0, f.b.data(), 0, f.d.data(), 0, 500, 1, 7, 5, 0, 0, 0, 0, 0, 0, 100, 30, 0, 7,
                  2, 5);
  EXPECT_EQ(f.d, untouched);
}

}  // namespace
