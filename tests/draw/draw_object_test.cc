// ZrDraw: its defaults, the pen position, the composed outlines and the
// empty operations.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"

namespace {

using zr::test::TestCanvas;

TEST(DrawObject, ConstructorDefaults) {
  ZrDraw d;
  EXPECT_EQ(0, d.mEmfFile);
  EXPECT_EQ(nullptr, d.mpMetaHeader);
  EXPECT_EQ(nullptr, d.mpPlaceableHeader);
  EXPECT_EQ(0, d.mCurrentX);
  EXPECT_EQ(0, d.mCurrentY);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(1.0, d.mColorA[i]);
    EXPECT_EQ(0.6, d.mColorB[i]);
    EXPECT_EQ(1.0, d.mColorC[i]);
    EXPECT_EQ(0.6, d.mColorD[i]);
  }
  EXPECT_TRUE(d.mbTextTransparent);
  EXPECT_EQ(gFont8x10, d.mpLabelFont);
  EXPECT_EQ(8u, d.mLabelWidth);
  EXPECT_EQ(10u, d.mLabelHeight);
  EXPECT_EQ(1u, d.mLabelScale);
  EXPECT_FALSE(d.mbUseBuiltInFont);
  EXPECT_FALSE(d.mbLineSmoothing);
  EXPECT_FALSE(d.mbSpareFlag);
  EXPECT_EQ(pixelRGBA32, d.mPixelType);
  EXPECT_EQ(8, d.LabelGetFontWidth());
  EXPECT_EQ(10, d.LabelGetFontHeight());
}

TEST(DrawObject, PointMovesThePositionEvenWhenRefused) {
  TestCanvas c(pixelRGBA32, 4, 4, 0, 64);
  EXPECT_EQ(0, c->Point(2, 3, true));
  EXPECT_EQ(0xFFFFFFFFu, c.Word(3 * 16 + 8));
  EXPECT_EQ(-1, c->Point(1, -5, false));
  EXPECT_EQ(1, c->mCurrentX);
  EXPECT_EQ(-5, c->mCurrentY);
  c->mBackColor = 0x12345678;
  c->Point(0, 0, false);
  EXPECT_EQ(0x12345678u, c.Word(0));
}

TEST(DrawObject, MoveToReportsThePreviousPosition) {
  ZrDraw d;
  EXPECT_EQ(0, d.MoveTo(5, -6));
  _POINT p{99, 99};
  EXPECT_EQ(0, d.MoveTo(7, 8, &p));
  EXPECT_EQ(5, p.x);
  EXPECT_EQ(-6, p.y);
  EXPECT_EQ(0, d.MoveTo(1, 2, nullptr));
  EXPECT_EQ(1, d.mCurrentX);
  EXPECT_EQ(2, d.mCurrentY);
}

TEST(DrawObject, LabelFontSetsScaleOnly) {
  ZrDraw d;
  d.mpLabelFont = nullptr;
  EXPECT_EQ(0, d.LabelFont(12345u, 3));
  EXPECT_EQ(gFont8x10, d.mpLabelFont);
  EXPECT_EQ(24, d.LabelGetFontWidth());
  EXPECT_EQ(30, d.LabelGetFontHeight());
  EXPECT_EQ(0, d.LabelFont("Arial", 40u));
  EXPECT_EQ(3u, d.mLabelScale);
  d.LabelFont(0u, 0);
  EXPECT_EQ(0, d.LabelGetFontWidth());
}

// Records the virtual calls that the composed operations make.
class Calls : public ZrDraw {
 public:
  std::vector<std::string> log;
  int Line(int x1, int y1, int x2, int y2) override {
    log.push_back("L " + Text({x1, y1, x2, y2}));
    return -9;
  }
  int LineHoriz(int x1, int y, int x2) override {
    log.push_back("H " + Text({x1, y, x2}));
    return -9;
  }
  int AngleArcTo(int x, int y, int rx, int ry, float start, float end) override {
    log.push_back("A " + Text({x, y, rx, ry, int(start), int(end)}));
    mCurrentX = x + rx;
    return -9;
  }
  static std::string Text(std::initializer_list<int> v) {
    std::string s;
    for (int i : v) s += std::to_string(i) + " ";
    return s;
  }
};

TEST(DrawObject, RectangleIsFourLinesInOrder) {
  Calls d;
  EXPECT_EQ(0, d.Rectangle(1, 2, 30, 40));
  EXPECT_EQ((std::vector<std::string>{"L 1 2 30 2 ", "L 1 2 1 40 ", "L 1 40 30 40 ", "L 30 2 30 40 "}),
            d.log);
  EXPECT_EQ(0, d.mCurrentX);
}

TEST(DrawObject, RoundRectSidesThenCorners) {
  Calls d;
  EXPECT_EQ(0, d.RoundRect(10, 20, 110, 70, 21, 11));
  EXPECT_EQ((std::vector<std::string>{"L 20 20 100 20 ", "L 10 25 10 65 ", "L 20 70 100 70 ",
                                      "L 110 25 110 65 ", "A 20 25 10 5 90 180 ", "A 20 65 10 5 180 270 ",
                                      "A 100 65 10 5 270 360 ", "A 100 25 10 5 0 90 "}),
            d.log);
  EXPECT_EQ(110, d.mCurrentX);
  d.log.clear();
  EXPECT_EQ(-1, d.RoundRect(0, 0, 10, 10, 11, 0));
  EXPECT_EQ(-1, d.RoundRect(0, 0, 10, 10, 0, 11));
  EXPECT_EQ(-1, d.RoundRect(10, 0, 0, 10, 0, 0));
  EXPECT_TRUE(d.log.empty());
  EXPECT_EQ(0, d.RoundRect(0, 0, 100, 50, 0, 0));
  EXPECT_EQ(8u, d.log.size());
  EXPECT_EQ("A 0 0 0 0 90 180 ", d.log[4]);
}

TEST(DrawObject, EmptyOperationsChangeNothing) {
  TestCanvas c(pixelRGBA32, 8, 8, 0, 256);
  c->MoveTo(3, 4);
  c->mForeColor = 0x01020304;
  const uint32_t before = zr::test::Crc32(c.rows(), 256);
  RECT r{0, 0, 8, 8};
  unsigned char pattern[4] = {1, 2, 3, 4};
  ZrDraw* d = c.get();
  EXPECT_EQ(0, d->SetBrush(nullptr, 1, 1));
  EXPECT_EQ(0, d->SetBrush(pattern, 2, 2));
  EXPECT_EQ(0, d->Fill(1, 1, 0.5));
  EXPECT_EQ(0, d->GradientRect(0, 0, 8, 8, 1));
  EXPECT_EQ(0, d->SymGradientRect(0, 0, 8, 8, 1));
  EXPECT_EQ(0, d->CornerGradientRect(0, 0, 8, 8, 1));
  EXPECT_EQ(0, d->CenterGradientRect(0, 0, 8, 8));
  EXPECT_EQ(0, d->RadialGradientFill(0, 0, 8, 8, 4, 4));
  EXPECT_EQ(0, d->PatternFill(0, 0, 8, 8, 2, 2, nullptr));
  EXPECT_EQ(0, d->PatternFill(0, 0, 8, 8, 2, 2, pattern));
  EXPECT_EQ(0, d->RoundRectButton(0, 0, 8, 8, 2, 2));
  EXPECT_EQ(0, d->CopyRect(nullptr, nullptr, nullptr));
  EXPECT_EQ(0, d->CopyRect(&r, &r, d));
  EXPECT_EQ(0, d->LabelFont(nullptr, 0u));
  EXPECT_EQ(0, d->Filter(zrFilterType{}, 0, 0, 8, 8));
  EXPECT_EQ(0, d->Scale(zrScaleType{}, nullptr, nullptr, nullptr, nullptr));
  EXPECT_EQ(0, d->Scale(zrScaleType{}, d, &r, d, &r));
  EXPECT_EQ(0, d->EMFDraw(0, 0, 8, 8, true));
  EXPECT_EQ(0, d->Arrow(0, 0, 7, 7, true));
  EXPECT_EQ(0, d->TextOut(0, 0, nullptr, 5));
  EXPECT_EQ(0, d->TextOut(0, 0, "text", 4));
  EXPECT_EQ(0, d->SetFont(nullptr));
  EXPECT_EQ(0, d->HaveFont());
  EXPECT_EQ(before, zr::test::Crc32(c.rows(), 256));
  EXPECT_EQ(3, c->mCurrentX);
  EXPECT_EQ(4, c->mCurrentY);
  EXPECT_EQ(0x01020304u, c->mForeColor);
  EXPECT_EQ(0u, c->mBackColor);
  EXPECT_EQ(1u, c->mLabelScale);
}

}  // namespace
