// The 8-bit RGB canvases: their pitch, YCbCr read-back and HSV read-back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/test_random.h"

namespace {

using zr::test::Rng;
using zr::test::TestCanvas;

TEST(RgbCanvas, PitchIsTheRow) {
  TestCanvas a(pixelABGR32, 640, 2, 0, 4);
  TestCanvas b(pixelRGB24, 640, 2, 0, 4);
  EXPECT_EQ(2560, a->GetPitch());
  EXPECT_EQ(1920, b->GetPitch());
  EXPECT_EQ(2560u, a->mPitch);
  EXPECT_EQ(1920u, b->mPitch);
  a->mWidth = 3;
  EXPECT_EQ(12, a->GetPitch());
  EXPECT_EQ(2560u, a->mPitch);
}

// Lets the conversion under GetPixelYCbCr be seen.
template <class Backend>
class Seen : public Backend {
 public:
  double r = -1, g = -1, b = -1, a = -1;
  int RGBToYCbCr(double r0, double g0, double b0, double a0, double& y, double& cb, double& cr,
                 double& alpha) override {
    r = r0, g = g0, b = b0, a = a0;
    y = 0.25, cb = 0.5, cr = 0.75, alpha = 0.125;
    return 0;
  }
};

TEST(RgbCanvas, GetPixelYCbCrReadsBytesByOrder) {
  const uint8_t px[4] = {10, 20, 30, 40};
  struct Case {
    int type;
    int r, g, b, a;  // byte indexes; a -1 reads 1.0
  };
  const Case cases[] = {{1, 0, 1, 2, 3}, {2, 1, 2, 3, 0},  {3, 2, 1, 0, 3},
                        {4, 3, 2, 1, 0}, {20, 0, 1, 2, 3}, {0, 0, 1, 2, 3}};
  for (const Case& k : cases) {
    Seen<CDrawRGBA32> c;
    c.mPixelType = static_cast<pixelType>(k.type);
    uint8_t mem[8] = {0};
    std::memcpy(mem + 4, px, 4);
    c.SetCanvas(reinterpret_cast<char*>(mem), 1, 2, 8);
    double y, cb, cr, a = 9;
    EXPECT_EQ(0, c.GetPixelYCbCr(1, 0, y, cb, cr, a));
    EXPECT_EQ(px[k.r] / 255.0, c.r) << k.type;
    EXPECT_EQ(px[k.g] / 255.0, c.g);
    EXPECT_EQ(px[k.b] / 255.0, c.b);
    EXPECT_EQ(px[k.a] / 255.0, c.a);
    EXPECT_EQ(0.25, y);
    EXPECT_EQ(0.5, cb);
    EXPECT_EQ(0.75, cr);
    EXPECT_EQ(0.125, a);
  }
  for (int type : {5, 6, 1}) {
    Seen<CDrawRGB24> c;
    c.mPixelType = static_cast<pixelType>(type);
    // Type 1 addresses 4 bytes a pixel, so it reads pixel 0.
    uint8_t mem[8] = {10, 20, 30, 10, 20, 30, 0, 0};
    c.SetCanvas(reinterpret_cast<char*>(mem), 1, 2, 6);
    double y, cb, cr, a = 9;
    c.GetPixelYCbCr(type == 1 ? 0 : 1, 0, y, cb, cr, a);
    EXPECT_EQ((type == 6 ? 30 : 10) / 255.0, c.r) << type;
    EXPECT_EQ(20 / 255.0, c.g);
    EXPECT_EQ((type == 6 ? 10 : 30) / 255.0, c.b);
    EXPECT_EQ(1.0, c.a);
    EXPECT_EQ(0.125, a);
  }
}

// Hue, saturation and value as a host would compute them from the bytes.
void HsvModel(double r, double g, double b, double& h, double& s, double& v) {
  const double mx = std::max({r, g, b}), mn = std::min({r, g, b});
  v = mx;
  if (mx == 0.0 || mx == mn) {
    s = 0.0;
    h = -1.0;
    return;
  }
  const double d = mx - mn;
  s = d / mx;
  const double hue = r == mx ? (g - b) / d : g == mx ? (b - r) / d + 2.0 : (r - g) / d + 4.0;
  h = hue * 60.0 < 0.0 ? hue * 60.0 + 360.0 : hue * 60.0;
}

TEST(RgbCanvas, HsvMatchesModel) {
  for (unsigned int type = 1; type <= 6; ++type) {
    TestCanvas c(type, 16, 16, 0, 16 * 64);
    Rng rng(0x45F0 + type);
    rng.Fill(c.rows(), 16 * 64);
    // Greys, ties and primaries among the random pixels.
    std::memcpy(c->GetPixel(0, 0), "\x80\x80\x80", 3);
    std::memcpy(c->GetPixel(1, 0), "\x00\x00\x00", 3);
    std::memcpy(c->GetPixel(2, 0), "\xff\xff\x00", 3);
    for (int y = 0; y < 16; ++y)
      for (int x = 0; x < 16; ++x) {
        double r, g, b, a;
        c->GetPixelRGBA(x, y, r, g, b, a);
        double h, s, v, wantH, wantS, wantV, alpha = -7;
        EXPECT_EQ(0, c->GetPixelHSV(x, y, h, s, v, alpha));
        HsvModel(r, g, b, wantH, wantS, wantV);
        ASSERT_EQ(wantH, h) << "type " << type << " at " << x << "," << y;
        ASSERT_EQ(wantS, s);
        ASSERT_EQ(wantV, v);
        ASSERT_EQ(a, alpha);
      }
  }
}

TEST(RgbCanvas, DocumentedHsvCases) {
  TestCanvas c(pixelRGBA32, 4, 1, 0, 16);
  std::memcpy(c.rows(), "\x00\x00\xff\x10\xff\x00\xff\x20\x00\x00\x00\x30\x7f\x7f\x7f\x40", 16);
  double h, s, v, a;
  c->GetPixelHSV(0, 0, h, s, v, a);
  EXPECT_EQ(240.0, h);
  c->GetPixelHSV(1, 0, h, s, v, a);
  EXPECT_EQ(300.0, h);
  c->GetPixelHSV(2, 0, h, s, v, a);
  EXPECT_EQ(-1.0, h);
  EXPECT_EQ(0.0, s);
  EXPECT_EQ(0.0, v);
  c->GetPixelHSV(3, 0, h, s, v, a);
  EXPECT_EQ(-1.0, h);
  EXPECT_EQ(0x40 / 255.0, a);
}

TEST(RgbCanvas, TwentyFourBitAlphaIsAlwaysOne) {
  for (unsigned int type : {5u, 6u}) {
    TestCanvas c(type, 2, 1, 0, 8);
    c->SetColorRGBA(0.2, 0.4, 0.6, 0.0, true);
    double r, g, b, a = 0;
    c->GetColorRGBA(r, g, b, a, true);
    EXPECT_EQ(1.0, a);
    EXPECT_EQ(0u, c->mForeColor >> 24);
    a = 0;
    c->GetPixelRGBA(1, 0, r, g, b, a);
    EXPECT_EQ(1.0, a);
  }
}

}  // namespace
