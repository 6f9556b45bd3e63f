// The canvases beyond 8-bit RGB: 10-bit DPX, 16-bit RGB, the 16-bit YCbCr
// and chroma-plane canvases, and the Bayer mosaics. Geometry and matrix,
// the bytes of single writes with their untouched neighbours, each Bayer
// phase, and golden checksums of a fixed drawing and of every read-back.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

// The 4:4:4 canvases have no pixel type; the tests name them by these.
constexpr unsigned int k444 = 0x444, k4444 = 0x4444;

// A canvas over guarded memory of 0x11: from GetDraw, or for the 4:4:4
// canvases from their exported constructor, whose argument is ignored.
zr::test::TestCanvas Canvas(unsigned int type, int width, int height, int pitch, size_t bytes) {
  if (type == k444) return {new CDrawYCbCrYCbCr16(pixelUV8), width, height, pitch, bytes};
  if (type == k4444) return {new CDrawYCbCrYCbCrA16(pixelUV8), width, height, pitch, bytes};
  return {type, width, height, pitch, bytes};
}

// The bytes as hex, a space every `group` bytes.
std::string Hex(const uint8_t* p, size_t n, size_t group) {
  std::string s;
  for (size_t i = 0; i < n; ++i) {
    if (i && i % group == 0) s += ' ';
    s += "0123456789ABCDEF"[p[i] >> 4], s += "0123456789ABCDEF"[p[i] & 15];
  }
  return s;
}

TEST(DeepCanvas, GeometryAndMatrix) {
  const struct {
    unsigned int type;
    int width, height, pitch, modeBefore;  // -1: as GetDraw leaves it
    const char* state;
    int mode;
  } cases[] = {
      {20, 5, -2, 3, -1, "type 20 5x2 pitch 3 up font refs 1", 1},  // no minimum row
      {31, 5, 2, 0, -1, "type 31 5x2 pitch 30 font refs 1", 1},
      {37, 5, 2, 7, -1, "type 37 5x2 pitch 30 font refs 1", 1},
      {38, 5, 2, -41, -1, "type 38 5x2 pitch 41 font refs 1", 1},
      {28, 1921, 1, 0, -1, "type 28 1921x1 pitch 2881 font refs 1", 1},
      {10000, 721, 1, 0, 1, "type 10000 721x1 pitch 1442 font refs 1", 3},
      {10000, 720, 1, 99, 4, "type 10000 720x1 pitch 1440 font refs 1", 1},
      {10000, 720, 1, 0, 2, "type 10000 720x1 pitch 1440 font refs 1", 2},
      {10001, 1920, 1, 0, -1, "type 10001 1920x1 pitch 7680 font refs 1", 3},
      {10001, 1920, 1, 0, 4, "type 10001 1920x1 pitch 7680 font refs 1", 4},
      {10001, -1, 1, 12, 4, "type 10001 4294967295x1 pitch 4294967292 font refs 1", 1},  // signed width
      {10001, 0x40000001, 1, 12, 3, "type 10001 1073741825x1 pitch 12 font refs 1", 3},  // the row wraps
      {k444, 5, -2, 0, 3, "type 1 5x4294967294 pitch 30 refs 1", 1},  // raw height, not bottom-up
      {k4444, 721, 1, 5000, 2, "type 1 721x1 pitch 5768 refs 1", 3},
  };
  for (const auto& k : cases) {
    auto c = Canvas(k.type, k.width, k.height, k.pitch, 0);
    if (k.modeBefore >= 0) {
      c->mYCbCrMode = static_cast<ZrPixel::cmYCbCr>(k.modeBefore);
      c->SetCanvas(nullptr, k.height, k.width, k.pitch);
    }
    EXPECT_EQ(k.state, zr::test::State(c.get()));
    EXPECT_EQ(k.mode, c->mYCbCrMode) << k.state;
    EXPECT_EQ(k.type != 10000 && k.type != 10001, c->IsRgbType()) << k.state;
  }
  auto argb = Canvas(38, 1, 1, 0, 8), half = Canvas(37, 1, 1, 0, 6);
  CDrawUV8 uv(pixelType(19));
  EXPECT_TRUE(dynamic_cast<CDrawARGB64*>(argb.get()) && dynamic_cast<CDrawRGBHalf48*>(half.get()) &&
              uv.mPixelType == 19 && uv.mYCbCrMode == 3);
}

// One write into a row of 0x11, after setting the slot (RGBA or YCbCr) or
// with the constructor's colours.
TEST(DeepCanvas, SingleWritesByHand) {
  const struct {
    unsigned int type;
    int width;
    char setter;  // 'r' SetColorRGBA, 'y' SetColorYCbCr, '-' none
    double c[4];
    int x;
    bool foreground;
    size_t group;
    const char* row;
  } cases[] = {
      {20, 3, 'r', {1, 0, 0, 1}, 1, true, 4, "11111111 FFC00000 11111111"},
      {20, 3, 'r', {0, 0, 1, 0}, 0, true, 4, "00000FFC 11111111 11111111"},
      {20, 3, 'r', {.999, 2.999, .999, 1}, 2, false, 4, "11111111 11111111 FFFFBFF4"},  // green spills
      {31, 3, 'r', {.5, .5, .5, .5}, 1, true, 6, "111111111111 FF00FF00FF00 111111111111"},
      {32, 2, 'r', {.5, .5, .5, .5}, 1, true, 8, "1111111111111111 FF00FF00FF00FF00"},
      {38, 2, '-', {}, 0, false, 8, "0000000000000000 1111111111111111"},
      {k444, 3, '-', {}, 1, true, 6, "111111111111 00EB00800080 111111111111"},
      {k444, 3, 'y', {.5, .25, 1, 1}, 1, true, 6, "111111111111 008000400000 111111111111"},
      {k444, 2, '-', {}, 0, false, 6, "001000800080 111111111111"},
      {k4444, 3, '-', {}, 1, true, 6, "111111111111 00EB00800080 F60811111111 111111111111"},  // 6 apart
      {k4444, 2, '-', {}, 0, false, 6, "001000800080 000011111111 11111111"},
      {k4444, 3, 'y', {.5, .25, .75, 1}, 1, true, 6, "111111111111 0080004000C0 00C011111111 111111111111"},
      {10000, 3, '-', {}, 1, true, 2, "1111 8080 1111"},
      {10000, 2, '-', {}, 0, false, 2, "8080 1111"},
      {10000, 3, 'y', {0, .501, 1, 0}, 1, true, 2, "1111 4100 1111"},
      {10001, 3, 'y', {0, .501, 1, 0}, 1, true, 4, "11111111 41800000 11111111"},
      {10001, 2, '-', {}, 0, false, 4, "00800080 11111111"},
      {22, 4, 'r', {1, 0, .5, 1}, 0, true, 3, "FF1111 111111"},
      {22, 4, 'r', {1, 0, .5, 1}, 1, true, 3, "1100F0 111111"},
  };
  for (const auto& k : cases) {
    const std::string row = k.row;
    const size_t bytes = (row.size() + 1) * k.group / (2 * k.group + 1);
    auto c = Canvas(k.type, k.width, 1, 0, bytes);
    if (k.setter == 'r') c->SetColorRGBA(k.c[0], k.c[1], k.c[2], k.c[3], k.foreground);
    if (k.setter == 'y') c->SetColorYCbCr(k.c[0], k.c[1], k.c[2], k.c[3], k.foreground);
    EXPECT_EQ(0, c->PutPixel(k.x, 0, k.foreground));
    EXPECT_EQ(row, Hex(c.rows(), bytes, k.group)) << k.type << " " << k.x;
  }
  auto dpx = Canvas(20, 1, 1, 0, 4), uv8 = Canvas(10000, 2, 1, 0, 6);
  double v[4] = {9, 9, 9, 9};
  EXPECT_EQ(0, dpx->SetColorRGBA(.999, 2.999, .999, 0, false));
  EXPECT_EQ(0, dpx->GetColorRGBA(v[0], v[1], v[2], v[3], false));
  EXPECT_TRUE(v[0] == 1 && v[1] == 1019 / 1023.0 && v[2] == 1021 / 1023.0 && v[3] == 1);
  auto bayer = Canvas(22, 2, 1, 0, 3);  // SetColorRGBA fills the canvas's own bytes, alpha included
  bayer->SetColorRGBA(1, 0, .5, .9, false);
  EXPECT_EQ("FF007FE5", Hex(dynamic_cast<CDrawBayer*>(bayer.get())->mBackBytes, 4, 4));
  std::memcpy(uv8.rows(), "\x01\x02\x03\x04\x05\x06", 6);  // 16-bit reads, one into the next pixel
  uv8->GetPixelYCbCr(1, 0, v[0], v[1], v[2], v[3]);
  EXPECT_TRUE(v[0] == 0.5 && v[1] == 0x0403 / 65536.0 && v[2] == 0x0605 / 65536.0 && v[3] == 1);
}

// Writes of R AB, G CD, B EF at (0, 0), (3, 0), (1, 1) and (2, 1) of a 4 by 2
// canvas: each alone in its pair of samples.
TEST(DeepCanvas, EachBayerPhaseStoresItsChannels) {
  const char* rows[] = {"EF1111110CF0 110AD0CD1111", "AB1111110CB0 110ED0CD1111", "CD1111110ED0 110CB0AB1111",
                        "CD1111110AD0 110CF0EF1111"};
  for (unsigned int type = 21; type <= 29; ++type) {  // 25 to 28 as 21 to 24, and another type as 21
    auto c = Canvas(type == 29 ? 21 : type, 4, 2, 0, 12);
    c->mPixelType = static_cast<pixelType>(type);
    std::memcpy(dynamic_cast<CDrawBayer*>(c.get())->mForeBytes, "\xAB\xCD\xEF\x99", 4);
    c->SetTransparency(true);  // no effect here
    c->SetAlphaAdditive(true);
    for (auto [x, y] : {std::pair{0, 0}, {3, 0}, {1, 1}, {2, 1}}) c->PutPixel(x, y, true);
    EXPECT_EQ(rows[(type - 21) % 4], Hex(c.rows(), 12, 6)) << type;
  }
}

// Colours set through SetPixel (RGBA or YCbCr by IsRgbType), lines, a
// rectangle, a fill, a dash, and lines and a point with transparency and
// the additive switch on; then every read-back of every pixel over random
// memory in several matrices, with outputs preset so that what a call
// leaves unwritten is pinned too.
TEST(DeepCanvas, GoldenChecksums) {
  const struct {
    unsigned int type;
    int pitch;
    uint32_t drawn, read;
  } cases[] = {
      {20, 98, 429040225, 1093609504},     {31, 194, 169812884, 3950831250},
      {37, 194, 169812884, 3613802621},    {32, 194, 2122121988, 2278616597},
      {38, 194, 2122121988, 1328843170},   {k444, 198, 2226454635, 3395269076},
      {k4444, 198, 899597628, 1141364456}, {10000, 98, 2136140885, 1453477562},
      {10001, 98, 358007582, 3868368874},  {21, 38, 2271046312, 1139553223},
      {22, 38, 2598110560, 2262615884},    {23, 38, 3754332480, 3083599820},
      {24, 38, 630166881, 2357458381},     {25, 38, 2271046312, 1692114089},
      {26, 38, 2598110560, 212132267},     {27, 38, 3754332480, 3701391677},
      {28, 38, 630166881, 3347958177},
  };
  for (const auto& k : cases) {
    const size_t bytes = k.pitch * 11;  // a spare row: some reads look one row or pixel on
    auto c = Canvas(k.type, 24, 10, k.pitch, bytes);
    c->SetPixel(0, 0, 0.9, 0.3, 0.6, 1.0, true);
    c->SetPixel(1, 0, 0.1, 0.7, 0.2, 0.5, false);
    c->Line(1, 1, 22, 8);
    c->Rectangle(2, 1, 19, 6);
    const RECT r{3, 2, 9, 5};
    c->FillRect(&r);
    c->Dash(0, 9, 23, 3, 4, 2);
    c->SetTransparency(true);
    c->SetTransparency(0.5, true);
    c->Line(23, 0, 0, 9);
    c->SetAlphaAdditive(true);
    c->Line(5, 9, 12, 0);
    c->Point(4, 4, false);
    EXPECT_EQ(k.drawn, zr::test::Crc32(c.rows(), bytes)) << k.type;
    zr::test::Rng(k.type).Fill(c.rows(), bytes);
    std::memset(c.rows(), 0, 8);  // black, to reach the colourless hue
    uint32_t crc = 0;
    for (int mode : {1, 2, 3, 4, 6, 1004, 9}) {
      c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(mode));
      for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 24; ++x) {
          double v[13] = {.25, .25, .25, .25, .25, .25, .25, .25, .25, .25, .25, .25, .25};
          unsigned char v8[4] = {7, 7, 7, 7};
          unsigned int v10[4] = {7, 7, 7, 7};
          const int rc[] = {c->GetPixelRGBA(x, y, v[0], v[1], v[2], v[3]),
                            c->GetPixelYCbCr(x, y, v[4], v[5], v[6], v[7]),
                            c->GetPixelHSV(x, y, v[8], v[9], v[10], v[11]),
                            c->GetPixelYCbCr8(x, y, v8[0], v8[1], v8[2], v8[3]),
                            c->GetPixelYCbCr10(x, y, v10[0], v10[1], v10[2], v10[3])};
          v[12] = c->GetLuma(x, y);
          crc = zr::test::Crc32(
              rc, sizeof rc,
              zr::test::Crc32(v10, 16, zr::test::Crc32(v8, 4, zr::test::Crc32(v, sizeof v, crc))));
        }
    }
    EXPECT_EQ(k.read, crc) << k.type;
  }
}

}  // namespace
