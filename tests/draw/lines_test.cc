// The line family and the outlines and fills built on it: small pictures of
// each case on guarded canvases, and golden checksums of random strokes.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Crc32;
using zr::test::Rng;
using zr::test::TestCanvas;

// A canvas as a small picture, rows ended by '/': '#' for a pixel whose bytes
// differ from the 0x11 that TestCanvas fills with, '.' for the rest.
std::string Picture(TestCanvas& c) {
  const unsigned bpp = c->mPixelType == pixelRGB24 || c->mPixelType == pixelBGR24 ? 3 : 4;
  std::string out;
  for (unsigned y = 0; y < c->mHeight; ++y, out += '/')
    for (unsigned x = 0; x < c->mWidth; ++x)
      out += std::memcmp(c.rows() + y * c->mPitch + x * bpp, "\x11\x11\x11\x11", bpp) ? '#' : '.';
  return out;
}

TEST(Lines, Pictures) {
  TestCanvas c(pixelRGBA32, 12, 6, 0, 12 * 6 * 4);
  EXPECT_EQ(0, c->Line(1, 0, 3, 5));   // steep
  EXPECT_EQ(0, c->Line(11, 5, 5, 3));  // shallow, reversed
  EXPECT_EQ(0, c->Line(8, 0, 8, 0));   // a single point
  EXPECT_EQ(0, c->LineVert(0, 2, 4) + c->LineVert(6, 5, 1));
  EXPECT_EQ(".#......#.../.#........../#.#........./#.#..##...../#..#...###../...#......##/", Picture(c));
  TestCanvas d(pixelRGBA32, 10, 6, 0, 10 * 6 * 4, 4);
  d->Dash(0, 0, 9, 0, 3, 2);  // the step that uses up `on` counts toward `off`
  d->Dash(9, 1, 0, 1, 3, 2);  // the pattern starts at the first point
  d->Dash(0, 2, 9, 5, 1, 1);
  d->Dash(5, 5, 5, 5, 1, 0);
  d->Dash(0, 3, 4, 3, 0, 0);  // `on` 0 plots nothing
  d->LineHoriz(7, 3, 9);      // the fill road: [x1, x2)
  d->LineHoriz(2, 5, 2);
  d->LineHoriz(-1, 0, 0);  // no guard: the word before the row
  EXPECT_EQ(0, std::memcmp(d.all(), "\xff\xff\xff\xff", 4));
  EXPECT_EQ("###..###../..###..###/#........./..#.#..##./......#.../.....#..#./", Picture(d));
  TestCanvas t(pixelBGR24, 10, 3, 0, 10 * 3 * 3 + 4);
  const _POINT pts[] = {{0, 0}, {4, 0}, {4, 2}};
  EXPECT_EQ(0, t->Polyline(pts, 3));
  t->LineHoriz(6, 1, 8);  // the PutPixel road: [x1, x2]
  t->LineHoriz(6, 2, 6);
  t->LineHoriz(9, 2, 8);
  EXPECT_EQ("#####...../....#.###./....#.#.../", Picture(t));
}

// Records each PutPixel, with the colour slot kept as exact doubles while
// smoothing, each AngleArcTo, and each four-integer Line when asked to;
// reads a fixed pattern.
class Recorder : public ZrDraw {
 public:
  int PutPixel(int x, int y, bool foreground) override {
    log.insert(log.end(), {double(x), double(y), double(foreground)});
    if (mbLineSmoothing) log.insert(log.end(), slot.begin(), slot.end());
    return 0;
  }
  int Line(int x1, int y1, int x2, int y2) override {
    if (!recordLines) return ZrDraw::Line(x1, y1, x2, y2);
    log.insert(log.end(), {-1.0, double(x1), double(y1), double(x2), double(y2)});
    return 7;
  }
  using ZrDraw::Line;
  int AngleArcTo(int x, int y, int rx, int ry, float start, float end) override {
    log.insert(log.end(), {-2.0, double(x), double(y), double(rx), double(ry), start, end});
    mCurrentX = x + rx;
    return -9;
  }
  int GetColorRGBA(double& r, double& g, double& b, double& a, bool) override {
    r = slot[0], g = slot[1], b = slot[2], a = slot[3];
    return 0;
  }
  int SetColorRGBA(double r, double g, double b, double a, bool) override {
    slot = {r, g, b, a};
    return 0;
  }
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override {
    r = ((x * 7) & 255) / 255.0, g = ((y * 13) & 255) / 255.0, b = ((x + y) & 255) / 255.0, a = 1.0;
    return 0;
  }
  uint32_t Crc() const { return Crc32(log.data(), 8 * log.size()); }
  std::array<double, 4> slot{0.9, 0.5, 0.25, 1.0};
  std::vector<double> log;
  bool recordLines = false;
};

// Random lines, past the 16-bit limits too, random dashes, the chaining
// operations, and the smoothing branch with the colours it leaves behind.
TEST(Lines, GoldenChecksumsOfWhatIsPlotted) {
  Rng rng(0x11E5);
  Recorder lines, dashes, chains, smooth;
  smooth.mbLineSmoothing = true;
  for (int i = 0; i < 1000; ++i) {
    const int span = i % 250 == 0 ? 40000 : i % 2 ? 40 : 300;
    int c[4];
    for (int& v : c) v = static_cast<int>(rng.Below(2 * span + 1)) - span;
    if (std::max(std::abs(c[0] - c[2]), std::abs(c[1] - c[3])) < 50000) lines.Line(c[0], c[1], c[2], c[3]);
    const int on = static_cast<int>(rng.Below(12)) - 2, off = static_cast<int>(rng.Below(12)) - 2;
    dashes.Dash(c[0] % 500, c[1] % 500, c[2] % 500, c[3] % 500, on, off);
    EXPECT_EQ(0, smooth.Line(c[0] % 60, c[1] % 60, c[2] % 60, c[3] % 60));
    smooth.log.insert(smooth.log.end(), smooth.slot.begin(), smooth.slot.end());
  }
  lines.Line(40000, 0, 40002, 2);  // the exact diagonal is x-major: x keeps its 17 bits
  lines.Line(0, 40000, 3, 40000);  // a minor coordinate keeps its low 16 bits
  lines.Line(0, 0, 40000, 40001);  // a minor delta of 32768 or more overflows the slope
  lines.Line(INT_MIN, 5, 0, 5);    // a zero divisor: the slope is 0, nothing traps
  chains.recordLines = true;
  chains.MoveTo(3, 4);
  EXPECT_EQ(7, chains.LineTo(9, 1));
  _POINT a{1, 2}, b{3, 4};
  EXPECT_EQ(7, chains.Line(a, b));
  EXPECT_EQ(0, chains.LineVert(1, INT_MAX - 1, INT_MAX));
  EXPECT_EQ(-2, chains.PolylineTo(&a, 1) + chains.Polyline(&a, 0));
  EXPECT_EQ(9 * 100 + 1, chains.mCurrentX * 100 + chains.mCurrentY);
  const _POINT pts[] = {{0, 0}, {5, 0}, {5, 5}, {-8, 9}};
  EXPECT_EQ(0, chains.Polyline(pts, 0x80000000u));  // negative as signed: nothing drawn
  EXPECT_EQ(0, chains.PolylineTo(pts, 3));          // to the element after the last point
  EXPECT_EQ(-8 * 100 + 9, chains.mCurrentX * 100 + chains.mCurrentY);
  // Rectangle is four lines; RoundRect four sides, then four corners.
  EXPECT_EQ(0, chains.Rectangle(1, 2, 30, 40));
  EXPECT_EQ(0, chains.RoundRect(10, 20, 110, 70, 21, 11));
  EXPECT_EQ(-3, chains.RoundRect(0, 0, 10, 10, 11, 0) + chains.RoundRect(0, 0, 10, 10, 0, 11) +
                    chains.RoundRect(10, 0, 0, 10, 0, 0));
  EXPECT_EQ(0, chains.RoundRect(0, 0, 10, 10, 10, 10));
  EXPECT_EQ(10, chains.mCurrentX);
  const std::array<uint32_t, 4> golden = {164512267u, 2311405612u, 747573337u, 3740115836u};
  EXPECT_EQ(golden, (std::array<uint32_t, 4>{lines.Crc(), dashes.Crc(), chains.Crc(), smooth.Crc()}));
  // On a canvas: the end pixels and a near and a far pixel a column, the
  // foreground left changed; straight lines and diagonals draw plainly.
  TestCanvas c(pixelRGBA32, 11, 5, 0, 11 * 5 * 4);
  c->mbLineSmoothing = true;
  c->Line(0, 0, 10, 3);
  EXPECT_NE(0xFFFFFFFFu, c->mForeColor);
  c->Line(0, 4, 4, 0);
  c->Line(5, 4, 10, 4);
  EXPECT_EQ("#####....../.######..../..#.######./.#.....####/#....######/", Picture(c));
}

// Strokes of every line operation on the byte-ordered types; the checksum
// must hold unchanged in every build.
TEST(Lines, GoldenChecksumOfMixedStrokes) {
  const uint32_t golden[] = {1751441229u, 3066215848u, 2347234021u, 3913920097u};
  const unsigned types[] = {pixelRGBA32, pixelABGR32, pixelRGB24, pixelBGR24};
  for (int t = 0; t < 4; ++t) {
    const int w = 97, h = 61, pitch = 4 * w + 12;
    TestCanvas c(types[t], w, h, pitch, size_t(pitch) * h + 4);
    Rng rng(0x601D + t);
    for (int i = 0; i < 200; ++i) {
      // Drawn one by one: the order of evaluation of arguments differs between builds.
      int v[7];
      for (int k = 0; k < 7; ++k) v[k] = static_cast<int>(rng.Below(k % 2 ? h : w));
      double rgb[3];
      for (double& x : rgb) x = rng.Below(256) / 255.0;
      c->SetColorRGBA(rgb[0], rgb[1], rgb[2], 1.0, true);
      if (i % 4 == 0) c->Line(v[0], v[1], v[2], v[3]);
      if (i % 4 == 1) c->Dash(v[0], v[1], v[2], v[3], v[4] % 5, v[5] % 4);
      if (i % 4 == 2) c->LineVert(v[0], v[1], v[3]);
      if (i % 4 == 3) c->LineHoriz(std::min(v[0], v[2]), v[1], std::max(v[0], v[2]));
    }
    EXPECT_EQ(golden[t], Crc32(c.rows(), c.size())) << "type " << types[t];
  }
}

TEST(Fill, EraseAndFillRectPictures) {
  // Rows padded to 20 bytes: the fill still covers 4 x 3 x 4 bytes in one
  // run, in the foreground colour, whatever the transparency settings.
  TestCanvas c(pixelABGR32, 4, 3, 20, 60);
  c->mForeColor = 0xA1B2C3D4;
  c->SetTransparency(true);
  EXPECT_EQ(0, c->SetTransparency(0.5, true));
  c->SetAlphaAdditive(true);
  EXPECT_EQ(0, c->EraseCanvas(false));
  EXPECT_EQ("####/####/##../", Picture(c));
  EXPECT_EQ(0xA1B2C3D4u, c.Word(44));
  // LineHoriz rows on 24 bits: one pixel past the last column.
  TestCanvas t(pixelRGB24, 4, 3, 15, 45);
  t->mForeColor = 0x00332211;
  EXPECT_EQ(0, t->EraseCanvas(true));
  EXPECT_EQ("####/####/####/", Picture(t));
  EXPECT_EQ(0, std::memcmp(t.rows() + 42, "\x11\x22\x33", 3));
  TestCanvas f(pixelRGBA32, 8, 7, 0, 8 * 7 * 4), g(pixelBGR24, 8, 7, 0, 8 * 7 * 3 + 4);
  const RECT rects[] = {{2, 3, 5, 6}, {0, 1, 3, 1}, {6, 5, 7, 2}};  // the last two are empty
  for (const RECT& r : rects) EXPECT_EQ(0, f->FillRect(&r) + g->FillRect(&r));
  EXPECT_EQ("......../......../......../..###.../..###.../..###.../......../", Picture(f));
  EXPECT_EQ("......../......../......../..####../..####../..####../......../", Picture(g));
  // A canvas-sized rectangle fills from the first byte wherever it lies.
  RECT whole{-100, 50, -92, 57};
  f->SetTransparency(true);
  f->SetTransparency(0.5, true);
  f->FillRect(&whole);
  EXPECT_EQ(0xFFFFFFFFu, f.Word(0));
  EXPECT_EQ("########/########/########/########/########/########/########/", Picture(f));
}

// A fixed scene of rectangles on every type; the checksum is the same in
// every build.
TEST(Fill, GoldenChecksumOfRectangles) {
  uint32_t crc = 0;
  for (unsigned int type = 1; type <= 6; ++type) {
    TestCanvas c(type, 24, 16, 100, 100 * 16 + 8);
    for (int i = 0; i < 12; ++i) {
      c->SetColorRGBA(i / 11.0, 1.0 - i / 11.0, 0.5, 1.0, true);
      c->SetTransparency(i % 3 == 0);
      c->SetTransparency(0.25 * (i % 4), true);
      RECT r{i, i / 2, 24 - i, 16 - i / 3};
      c->FillRect(&r);
    }
    crc = zr::test::Crc32(c.rows(), 100 * 16 + 8, crc);
  }
  EXPECT_EQ(0x7fa57c88u, crc);
}

}  // namespace
