// ZrDraw: its defaults, the pen position, the label font, the empty
// operations and the built-in font tables.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "canvas/test_canvas.h"
#include "common/crc32.h"

namespace {

using zr::test::Crc32;
using zr::test::TestCanvas;

TEST(DrawObject, DefaultsPositionAndLabelFont) {
  ZrDraw d;
  EXPECT_TRUE(d.mEmfFile == 0 && !d.mpMetaHeader && !d.mpPlaceableHeader && d.mCurrentX == 0 &&
              d.mCurrentY == 0);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(3.2, d.mColorA[i] + d.mColorB[i] + d.mColorC[i] + d.mColorD[i]);
  EXPECT_TRUE(d.mbTextTransparent && !d.mbUseBuiltInFont && !d.mbLineSmoothing && !d.mbSpareFlag);
  EXPECT_TRUE(d.mpLabelFont == gFont8x10 && d.mPixelType == pixelRGBA32);
  EXPECT_EQ(8 * 100 + 10, d.LabelGetFontWidth() * 100 + d.LabelGetFontHeight());
  d.mpLabelFont = nullptr;
  EXPECT_EQ(0, d.LabelFont(12345u, 3));  // only the scale counts
  EXPECT_EQ(gFont8x10, d.mpLabelFont);
  EXPECT_EQ(24 * 100 + 30, d.LabelGetFontWidth() * 100 + d.LabelGetFontHeight());
  _POINT p{99, 99};
  EXPECT_EQ(0, d.MoveTo(5, -6));
  EXPECT_EQ(0, d.MoveTo(7, 8, &p));
  EXPECT_EQ(0, d.MoveTo(1, 2, nullptr));
  EXPECT_EQ(5 * 100 - 6, p.x * 100 + p.y);
  EXPECT_EQ(1 * 100 + 2, d.mCurrentX * 100 + d.mCurrentY);
  TestCanvas c(pixelRGBA32, 4, 4, 0, 64);
  c->mBackColor = 0x12345678;
  EXPECT_EQ(0, c->Point(2, 3, true) + c->Point(0, 0, false));
  EXPECT_EQ(0xFFFFFFFFu, c.Word(3 * 16 + 8));
  EXPECT_EQ(0x12345678u, c.Word(0));
  EXPECT_EQ(-1, c->Point(1, -5, false));  // refused, yet the position moves
  EXPECT_EQ(1 * 100 - 5, c->mCurrentX * 100 + c->mCurrentY);
}

TEST(DrawObject, EmptyOperationsChangeNothing) {
  TestCanvas c(pixelRGBA32, 8, 8, 0, 256);
  c->MoveTo(3, 4);
  c->mForeColor = 0x01020304;
  const uint32_t before = Crc32(c.rows(), 256);
  RECT r{0, 0, 8, 8};
  unsigned char pattern[4] = {1, 2, 3, 4};
  ZrDraw* d = c.get();
  EXPECT_EQ(0, d->SetBrush(nullptr, 1, 1) + d->SetBrush(pattern, 2, 2) + d->Fill(1, 1, 0.5) +
                   d->GradientRect(0, 0, 8, 8, 1) + d->SymGradientRect(0, 0, 8, 8, 1) +
                   d->CornerGradientRect(0, 0, 8, 8, 1) + d->CenterGradientRect(0, 0, 8, 8) +
                   d->RadialGradientFill(0, 0, 8, 8, 4, 4) + d->PatternFill(0, 0, 8, 8, 2, 2, pattern) +
                   d->RoundRectButton(0, 0, 8, 8, 2, 2) + d->CopyRect(nullptr, nullptr, nullptr) +
                   d->CopyRect(&r, &r, d) + d->LabelFont(nullptr, 0u) +
                   d->Filter(zrFilterType{}, 0, 0, 8, 8) + d->Scale(zrScaleType{}, d, &r, d, &r) +
                   d->EMFDraw(0, 0, 8, 8, true) + d->Arrow(0, 0, 7, 7, true) + d->TextOut(0, 0, "text", 4) +
                   d->SetFont(nullptr) + d->HaveFont());
  EXPECT_EQ(before, Crc32(c.rows(), 256));
  EXPECT_EQ(3 * 100 + 4, c->mCurrentX * 100 + c->mCurrentY);
  EXPECT_TRUE(c->mForeColor == 0x01020304u && c->mBackColor == 0 && c->mLabelScale == 1);
}

TEST(DrawObject, FontTables) {
  EXPECT_EQ(191232239u, Crc32(gFont8x10, sizeof gFont8x10));
  EXPECT_EQ(4027668353u, Crc32(fontmap, sizeof fontmap));
  EXPECT_EQ(0, std::memcmp(fontmap + 72, "\x78\x84\x84\x84\x7c\x04\x08\x70", 8));  // 9
}

}  // namespace
