// EraseCanvas and FillRect: the memory-fill road on the 32-bit RGB types,
// the per-row LineHoriz road on the others.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"

namespace {

using zr::test::TestCanvas;

TEST(Fill, EraseUsesTheForegroundAsOneRunIgnoringPitch) {
  for (unsigned int type = 1; type <= 4; ++type) {
    // Rows padded to 20 bytes: the fill still covers 4 x 3 x 4 bytes in one run.
    TestCanvas c(type, 4, 3, 20, 60);
    c->mForeColor = 0xA1B2C3D4;
    c->mBackColor = 0;
    c->SetTransparency(true);
    c->SetTransparency(0.5, true);
    c->SetAlphaAdditive(true);
    EXPECT_EQ(0, c->EraseCanvas(type % 2 == 0));
    for (size_t i = 0; i < 48; i += 4) ASSERT_EQ(0xA1B2C3D4u, c.Word(i)) << i;
    for (size_t i = 48; i < 60; ++i) ASSERT_EQ(0x11, c.rows()[i]) << i;
  }
}

TEST(Fill, EraseOnTwentyFourBitGoesThroughLineHoriz) {
  for (unsigned int type : {5u, 6u}) {
    // LineHoriz plots one pixel past the last column: 3 spare bytes a row.
    TestCanvas c(type, 4, 3, 15, 45);
    c->mForeColor = 0x00332211;
    EXPECT_EQ(0, c->EraseCanvas(false));
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x <= 4; ++x) {
        const uint8_t* p = c.rows() + y * 15 + x * 3;
        ASSERT_EQ(0x11, p[0]) << x << "," << y;
        ASSERT_EQ(0x22, p[1]);
        ASSERT_EQ(0x33, p[2]);
      }
  }
}

// Records LineHoriz calls and may move the rectangle's right edge.
class Spans : public ZrDraw {
 public:
  std::vector<std::string> log;
  RECT* grow = nullptr;
  int LineHoriz(int x1, int y, int x2) override {
    log.push_back(std::to_string(x1) + " " + std::to_string(y) + " " + std::to_string(x2));
    if (grow) ++grow->right;
    return 0;
  }
};

TEST(Fill, EraseRowsOnOtherTypes) {
  Spans s;
  s.mPixelType = pixelRGB24;
  s.SetCanvas(nullptr, 3, 7, 0);
  s.EraseCanvas(true);
  EXPECT_EQ((std::vector<std::string>{"0 0 7", "0 1 7", "0 2 7"}), s.log);
}

TEST(Fill, FillRectRowsReadTheRectangleAfresh) {
  Spans s;
  s.mPixelType = pixelBGR24;
  s.SetCanvas(nullptr, 10, 10, 0);
  RECT r{2, 3, 5, 6};
  s.grow = &r;
  EXPECT_EQ(0, s.FillRect(&r));
  EXPECT_EQ((std::vector<std::string>{"2 3 5", "2 4 6", "2 5 7"}), s.log);
  s.log.clear();
  s.grow = nullptr;
  RECT flat{2, 3, 5, 3};
  EXPECT_EQ(0, s.FillRect(&flat));
  RECT inverted{2, 5, 5, 3};
  EXPECT_EQ(0, s.FillRect(&inverted));
  EXPECT_TRUE(s.log.empty());
  // A canvas-sized rectangle on a type outside 1 to 4 is rows as usual.
  RECT whole{0, 0, 10, 10};
  s.FillRect(&whole);
  EXPECT_EQ(10u, s.log.size());
}

TEST(Fill, CanvasSizedRectFillsFromTheFirstByteWhereverItLies) {
  TestCanvas c(pixelRGBA32, 4, 3, 24, 72);
  c->mForeColor = 0x55667788;
  c->SetTransparency(true);
  c->SetTransparency(1.0, true);
  RECT r{-100, 50, -96, 53};
  EXPECT_EQ(0, c->FillRect(&r));
  for (size_t i = 0; i < 48; i += 4) ASSERT_EQ(0x55667788u, c.Word(i));
  for (size_t i = 48; i < 72; ++i) ASSERT_EQ(0x11, c.rows()[i]);
}

TEST(Fill, FillRectRightEdgeByType) {
  for (unsigned int type : {1u, 3u, 5u, 6u}) {
    const int bpp = type <= 4 ? 4 : 3;
    TestCanvas c(type, 8, 8, 0, 8 * 8 * bpp + 4);
    c->mForeColor = 0x00FFFFFF;
    RECT r{2, 3, 5, 6};
    c->FillRect(&r);
    for (int y = 0; y < 8; ++y)
      for (int x = 0; x < 8; ++x) {
        const bool inside = y >= 3 && y <= 5 && x >= 2 && x <= (type <= 4 ? 4 : 5);
        ASSERT_EQ(inside ? 0xFF : 0x11, c.rows()[y * 8 * bpp + x * bpp]) << type << " " << x << "," << y;
      }
  }
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
