// ZrPixel colour slots and read-backs: packing by byte order, the luma
// readout, and the YCbCr entry points that forward through the table.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/test_random.h"

namespace {

using zr::test::Rng;
using zr::test::TestCanvas;

// Byte index of r, g, b, a by type, as a host documents the layouts.
struct Layout {
  unsigned int type;
  int r, g, b, a;
};
constexpr Layout kLayouts[] = {{1, 0, 1, 2, 3}, {2, 1, 2, 3, 0},  {3, 2, 1, 0, 3},
                               {4, 3, 2, 1, 0}, {5, 0, 1, 2, -1}, {6, 2, 1, 0, -1}};

int ByteOf(double c) { return static_cast<int>(static_cast<int64_t>(c * 255.0)) & 0xFF; }

TEST(PixelColour, SetColorPacksByTypeAndWraps) {
  Rng rng(0xC010);
  for (const Layout& l : kLayouts) {
    TestCanvas c(l.type, 2, 2, 0, 16);
    for (int i = 0; i < 300; ++i) {
      double v[4];
      for (double& x : v) {
        x = (static_cast<int>(rng.Below(700)) - 200) / 255.0;
        x += rng.Below(100) / 1e5;
      }
      const bool fg = rng.Below(2);
      const uint32_t other = fg ? c->mBackColor : c->mForeColor;
      EXPECT_EQ(0, c->SetColorRGBA(v[0], v[1], v[2], v[3], fg));
      uint8_t want[4] = {0, 0, 0, 0};
      want[l.r] = ByteOf(v[0]);
      want[l.g] = ByteOf(v[1]);
      want[l.b] = ByteOf(v[2]);
      if (l.a >= 0) want[l.a] = ByteOf(v[3]);
      uint32_t word;
      std::memcpy(&word, want, 4);
      ASSERT_EQ(word, fg ? c->mForeColor : c->mBackColor) << "type " << l.type << " step " << i;
      ASSERT_EQ(other, fg ? c->mBackColor : c->mForeColor);
      double r, g, b, a;
      c->GetColorRGBA(r, g, b, a, fg);
      EXPECT_EQ(want[l.r] / 255.0, r);
      EXPECT_EQ(want[l.g] / 255.0, g);
      EXPECT_EQ(want[l.b] / 255.0, b);
      EXPECT_EQ(l.a >= 0 ? want[l.a] / 255.0 : 1.0, a);
    }
  }
}

TEST(PixelColour, DocumentedPackings) {
  TestCanvas c3(pixelBGRA32, 1, 1, 0, 4);
  c3->SetColorRGBA(1, 0, 0, 1, true);
  EXPECT_EQ(0xFFFF0000u, c3->mForeColor);
  c3->PutPixel(0, 0, true);
  EXPECT_EQ(0, std::memcmp(c3.rows(), "\x00\x00\xff\xff", 4));

  TestCanvas c2(pixelARGB32, 1, 1, 0, 4);
  c2->SetColorRGBA(1, 0, 0, 0.5, true);
  c2->PutPixel(0, 0, true);
  EXPECT_EQ(0, std::memcmp(c2.rows(), "\x7f\xff\x00\x00", 4));
  // The opacity of the slot is not touched by a colour setter.
  c2->SetTransparency(0.25, true);
  c2->SetColorRGBA(0, 0, 0, 0, true);
  EXPECT_EQ(0.25, c2->mForeOpacity);
}

TEST(PixelColour, GetPixelRgbaByType) {
  for (const Layout& l : kLayouts) {
    TestCanvas c(l.type, 3, 2, 0, 32);
    const uint8_t px[4] = {10, 60, 130, 250};
    std::memcpy(c->GetPixel(1, 1), px, l.a < 0 ? 3 : 4);
    double r, g, b, a;
    EXPECT_EQ(0, c->GetPixelRGBA(1, 1, r, g, b, a));
    EXPECT_EQ(px[l.r] / 255.0, r) << l.type;
    EXPECT_EQ(px[l.g] / 255.0, g);
    EXPECT_EQ(px[l.b] / 255.0, b);
    EXPECT_EQ(l.a < 0 ? 1.0 : px[l.a] / 255.0, a);
  }
}

TEST(PixelColour, LumaWeightsByModeOverTwoFiftySix) {
  struct Weights {
    int mode;
    double kr, kg, kb;
  };
  const Weights table[] = {
      {0, 0.299, 0.587, 0.114},    {1, 0.299, 0.587, 0.114},     {1001, 0.299, 0.587, 0.114},
      {9, 0.299, 0.587, 0.114},    {-3, 0.299, 0.587, 0.114},    {999, 0.299, 0.587, 0.114},
      {1009, 0.299, 0.587, 0.114}, {2, 0.257, 0.504, 0.098},     {1002, 0.257, 0.504, 0.098},
      {3, 0.213, 0.715, 0.072},    {1003, 0.213, 0.715, 0.072},  {4, 0.183, 0.614, 0.062},
      {1004, 0.183, 0.614, 0.062}, {5, 0.2627, 0.678, 0.0593},   {7, 0.2627, 0.678, 0.0593},
      {8, 0.2627, 0.678, 0.0593},  {1008, 0.2627, 0.678, 0.0593}};
  for (const Layout& l : kLayouts) {
    TestCanvas c(l.type, 2, 1, 0, 12);
    const uint8_t px[4] = {200, 100, 50, 9};
    std::memcpy(c->GetPixel(1, 0), px, l.a < 0 ? 3 : 4);
    for (const Weights& w : table) {
      c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(w.mode));
      const double want = (w.kr * px[l.r] + w.kg * px[l.g] + w.kb * px[l.b]) * 0.00390625;
      EXPECT_EQ(want, c->GetLuma(1, 0)) << "type " << l.type << " mode " << w.mode;
    }
  }
}

// Records what the YCbCr entry points forward through the virtual table.
class Recorder : public ZrDraw {
 public:
  std::vector<double> args;
  int SetColorYCbCr(double y, double cb, double cr, double a, bool fg) override {
    args = {y, cb, cr, a, fg ? 1.0 : 0.0};
    return 7;
  }
  int RGBToYCbCr(double r, double g, double b, double a, double& y, double& cb, double& cr,
                 double& alpha) override {
    args = {r, g, b, a};
    y = 0.5;
    cb = 1.0 / 1023.0 * 3.9999;
    cr = -0.001;
    alpha = 2.0;
    return 0;
  }
};

TEST(PixelColour, YCbCrSettersForwardThroughTheTable) {
  Recorder r;
  EXPECT_EQ(7, r.SetColorYCbCr10(1023, 512, 0, 2046, true));
  EXPECT_EQ((std::vector<double>{1.0, 512 / 1023.0, 0.0, 2.0, 1.0}), r.args);
  EXPECT_EQ(7, r.SetColorYCbCr8(255, 128, 1, 0, false));
  EXPECT_EQ((std::vector<double>{1.0, 128 / 255.0, 1 / 255.0, 0.0, 0.0}), r.args);
  // On the base class both are empty and leave the slots alone.
  ZrDraw d;
  EXPECT_EQ(0, d.SetColorYCbCr(0.1, 0.2, 0.3, 0.4, true));
  EXPECT_EQ(0, d.SetColorYCbCr10(1, 2, 3, 4, false));
  EXPECT_EQ(0xFFFFFFFFu, d.mForeColor);
  EXPECT_EQ(0u, d.mBackColor);
  double y = 9, cb = 9, cr = 9, a = 9;
  EXPECT_EQ(0, d.GetColorYCbCr(y, cb, cr, a, true));
  EXPECT_EQ(9.0, y);
  EXPECT_EQ(9.0, a);
}

TEST(PixelColour, YCbCrReadbacksTruncate) {
  Recorder r;
  uint8_t px[4] = {51, 102, 153, 204};
  r.SetCanvas(reinterpret_cast<char*>(px), 1, 1, 0);
  double y, cb, cr, a;
  r.GetPixelYCbCr(0, 0, y, cb, cr, a);
  EXPECT_EQ((std::vector<double>{0.2, 0.4, 0.6, 0.8}), r.args);
  EXPECT_EQ(2.0, a);
  unsigned char y8, cb8, cr8, a8;
  r.GetPixelYCbCr8(0, 0, y8, cb8, cr8, a8);
  EXPECT_EQ(127, y8);
  EXPECT_EQ(0, cb8);
  EXPECT_EQ(0, cr8);
  EXPECT_EQ(254, a8);  // 510 keeps its low byte
  unsigned int y10, cb10, cr10, a10;
  r.GetPixelYCbCr10(0, 0, y10, cb10, cr10, a10);
  EXPECT_EQ(511u, y10);
  EXPECT_EQ(3u, cb10);
  EXPECT_EQ(0xFFFFFFFFu, cr10);  // -1.023 truncates to -1
  EXPECT_EQ(2046u, a10);
}

TEST(PixelColour, SetPixelChoosesTheSetterByRgbType) {
  TestCanvas c(pixelRGBA32, 2, 1, 0, 8);
  EXPECT_EQ(0, c->SetPixel(1, 0, 1.0, 0.0, 0.0, 1.0, true));
  EXPECT_EQ(0xFF0000FFu, c->mForeColor);
  EXPECT_EQ(0xFF0000FFu, c.Word(4));
  EXPECT_EQ(-1, c->SetPixel(0, -1, 0.0, 1.0, 0.0, 1.0, false));
  EXPECT_EQ(0xFF00FF00u, c->mBackColor);

  // A YCbCr type goes to SetColorYCbCr, which is empty here: the old slot
  // word is what lands.
  Recorder r;
  uint32_t word = 0;
  r.SetCanvas(reinterpret_cast<char*>(&word), 1, 1, 4);
  r.mPixelType = pixelUYVY;
  EXPECT_EQ(0, r.SetPixel(0, 0, 0.25, 0.5, 0.75, 1.0, true));
  EXPECT_EQ((std::vector<double>{0.25, 0.5, 0.75, 1.0, 1.0}), r.args);
  EXPECT_EQ(0xFFFFFFFFu, word);
}

TEST(PixelColour, BaseHsvGivesHueZeroForGrey) {
  ZrDraw d;
  uint8_t px[8] = {90, 90, 90, 17, 0, 0, 255, 99};
  d.SetCanvas(reinterpret_cast<char*>(px), 1, 2, 0);
  double h = 5, s = 5, v = 5, a = 5;
  d.GetPixelHSV(0, 0, h, s, v, a);
  EXPECT_EQ(0.0, h);
  EXPECT_EQ(0.0, s);
  EXPECT_EQ(90 / 255.0, v);
  EXPECT_EQ(17 / 255.0, a);
  d.GetPixelHSV(1, 0, h, s, v, a);
  EXPECT_EQ(240.0, h);
  EXPECT_EQ(1.0, s);
  EXPECT_EQ(99 / 255.0, a);
}

TEST(PixelColour, OpacityClampsWithoutSwitching) {
  TestCanvas c(pixelRGBA32, 1, 1, 0, 4);
  EXPECT_EQ(0, c->SetTransparency(1.5, true));
  EXPECT_EQ(1.0, c->mForeOpacity);
  c->SetTransparency(-2.0, false);
  EXPECT_EQ(0.0, c->mBackOpacity);
  c->SetTransparency(0.3, false);
  EXPECT_EQ(0.3, c->mBackOpacity);
  EXPECT_FALSE(c->GetTransparency());
  c->SetTransparency(true);
  EXPECT_TRUE(c->GetTransparency());
  c->SetAlphaAdditive(true);
  EXPECT_TRUE(c->GetAlphaAdditive());
  ZrPixel::cmYCbCr mode = ZrPixel::cmYCbCr601Full;
  c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(4242));
  EXPECT_EQ(0, c->GetYCbCrMode(mode));
  EXPECT_EQ(4242, mode);
}

}  // namespace
