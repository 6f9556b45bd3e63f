// ZrPixel: geometry, the guarded write and its additive, blend and 24-bit
// roads, colour slots packed by byte order, and the YCbCr entry points.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Crc32;
using zr::test::Rng;
using zr::test::State;
using zr::test::TestCanvas;

TEST(PixelWrite, DefaultsGuardsAndAddresses) {
  TestCanvas c(pixelRGBA32, 3, 3, 13, 13 * 3, 4);  // rows at 0, 12 and 24: word-aligned
  EXPECT_EQ(0, c->PutPixel(1, 2, true) + c->PutPixel(2, 1, false));
  EXPECT_EQ((std::vector<uint32_t>{0x11111111, 0, 0xFFFFFFFF}),
            (std::vector<uint32_t>{c.Word(24), c.Word(20), c.Word(28)}));
  const uint32_t before = Crc32(c.all(), c.size());
  EXPECT_EQ(-2, c->PutPixel(0, -1, true) + c->PutPixel(0, -1, false));
  EXPECT_EQ(before, Crc32(c.all(), c.size()));
  EXPECT_EQ(0, c->PutPixel(-1, 0, true));  // x is not checked
  EXPECT_EQ(0, std::memcmp(c.all(), "\xff\xff\xff\xff", 4));
  ZrDraw* none = qtGetDraw(pixelBGR24, 4, 4, 0, nullptr);
  EXPECT_EQ(
      -3, none->PutPixel(3, 3, true) + none->PutPixel(0, 0, false) + none->SetPixel(1, 1, 0, 0, 0, 1, true));
  qtReleaseDraw(none);
  EXPECT_EQ(32, c->GetPixel(2, 2) - c.rows());
}

// Every road of PutPixel on every type, on a fixed seeded sequence, and the
// slot words with their read-back by byte order, components past 1
// wrapping; the checksums are the same in every build.
TEST(PixelWrite, GoldenChecksumOfMixedWrites) {
  uint32_t crc = 0, slots = 0;
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
      double rgba[4], back[4];
      for (double& v : rgba) v = rng.Below(300) / 255.0;
      c->SetColorRGBA(rgba[0], rgba[1], rgba[2], rgba[3], op != 3);
      c->GetColorRGBA(back[0], back[1], back[2], back[3], op != 3);
      const uint32_t words[2] = {c->mForeColor, c->mBackColor};
      slots = Crc32(back, sizeof back, Crc32(words, sizeof words, slots));
      const int x = rng.Below(13);
      const int y = rng.Below(7);
      c->PutPixel(x, y, op != 3);
    }
    crc = Crc32(c.rows(), 57 * 7, crc);
  }
  EXPECT_EQ(0x6a1e03bdu, crc);
  EXPECT_EQ(611359638u, slots);
}

TEST(PixelWrite, PackingAndGeometry) {
  uint32_t types = 0;  // the pitch SetCanvas keeps, and IsRgbType, for every type
  for (int type = -2; type <= 10002; type += type == 40 ? 9960 : 1) {
    ZrPixel p;
    p.mPixelType = static_cast<pixelType>(type);
    p.SetCanvas(nullptr, 1, 10, 1);
    const uint32_t got[2] = {p.mPitch, static_cast<uint32_t>(p.IsRgbType())};
    types = Crc32(got, sizeof got, types);
  }
  EXPECT_EQ(1180808274u, types);
  TestCanvas c(pixelARGB32, 101, 3, 0, 404);
  c->SetAlphaAdditive(true);
  c->SetTransparency(true);
  EXPECT_TRUE(c->GetTransparency() && c->GetAlphaAdditive());
  c->SetTransparency(1.5, true);  // opacities are clamped to 0 to 1
  c->SetTransparency(0.05, false);
  EXPECT_DOUBLE_EQ(1.05, c->mForeOpacity + c->mBackOpacity);
  c->SetColorRGBA(1, 0, 0, 0.5, true);  // a colour setter leaves the opacity alone
  c->SetTransparency(-2, false);
  EXPECT_EQ(1.0, c->mForeOpacity + c->mBackOpacity);
  ZrPixel p;  // a bare ZrPixel computes pitch 0 itself, which the minimum raises
  p.SetCanvas(nullptr, 2, 3, 0);
  EXPECT_EQ(12u, p.mPitch);
  EXPECT_EQ(50 * 1000 + 1, c->PercentX(0.5) * 1000 + c->PercentY(0.5));
  c->SetCanvas(reinterpret_cast<char*>(c.rows()), -10, -20, -100);
  EXPECT_EQ("type 2 20x10 pitch 100 up font refs 1", State(c.get()));
  EXPECT_EQ(c.rows(), c->GetPixel(0, 0));                                    // rows are never flipped
  EXPECT_EQ(0, c->SetCanvas(reinterpret_cast<char*>(c.rows()), 10, 20, 7));  // raised to the row
  EXPECT_EQ("type 2 20x10 pitch 80 font refs 1", State(c.get()));
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
    y = 0.5, cb = 1.0 / 1023.0 * 3.9999, cr = -0.001, alpha = 2.0;
    return 0;
  }
};

TEST(PixelColour, YCbCrEntryPointsAndSetPixel) {
  Recorder r;
  EXPECT_EQ(7, r.SetColorYCbCr10(1023, 512, 0, 2046, true));
  EXPECT_EQ((std::vector<double>{1.0, 512 / 1023.0, 0.0, 2.0, 1.0}), r.args);
  EXPECT_EQ(7, r.SetColorYCbCr8(255, 128, 1, 0, false));
  EXPECT_EQ((std::vector<double>{1.0, 128 / 255.0, 1 / 255.0, 0.0, 0.0}), r.args);
  uint8_t px[4] = {51, 102, 153, 204};
  r.SetCanvas(reinterpret_cast<char*>(px), 1, 1, 0);
  std::vector<double> v(4, 5.0);
  r.GetPixelYCbCr(0, 0, v[0], v[1], v[2], v[3]);
  EXPECT_EQ((std::vector<double>{0.2, 0.4, 0.6, 0.8}), r.args);
  EXPECT_EQ(2.0, v[3]);
  r.mPixelType = pixelUYVY;  // SetPixel on a YCbCr type: SetColorYCbCr, then the old slot
  EXPECT_EQ(0, r.SetPixel(0, 0, 0.25, 0.5, 0.75, 1.0, true));
  EXPECT_EQ((std::vector<double>{0.25, 0.5, 0.75, 1.0, 1.0}), r.args);
  EXPECT_EQ(0, std::memcmp(px, "\xff\xff\xff\xff", 4));
  TestCanvas c(pixelRGBA32, 2, 1, 0, 8);
  EXPECT_EQ(-1, c->SetPixel(0, -1, 0.0, 1.0, 0.0, 1.0, false));
  EXPECT_EQ(0xFF00FF00u, c->mBackColor);
  // On the base class the YCbCr setters and getter are empty, and a grey
  // pixel has hue 0 where backends give -1.
  ZrDraw d;
  v.assign(4, 5.0);
  EXPECT_EQ(0, d.SetColorYCbCr(0.1, 0.2, 0.3, 0.4, true) + d.SetColorYCbCr10(1, 2, 3, 4, false) +
                   d.GetColorYCbCr(v[0], v[1], v[2], v[3], true));
  EXPECT_EQ(0xFFFFFFFFu, d.mForeColor + d.mBackColor);
  uint8_t grey[8] = {90, 90, 90, 17, 0, 0, 255, 99};
  d.SetCanvas(reinterpret_cast<char*>(grey), 1, 2, 0);
  d.GetPixelHSV(0, 0, v[0], v[1], v[2], v[3]);
  EXPECT_EQ((std::vector<double>{0.0, 0.0, 90 / 255.0, 17 / 255.0}), v);
  d.GetPixelHSV(1, 0, v[0], v[1], v[2], v[3]);
  EXPECT_EQ((std::vector<double>{240.0, 1.0, 1.0, 99 / 255.0}), v);
}

}  // namespace
