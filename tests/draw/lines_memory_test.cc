// The line family on canvas memory: the two roads of LineHoriz against the
// bytes a host expects, over guarded, padded and misaligned memory, and a
// golden checksum of mixed strokes shared by every build.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Rng;
using zr::test::TestCanvas;

void Put(std::vector<uint8_t>& mem, size_t offset, uint32_t word, int bytes) {
  for (int k = 0; k < bytes; ++k) mem[offset + k] = static_cast<uint8_t>(word >> (8 * k));
}

void SetForeground(TestCanvas& c, Rng& rng) {
  double rgb[3];
  for (double& v : rgb) v = rng.Below(256) / 255.0;
  c->SetColorRGBA(rgb[0], rgb[1], rgb[2], 1.0, true);
}

// Random spans on every RGB type, checked byte for byte against what each
// road must write: [x1, x2) of whole words at the rounded row offset on
// types 1 to 4, [x1, x2] of 3-byte pixels on types 5 and 6.
TEST(LineHoriz, RoadsWriteExactlyTheirSpans) {
  const uint64_t seed = 0x40B1;
  Rng rng(seed);
  std::vector<int> widths;
  for (int w = 1; w <= 33; ++w) widths.push_back(w);
  widths.insert(widths.end(), {255, 1000, 1921});
  for (unsigned type = 1; type <= 6; ++type) {
    const int bpp = type <= 4 ? 4 : 3;
    for (int width : widths) {
      const int pitch = bpp * width + static_cast<int>(rng.Below(9));
      const int height = 3;
      TestCanvas c(type, width, height, pitch, size_t(pitch) * height, 0, rng.Below(2));
      std::vector<uint8_t> want(c.rows(), c.rows() + c.size());
      for (int i = 0; i < 8; ++i) {
        int x1 = static_cast<int>(rng.Below(width)), x2 = static_cast<int>(rng.Below(width));
        if (x1 > x2) std::swap(x1, x2);
        if (bpp == 4 && rng.Below(2)) x2 = width;
        const int y = static_cast<int>(rng.Below(height));
        SetForeground(c, rng);
        ASSERT_EQ(0, c->LineHoriz(x1, y, x2));
        if (bpp == 4) {
          for (int x = x1; x < x2; ++x) Put(want, ((uint32_t(y) * pitch) & ~3u) + 4 * x, c->mForeColor, 4);
        } else {
          for (int x = x1; x <= x2; ++x) Put(want, size_t(y) * pitch + 3 * x, c->mForeColor, 3);
        }
        for (size_t b = 0; b < want.size(); ++b)
          ASSERT_EQ(want[b], c.rows()[b])
              << "seed " << seed << " type " << type << " width " << width << " span " << x1 << ".." << x2
              << " first difference at x,y " << (b % pitch) / bpp << "," << b / pitch;
      }
    }
  }
}

TEST(LineHoriz, DocumentedEnds) {
  TestCanvas words(pixelRGBA32, 8, 2, 0, 64, 4), triples(pixelRGB24, 8, 2, 0, 48);
  words->LineHoriz(2, 1, 5);
  words->LineHoriz(5, 0, 5);  // an empty span
  triples->LineHoriz(2, 1, 5);
  triples->LineHoriz(5, 0, 5);  // one pixel
  for (int x = 0; x < 8; ++x) {
    EXPECT_EQ(x >= 2 && x < 5 ? 0xFFFFFFFFu : 0x11111111u, words.Word(32 + 4 * x)) << x;
    EXPECT_EQ(0x11111111u, words.Word(4 * x)) << x;
    EXPECT_EQ(x >= 2 && x <= 5 ? 0xFF : 0x11, triples.rows()[24 + 3 * x]) << x;
    EXPECT_EQ(x == 5 ? 0xFF : 0x11, triples.rows()[3 * x]) << x;
  }
  // The fill road has no guard: a negative x1 writes before the row.
  words->LineHoriz(-1, 0, 0);
  uint32_t before;
  std::memcpy(&before, words.all(), 4);
  EXPECT_EQ(0xFFFFFFFFu, before);
}

TEST(LineHoriz, OnlyThePutPixelRoadBlends) {
  TestCanvas words(pixelRGBA32, 4, 1, 0, 16), triples(pixelRGB24, 4, 1, 0, 16);
  for (TestCanvas* c : {&words, &triples}) {
    (*c)->SetTransparency(true);
    (*c)->SetTransparency(0.5, true);
    (*c)->mForeColor = 0x00000100;
    (*c)->LineHoriz(0, 0, 1);
  }
  EXPECT_EQ(0x00000100u, words.Word(0));
  EXPECT_EQ(0x11111111u, words.Word(4));
  // Blended writes are whole words at 4 x, on the 24-bit type too.
  EXPECT_EQ(uint32_t(0x100 * 0.5 + 0.5 * 0x11111111u), triples.Word(0));
  EXPECT_EQ(uint32_t(0x100 * 0.5 + 0.5 * 0x11111111u), triples.Word(4));
}

// Strokes of every line operation on the byte-ordered types; the checksum
// must hold unchanged in every build.
TEST(LineGolden, MixedStrokes) {
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
      SetForeground(c, rng);
      const int x1 = v[0], y1 = v[1], x2 = v[2], y2 = v[3];
      switch (i % 4) {
        case 0:
          c->Line(x1, y1, x2, y2);
          break;
        case 1:
          c->Dash(x1, y1, x2, y2, v[4] % 5, v[5] % 4);
          break;
        case 2:
          c->LineVert(x1, y1, y2);
          break;
        default:
          c->LineHoriz(std::min(x1, x2), y1, std::max(x1, x2));
      }
    }
    EXPECT_EQ(golden[t], zr::test::Crc32(c.rows(), c.size())) << "type " << types[t];
  }
}

}  // namespace
