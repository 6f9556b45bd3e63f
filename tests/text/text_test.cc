// Label and DrawText: small pictures of each road on guarded canvases, the
// RECT each placement leaves, and a golden checksum of a fixed set of calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "canvas/test_canvas.h"
#include "common/crc32.h"

namespace {

using zr::test::Crc32;
using zr::test::TestCanvas;

// Rows ended by '/': '#' the foreground word, 'o' the background word, '.'
// the 0x11 fill, '?' anything else.
std::string Picture(TestCanvas& c) {
  const unsigned bpp = c->mPixelType == pixelRGB24 ? 3 : 4;
  std::string out;
  for (unsigned y = 0; y < c->mHeight; ++y, out += '/')
    for (unsigned x = 0; x < c->mWidth; ++x) {
      const uint8_t* p = c.rows() + y * c->mPitch + x * bpp;
      out += !std::memcmp(p, &c->mForeColor, bpp)       ? '#'
             : !std::memcmp(p, &c->mBackColor, bpp)     ? 'o'
             : !std::memcmp(p, "\x11\x11\x11\x11", bpp) ? '.'
                                                        : '?';
    }
  return out;
}

std::string Rows(const std::string& row, int n) {
  std::string out;
  while (n-- > 0) out += row + '/';
  return out;
}

void Inks(TestCanvas& c) { c->mForeColor = 0xF0F0F0F0u, c->mBackColor = 0x0B0B0B0Bu; }

TEST(Label, Pictures) {
  TestCanvas a(pixelRGBA32, 16, 10, 0, 16 * 10 * 4);
  Inks(a);
  EXPECT_EQ(0, a->Label(0, 0, "A", false, false));
  EXPECT_EQ(6 * 100 + 8, a->mCurrentX * 100 + a->mCurrentY);  // the last Point
  EXPECT_EQ(0, a->Label(8, 0, "!", true, true));
  a->mCurrentX = -1;
  EXPECT_EQ(0, a->Label(0, 0, "", false, true));
  a->LabelFont(0, 0);
  EXPECT_EQ(0, a->Label(0, 0, "~", false, true));
  EXPECT_EQ(-1, a->mCurrentX);
  EXPECT_EQ(
      "...#....###oo###/..###...##oooo##/.##.##..##oooo##/##...##.##oooo##/##...##.###oo###/#######.###oo###/"
      "##...##.########/##...##.###oo###/##...##.###oo###/........########/",
      Picture(a));
  // A control code draws its symbol; a byte of 0x80 or more leaves its cell alone.
  TestCanvas b(pixelRGBA32, 24, 10, 0, 24 * 10 * 4);
  Inks(b);
  EXPECT_EQ(0, b->Label(0, 0, "\x01\x80.", false, true));
  EXPECT_EQ(
      "oooooooo........oooooooo/o######o........oooooooo/#oooooo#........oooooooo/#o#oo#o#........oooooooo/"
      "#oooooo#........oooooooo/#o#oo#o#........oooooooo/#oo##oo#........oooooooo/#oooooo#........ooo##ooo/"
      "o######o........ooo##ooo/oooooooo........oooooooo/",
      Picture(b));
}

// Scale 3: ink takes LineHoriz (a fill exactly 3 wide on RGBA, 4 PutPixels
// on RGB24), paper takes Point; inverse swaps the slots but not the roads.
TEST(Label, MagnifiedRoads) {
  const struct {
    unsigned type;
    bool inverse, opaque;
    const char* top;  // the rows of byte 9 (0x76) and byte 8 (0xdc)
  } cases[] = {
      {pixelRGBA32, false, false, "...#########...######....../######...#########........./"},
      {pixelRGB24, false, false, "...##########..#######...../#######..##########......../"},
      {pixelRGBA32, true, false, "...ooooooooo...oooooo....../oooooo...ooooooooo........./"},
      {pixelRGBA32, false, true, "ooo#########ooo######ooo.../######ooo#########oooooo.../"},
      {pixelRGBA32, true, true, "###ooooooooo###oooooo###.../oooooo###ooooooooo######.../"},
  };
  for (const auto& k : cases) {
    const int pitch = 27 * (k.type == pixelRGB24 ? 3 : 4);
    TestCanvas c(k.type, 27, 6, pitch, size_t(pitch) * 30);  // paper runs on below the canvas
    Inks(c);
    c->LabelFont(0, 3);
    EXPECT_EQ(0, c->Label(0, 0, "~", k.inverse, k.opaque));
    const std::string all = Picture(c);
    EXPECT_EQ(Rows(all.substr(0, 27), 3) + Rows(all.substr(3 * 28, 27), 3), all);
    EXPECT_EQ(k.top, all.substr(0, 28) + all.substr(3 * 28, 28)) << k.type << k.inverse << k.opaque;
  }
}

// Counts PutPixel calls and keeps the box around them; draws nothing.
class Box : public ZrDraw {
 public:
  int PutPixel(int x, int y, bool) override {
    if (!n++) x0 = x1 = x, y0 = y1 = y;
    x0 = std::min(x0, x), x1 = std::max(x1, x), y0 = std::min(y0, y), y1 = std::max(y1, y);
    return 0;
  }
  int n = 0, x0 = 0, x1 = 0, y0 = 0, y1 = 0;
};

std::string Show(const RECT& r) {
  return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
         std::to_string(r.bottom);
}

// The RECT each placement leaves, and where the pixels went: the text is
// drawn from the final left and bottom, unclipped, `count` measuring only.
TEST(DrawText, PlacementAndScale) {
  const struct {
    const char* text;
    int count;
    unsigned flags;
    RECT in;
    const char* out;
  } cases[] = {
      {"A", 1, 0, {10, 10, 100, 20}, "10,10,100,20 n=35 x10..16 y11..19"},
      {"abc", 3, ZR_TEXT_RIGHT, {0, 0, 100, 10}, "76,0,100,10 n=78 x76..98 y1..9"},
      {"abc", 0, ZR_TEXT_RIGHT, {0, 0, 100, 10}, "100,0,100,10 n=78 x100..122 y1..9"},
      {"abc", 3, ZR_TEXT_CENTER | ZR_TEXT_RIGHT, {0, 0, 100, 10}, "35,0,100,10 n=78 x35..57 y1..9"},
      {"abc", 3, ZR_TEXT_CENTER, {0, 0, 100, 35}, "5,2,100,35 n=702 x5..73 y8..34"},
      {"abc", 3, ZR_TEXT_CENTER, {0, 0, 60, 35}, "0,2,60,35 n=702 x0..68 y8..34"},
      {"abc", 3, ZR_TEXT_CENTER, {0, 25, 100, 0}, "20,-2147483646,100,0 n=312 x20..65 y-18..-1"},
      {"ab", 2, ZR_TEXT_CALCRECT, {10, 10, 100, 20}, "10,10,26,20 n=56 x10..24 y11..19"},
      {"abc", 1, ZR_TEXT_CALCRECT | ZR_TEXT_CENTER, {0, 0, 100, 35}, "5,2,29,32 n=702 x5..73 y8..34"},
      {"ab", 2, ZR_TEXT_BOTTOM, {0, 0, 50, 37}, "0,0,50,37 n=504 x0..44 y10..36"},
      {"ab", 2, 0, {0, 0, 50, 37}, "0,0,50,30 n=504 x0..44 y3..29"},
      {"AB", 2, 0, {0, 25, 8, 0}, "0,25,8,45 n=304 x0..29 y27..44"},
      {"", 0, 0, {0, 0, 50, 9}, "0,0,50,10 n=0"},
      {"\x01\x80_", 1, ZR_TEXT_CALCRECT, {0, 0, 1, 9}, "0,0,8,10 n=38 x0..23 y2..9"},
      {"A", 1, ZR_TEXT_CALCRECT, {0, 0, 1, 10}, "0,0,8,10 n=35 x0..6 y1..9"},
      {"A", 1, ZR_TEXT_CALCRECT, {0, 0, 1, 25}, "0,0,16,20 n=140 x0..13 y2..19"},
      {"A", 1, ZR_TEXT_CALCRECT, {0, 0, 1, 30}, "0,0,24,30 n=315 x0..20 y3..29"},
  };
  for (const auto& k : cases) {
    Box d;
    RECT r = k.in;
    EXPECT_EQ(0, d.ZrDrawText(k.text, k.count, &r, k.flags));
    std::string got = Show(r) + " n=" + std::to_string(d.n);
    if (d.n)
      got += " x" + std::to_string(d.x0) + ".." + std::to_string(d.x1) + " y" + std::to_string(d.y0) + ".." +
             std::to_string(d.y1);
    EXPECT_EQ(k.out, got) << k.text << " " << k.flags;
  }
}

// Row 0 of a cell is the bottom edge. At scale 2 glyph byte 1 takes rows 1
// and 2, the next glyph's byte 0 row 19, and row 20 is paper only.
TEST(DrawText, Pictures) {
  TestCanvas c(pixelRGBA32, 24, 21, 0, 24 * 21 * 4);
  Inks(c);
  RECT a{0, 0, 3, 10}, b{8, 0, 9, 21};
  EXPECT_EQ(0, c->DrawText("A", 1, &a, 0));
  c->mbTextTransparent = false;
  EXPECT_EQ(0, c->DrawText("_", 1, &b, 0));
  const char* glyph[] = {"",         "...#....", "..###...", ".##.##..", "##...##.",
                         "##...##.", "#######.", "##...##.", "##...##.", "##...##."};
  std::string want;
  for (int y = 0; y < 21; ++y)
    want += std::string(y < 10 && *glyph[y] ? glyph[y] : "........") +
            std::string(16, y == 18 || y == 19 ? '#' : 'o') + '/';
  EXPECT_EQ(want, Picture(c));
  EXPECT_EQ("0,0,3,10 8,0,9,20", Show(a) + " " + Show(b));
}

// A fixed set of text calls on a byte-ordered and a v210 canvas; the
// checksums must hold unchanged in every build.
TEST(Text, GoldenChecksums) {
  const unsigned types[] = {pixelRGBA32, pixelV210};
  const uint32_t golden[] = {3850944862u, 1385566561u};
  for (int t = 0; t < 2; ++t) {
    const int pitch = 256, h = 40;
    TestCanvas c(types[t], 64, h, pitch, size_t(pitch) * h);
    c->SetColorRGBA(0.9, 0.2, 0.1, 1.0, true);
    c->SetColorRGBA(0.1, 0.3, 0.8, 1.0, false);
    c->Label(1, 1, "Zr\x01~", false, false);
    c->Label(33, 1, "ok", true, true);
    c->LabelFont(0, 2);
    c->Label(0, 12, "g!", false, true);
    c->Label(32, 12, "Q", true, false);
    c->Label(48, 12, "%", true, true);
    RECT r[] = {{0, 30, 60, 39}, {0, 30, 60, 39}, {0, 25, 60, 39}, {40, 0, 63, 11}};
    c->DrawText("Hi", 2, &r[0], ZR_TEXT_RIGHT);
    c->mbTextTransparent = false;
    c->DrawText("wx", 1, &r[1], ZR_TEXT_CENTER | ZR_TEXT_CALCRECT);
    c->DrawText("7", 1, &r[2], ZR_TEXT_BOTTOM);
    c->DrawText("{}", 2, &r[3], 0);
    EXPECT_EQ(golden[t], Crc32(c.rows(), c.size())) << "type " << types[t];
  }
}

}  // namespace
