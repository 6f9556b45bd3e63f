// The 8-bit RGB canvases: their pitch, and every read-back (RGBA, YCbCr,
// HSV and luma, by matrix) pinned by a golden checksum over random memory.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::TestCanvas;

TEST(RgbCanvas, PitchIsTheRow) {
  TestCanvas a(pixelABGR32, 640, 2, 0, 4), b(pixelRGB24, 640, 2, 0, 4);
  EXPECT_EQ((std::vector<unsigned>{2560, 1920, 2560, 1920}),
            (std::vector<unsigned>{a->mPitch, b->mPitch, unsigned(a->GetPitch()), unsigned(b->GetPitch())}));
  a->mWidth = 3;  // computed from the width, not kept
  EXPECT_EQ(12, a->GetPitch());
}

// Each class on each of its types, and on a type it reads as its first.
TEST(RgbCanvas, GoldenChecksumOfReadBacks) {
  const unsigned kinds[][2] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {1, 20}, {5, 1}};
  const int modes[] = {0, 1, 2, 3, 4, 5, 8, 1004, 9, -3};
  uint32_t crc = 0;
  for (const auto& kind : kinds) {
    TestCanvas c(kind[0], 16, 9, 67, 67 * 9 + 4);  // an odd pitch: 32-bit rows round down
    zr::test::Rng(0x45F0 + kind[1]).Fill(c.rows(), 67 * 9);
    // A grey, black, and ties among the random pixels.
    std::memcpy(c->GetPixel(0, 0), "\x80\x80\x80\x80\x00\x00\x00\x00\xff\xff\x00\x00\x40\xc0\xc0\x40", 16);
    c->mPixelType = static_cast<pixelType>(kind[1]);
    for (int mode : modes) {
      c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(mode));
      for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 16; ++x) {
          double v[13];
          unsigned char v8[4];
          unsigned int v10[4];
          EXPECT_EQ(0, c->GetPixelRGBA(x, y, v[0], v[1], v[2], v[3]) +
                           c->GetPixelYCbCr(x, y, v[4], v[5], v[6], v[7]) +
                           c->GetPixelHSV(x, y, v[8], v[9], v[10], v[11]) +
                           c->GetPixelYCbCr8(x, y, v8[0], v8[1], v8[2], v8[3]) +
                           c->GetPixelYCbCr10(x, y, v10[0], v10[1], v10[2], v10[3]));
          v[12] = c->GetLuma(x, y);
          crc = zr::test::Crc32(v10, sizeof v10, zr::test::Crc32(v8, 4, zr::test::Crc32(v, sizeof v, crc)));
        }
    }
  }
  EXPECT_EQ(2817642984u, crc);
}

}  // namespace
