// ZrPixel geometry and the guarded write: addressing, the pitch rules, the
// additive and whole-word blend roads, and the 24-bit asymmetry.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Rng;
using zr::test::TestCanvas;

TEST(PixelWrite, DefaultsWriteWhiteAndZero) {
  TestCanvas c(pixelRGBA32, 4, 2, 0, 32);
  EXPECT_EQ(0xFFFFFFFFu, c->mForeColor);
  EXPECT_EQ(0u, c->mBackColor);
  EXPECT_EQ(0.0, c->mForeOpacity);
  EXPECT_EQ(0.0, c->mBackOpacity);
  EXPECT_FALSE(c->mbTransparency);
  EXPECT_FALSE(c->mbAlphaAdditive);
  EXPECT_FALSE(c->mbBottomUp);
  EXPECT_EQ(0u, c->mLastChange);
  EXPECT_EQ(0, c->PutPixel(1, 0, true));
  EXPECT_EQ(0, c->PutPixel(2, 1, false));
  EXPECT_EQ(0xFFFFFFFFu, c.Word(4));
  EXPECT_EQ(0u, c.Word(16 + 8));
  EXPECT_EQ(0x11111111u, c.Word(0));
}

TEST(PixelWrite, GuardsOnlyNegativeYAndNullMemory) {
  TestCanvas c(pixelRGBA32, 4, 2, 0, 32, 4);
  const uint32_t before = zr::test::Crc32(c.all(), c.size());
  EXPECT_EQ(-1, c->PutPixel(0, -1, true));
  EXPECT_EQ(-1, c->PutPixel(0, -1, false));
  EXPECT_EQ(before, zr::test::Crc32(c.all(), c.size()));
  // x is not checked: -1 writes the word before the row.
  EXPECT_EQ(0, c->PutPixel(-1, 0, true));
  uint32_t w;
  std::memcpy(&w, c.all(), 4);
  EXPECT_EQ(0xFFFFFFFFu, w);

  ZrDraw* none = nullptr;
  ASSERT_EQ(0, GetDraw(pixelBGR24, 4, 4, 0, nullptr, none));
  EXPECT_EQ(-1, none->PutPixel(0, 0, true));
  EXPECT_EQ(-1, none->PutPixel(3, 3, false));
  EXPECT_EQ(-1, none->SetPixel(1, 1, 0.5, 0.5, 0.5, 1.0, true));
  ReleaseDraw(none);
}

TEST(PixelWrite, RowOffsetIsRoundedDownToWordsExceptOn24Bit) {
  // Width 3, pitch 13: rows 1 and 2 start at 12 and 24 on a 32-bit canvas.
  TestCanvas c(pixelRGBA32, 3, 3, 13, 13 * 3);
  EXPECT_EQ(13u, c->mPitch);
  EXPECT_EQ(c.rows() + 12, c->GetPixel(0, 1));
  EXPECT_EQ(c.rows() + 24 + 8, c->GetPixel(2, 2));
  c->mForeColor = 0x04030201;
  c->PutPixel(1, 2, true);
  EXPECT_EQ(0x04030201u, c.Word(28));

  TestCanvas t(pixelRGB24, 3, 3, 13, 13 * 3 + 4);
  EXPECT_EQ(t.rows() + 26 + 6, t->GetPixel(2, 2));
  t->mForeColor = 0xAA030201;
  t->PutPixel(2, 2, true);
  EXPECT_EQ(0x11030201u, t.Word(32));
}

TEST(PixelWrite, Foreground24BitWritesThreeBytesBackgroundFour) {
  TestCanvas c(pixelRGB24, 8, 1, 0, 40);
  c->mForeColor = 0xDDCCBBAA;
  c->mBackColor = 0x44332211;
  c->PutPixel(1, 0, true);
  EXPECT_EQ(0x11CCBBAAu, c.Word(3));
  // The background word goes to 4 x, past 3-byte addressing; hosts rely on it.
  c->PutPixel(3, 0, false);
  EXPECT_EQ(0x44332211u, c.Word(12));
  EXPECT_EQ(0x11u, c.rows()[9]);
}

TEST(PixelWrite, AdditiveWrapsEachByteAndSetsAlpha) {
  TestCanvas c(pixelRGBA32, 2, 1, 0, 8);
  c->SetAlphaAdditive(true);
  c->SetTransparency(true);
  c->SetTransparency(0.5, true);
  c->mForeColor = 0xFF0A6464;  // additive wins over the blend
  const uint8_t start[4] = {200, 100, 0, 7};
  std::memcpy(c.rows(), start, 4);
  EXPECT_EQ(0, c->PutPixel(0, 0, true));
  EXPECT_EQ(44, c.rows()[0]);
  EXPECT_EQ(200, c.rows()[1]);
  EXPECT_EQ(10, c.rows()[2]);
  EXPECT_EQ(255, c.rows()[3]);
  // The background slot is never additive: here it blends.
  c->mBackColor = 0x100;
  c->SetTransparency(0.5, false);
  std::memset(c.rows() + 4, 0, 4);
  c->PutPixel(1, 0, false);
  EXPECT_EQ(0x80u, c.Word(4));
}

TEST(PixelWrite, AdditiveMatchesModelOnRandomBytes) {
  Rng rng(0xADD1);
  TestCanvas c(pixelBGRA32, 16, 16, 0, 1024);
  c->SetAlphaAdditive(true);
  for (int i = 0; i < 2000; ++i) {
    const uint32_t colour = rng.Next32();
    const int x = rng.Below(16), y = rng.Below(16);
    uint8_t* p = c.rows() + y * 64 + x * 4;
    uint8_t old[4];
    std::memcpy(old, p, 4);
    c->mForeColor = colour;
    c->PutPixel(x, y, true);
    const double a = (colour >> 24) / 255.0;
    for (int k = 0; k < 3; ++k) {
      const int want = static_cast<int>(old[k] + a * ((colour >> (8 * k)) & 0xFF)) & 0xFF;
      ASSERT_EQ(want, p[k]) << "seed 0xADD1 step " << i << " byte " << k;
    }
    ASSERT_EQ(255, p[3]);
  }
}

TEST(PixelWrite, BlendMixesWholeWordsOnEveryType) {
  for (unsigned int type : {1u, 2u, 3u, 4u, 5u, 6u}) {
    TestCanvas c(type, 4, 4, 16, 64);
    Rng rng(type);
    c->SetTransparency(true);
    for (int i = 0; i < 500; ++i) {
      const bool fg = rng.Below(2);
      const double t = (rng.Below(1001)) / 1000.0 + (i == 0 ? 0.001 : 0.0);
      const uint32_t colour = rng.Next32();
      const int x = rng.Below(3), y = rng.Below(4);
      (fg ? c->mForeColor : c->mBackColor) = colour;
      c->SetTransparency(t, fg);
      const uint32_t old = c.Word(y * 16 + x * 4);
      c->PutPixel(x, y, fg);
      uint32_t want = old;
      if (t > 0.0)
        want = static_cast<uint32_t>(static_cast<int64_t>(colour * t + (1.0 - t) * old));
      else if (!fg || type < 5)
        want = colour;
      else
        want = (old & 0xFF000000u) | (colour & 0xFFFFFFu);
      // Types 5 and 6 write the unblended foreground at 3 x.
      if (t == 0.0 && fg && type >= 5) continue;
      ASSERT_EQ(want, c.Word(y * 16 + x * 4)) << "type " << type << " step " << i;
    }
  }
  TestCanvas d(pixelRGBA32, 1, 1, 0, 4);
  std::memset(d.rows(), 0, 4);
  d->mForeColor = 0x100;
  d->SetTransparency(true);
  d->SetTransparency(0.5, true);
  d->PutPixel(0, 0, true);
  EXPECT_EQ(0x80u, d.Word(0));
  // Opacity 0 falls through to a plain write.
  d->SetTransparency(0.0, true);
  d->PutPixel(0, 0, true);
  EXPECT_EQ(0x100u, d.Word(0));
}

TEST(PixelWrite, SetCanvasPitchRules) {
  TestCanvas c(pixelRGBA32, 640, 480, 0, 4);
  EXPECT_EQ(2560u, c->mPitch);
  EXPECT_EQ(640u, c->mWidth);
  EXPECT_EQ(480u, c->mHeight);
  char* mem = reinterpret_cast<char*>(c.rows());
  EXPECT_EQ(0, c->SetCanvas(mem, 10, 20, 7));
  EXPECT_EQ(80u, c->mPitch);
  c->SetCanvas(mem, 10, 20, -100);
  EXPECT_EQ(100u, c->mPitch);
  c->SetCanvas(mem, -10, -20, 0);
  EXPECT_TRUE(c->mbBottomUp);
  EXPECT_EQ(10u, c->mHeight);
  EXPECT_EQ(20u, c->mWidth);
  EXPECT_EQ(reinterpret_cast<unsigned char*>(mem), c->GetPixel(0, 0));
  c->SetCanvas(mem, 10, 20, 0);
  EXPECT_FALSE(c->mbBottomUp);

  TestCanvas t(pixelBGR24, 640, 480, 0, 4);
  EXPECT_EQ(1920u, t->mPitch);
  t->SetCanvas(nullptr, 1, 5, 2);
  EXPECT_EQ(15u, t->mPitch);
}

TEST(PixelWrite, MinimumRowByTypeOnTheBaseClass) {
  struct Case {
    int type;
    unsigned int row;  // for width 10, pitch 1
  };
  const Case cases[] = {{1, 40},     {4, 40},     {5, 30}, {6, 30},  {10, 20}, {13, 20}, {14, 1},
                        {20, 1},     {21, 1},     {28, 1}, {31, 60}, {32, 80}, {37, 60}, {38, 80},
                        {10000, 20}, {10001, 40}, {0, 1},  {33, 1},  {-1, 1}};
  for (const Case& k : cases) {
    ZrPixel p;
    p.mPixelType = static_cast<pixelType>(k.type);
    p.SetCanvas(nullptr, 1, 10, 1);
    EXPECT_EQ(k.row, p.mPitch) << "type " << k.type;
  }
  // A bare ZrPixel computes pitch 0 itself, which the minimum then raises.
  ZrPixel p;
  EXPECT_EQ(0, p.GetPitch());
  p.SetCanvas(nullptr, 2, 3, 0);
  EXPECT_EQ(12u, p.mPitch);
}

TEST(PixelWrite, IsRgbTypeByValue) {
  ZrPixel p;
  for (int t = -2; t <= 40; ++t) {
    p.mPixelType = static_cast<pixelType>(t);
    const bool yuv = t == -1 || (t >= 10 && t <= 19) || (t >= 33 && t <= 36);
    EXPECT_EQ(yuv ? 0 : 1, p.IsRgbType()) << t;
  }
  for (int t : {10000, 10001}) {
    p.mPixelType = static_cast<pixelType>(t);
    EXPECT_EQ(0, p.IsRgbType());
  }
  p.mPixelType = static_cast<pixelType>(10002);
  EXPECT_EQ(1, p.IsRgbType());
}

TEST(PixelWrite, PercentTruncates) {
  TestCanvas c(pixelRGBA32, 101, 3, 0, 4);
  EXPECT_EQ(50, c->PercentX(0.5));
  EXPECT_EQ(1, c->PercentY(0.5));
  EXPECT_EQ(101, c->PercentX(1.0));
  EXPECT_EQ(-50, c->PercentX(-0.5));
}

// Every road of PutPixel on every type, on a fixed seeded sequence; the
// checksum is the same in every build.
TEST(PixelWrite, GoldenChecksumOfMixedWrites) {
  uint32_t crc = 0;
  for (unsigned int type : {1u, 2u, 3u, 4u, 5u, 6u}) {
    TestCanvas c(type, 13, 7, 57, 57 * 7 + 4);
    Rng rng(0x5EED0000 + type);
    rng.Fill(c.rows(), 57 * 7);
    for (int i = 0; i < 4000; ++i) {
      const uint32_t op = rng.Below(4);
      c->SetAlphaAdditive(op == 0);
      c->SetTransparency(op == 1);
      c->SetTransparency(rng.Below(5) / 4.0, true);
      c->SetTransparency(rng.Below(5) / 4.0, false);
      // One draw a statement: argument order is unspecified.
      double rgba[4];
      for (double& v : rgba) v = rng.Below(300) / 255.0;
      c->SetColorRGBA(rgba[0], rgba[1], rgba[2], rgba[3], op != 3);
      const int x = rng.Below(13);
      const int y = rng.Below(7);
      c->PutPixel(x, y, op != 3);
    }
    crc = zr::test::Crc32(c.rows(), 57 * 7, crc);
  }
  EXPECT_EQ(0x6a1e03bdu, crc);
}

}  // namespace
