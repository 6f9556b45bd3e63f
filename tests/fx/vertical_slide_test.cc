// The two whole-row effects: the edge from the top, which copies rows of
// pitchA or pitchB bytes whatever the band's columns, and the slide, which
// reads packed frames, ignores the band but for its origin, and clamps.
#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "fx_frames.h"

namespace {

// Width 3 at 4 bytes: pitchA 12 is the bare row, pitchB 20 has padding.
// Rows 0 and 1 come in; bandRight is not read, and a band off column 0 (the
// driver's right bands) does nothing.
TEST(Vertical, IncomingRowsCopyPitchABytesAndOutgoingRowsPitchB) {
  constexpr uint32_t kH = 4, kPitchA = 12, kPitchB = 20;
  for (uint32_t code : {0u, 0x80000000u}) {
    for (uint32_t left : {0u, 1u}) {
      std::vector<uint8_t> a(kPitchA * kH + 8), b(kPitchB * kH), d(kPitchB * kH, 0xEE);
      std::iota(a.begin(), a.end(), 0);
      std::iota(b.begin(), b.end(), 100);
      zrfxSMPTE_Vertical(a.data(), kPitchA, b.data(), kPitchB, d.data(), 1, code, 1, 3, kH, 0, 0, 0, 0, 0, 0,
                         100, 50, left, 77, 0, kH);
      for (uint32_t y = 0; y < kH; ++y) {
        const bool incoming = y < 2, fromB = incoming != (code != 0);
        const uint8_t* src = fromB ? &b[y * kPitchB] : &a[y * kPitchA];
        for (uint32_t i = 0; i < kPitchB; ++i)
          EXPECT_EQ(d[y * kPitchB + i], !left && i < (incoming ? kPitchA : kPitchB) ? src[i] : 0xEE)
              << "row " << y << " byte " << i << " code " << code << " left " << left;
      }
    }
  }
}

// A 4 x 3 frame whose pixels are letters: srcA "abcd efgh ijkl", srcB
// "ABCD EFGH IJKL"; dst starts as '-' or is one of the sources.
std::string Slide(uint32_t code, uint32_t progress, char dstIs = '-', uint32_t format = 1,
                  uint32_t pitch = 16, uint32_t bandLeft = 0, uint32_t bandTop = 0) {
  std::vector<uint8_t> a(48), b(48), d(48, '-');
  for (size_t i = 0; i < 48; ++i) a[i] = 'a' + i / 4, b[i] = 'A' + i / 4;
  uint8_t* dst = dstIs == 'a' ? a.data() : dstIs == 'b' ? b.data() : d.data();
  zrfxSLIDE_Basic(a.data(), pitch, b.data(), pitch, dst, pitch, code, format, 4, 3, 0, 0, 0, 0, 0, 0, 3,
                  progress, bandLeft, 0, bandTop, 0);
  std::string picture;
  for (size_t i = 0; i < 48; i += 4) picture += std::string(i && i % 16 == 0, ' ') + char(dst[i]);
  return picture;
}

TEST(Slide, MovesClampsCopyOrderAndWhatItIgnores) {
  const struct {
    uint32_t code, progress;
    char dstIs;
    const char* picture;
  } cases[] = {
      // clang-format off
      {500, 0, '-', "abcd efgh ijkl"}, {500, 1, '-', "efgh ijkl IJKL"}, {501, 1, '-', "bcdD fghH jklL"},
      {502, 1, '-', "ABCD abcd efgh"}, {503, 1, '-', "Aabc Eefg Iijk"}, {504, 1, '-', "ABCD abcd efgh"},
      {507, 2, '-', "ABCD EFGH abcd"}, {501, 3, '-', "ABCD EFGH IJKL"}, {503, 9, '-', "ABCD EFGH IJKL"},
      {500, 9, '-', "ABCD EFGH IJKL"}, {502, 0xFFFFFFFFu, '-', "ABCD EFGH IJKL"},
      // dst on a source: srcB's rows go first, srcA moves after.
      {500, 1, 'a', "efgh IJKL IJKL"}, {502, 1, 'a', "ABCD ABCD efgh"}, {501, 1, 'a', "BCDD FGHH JKLL"},
      {503, 1, 'a', "AABC EEFG IIJK"}, {500, 1, 'b', "efgh ijkl IJKL"},
      // clang-format on
  };
  for (const auto& c : cases)
    EXPECT_EQ(Slide(c.code, c.progress, c.dstIs), c.picture)
        << c.code << " at " << c.progress << " on " << c.dstIs;
  // Packed rows whatever the pitch; a format in no group is 4 bytes a pixel.
  for (uint32_t format : {1u, 10u, 0xFFFFFFFFu}) EXPECT_EQ(Slide(501, 1, '-', format, 999), "bcdD fghH jklL");
  // Other numbers, the reverse flag and a band off the origin do nothing.
  for (uint32_t code : {499u, 508u, 515u, 0x80000000u | 500, 0x80000000u | 503})
    EXPECT_EQ(Slide(code, 1), "---- ---- ----") << code;
  EXPECT_EQ(Slide(500, 1, '-', 1, 16, 1, 0) + Slide(500, 1, '-', 1, 16, 0, 1),
            "---- ---- -------- ---- ----");
}

}  // namespace
