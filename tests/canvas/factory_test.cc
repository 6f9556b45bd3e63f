// The factory and the reference count.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "zrdraw.h"

namespace {

TEST(Factory, BuildsTheClassOfEachRgbType) {
  std::vector<char> mem(64 * 4);
  for (unsigned int type = 1; type <= 6; ++type) {
    ZrDraw* c = nullptr;
    ASSERT_EQ(0, GetDraw(type, 8, 4, 0, mem.data(), c)) << type;
    ASSERT_NE(nullptr, c);
    EXPECT_EQ(type <= 4, dynamic_cast<CDrawRGBA32*>(c) != nullptr);
    EXPECT_EQ(type >= 5, dynamic_cast<CDrawRGB24*>(c) != nullptr);
    EXPECT_EQ(static_cast<int>(type), c->mPixelType);
    EXPECT_EQ(ZrPixel::cmYCbCr601Studio, c->mYCbCrMode);
    EXPECT_EQ(1, c->mRefCount);
    EXPECT_TRUE(c->mbUseBuiltInFont);
    EXPECT_EQ(mem.data(), c->mpCanvas);
    EXPECT_EQ(8u, c->mWidth);
    EXPECT_EQ(4u, c->mHeight);
    EXPECT_EQ(type <= 4 ? 32u : 24u, c->mPitch);
    EXPECT_NE(nullptr, c->mChangeEvent);
    EXPECT_EQ(0, ReleaseDraw(c));
    EXPECT_EQ(nullptr, c);
  }
}

TEST(Factory, TypeMinusOneFailsWithoutTouchingTheHandle) {
  ZrDraw* sentinel = reinterpret_cast<ZrDraw*>(uintptr_t{0x1234});
  ZrDraw* c = sentinel;
  EXPECT_EQ(-1, GetDraw(0xFFFFFFFF, 8, 8, 0, nullptr, c));
  EXPECT_EQ(sentinel, c);
}

TEST(Factory, TypesWithoutAClassRepointALiveCanvas) {
  std::vector<char> a(4096), b(4096);
  for (unsigned int type :
       {0u, 7u, 8u, 9u, 15u, 16u, 17u, 18u, 19u, 29u, 30u, 33u, 34u, 35u, 36u, 99u, 0x7FFFFFFFu}) {
    ZrDraw* none = nullptr;
    EXPECT_EQ(-2, GetDraw(type, 8, 8, 0, a.data(), none)) << type;
    EXPECT_EQ(nullptr, none);

    ZrDraw* c = nullptr;
    ASSERT_EQ(0, GetDraw(pixelBGR24, 4, 4, 0, a.data(), c));
    c->mbUseBuiltInFont = false;
    ZrDraw* before = c;
    EXPECT_EQ(0, GetDraw(type, 16, 9, 0, b.data(), c)) << type;
    EXPECT_EQ(before, c);
    EXPECT_EQ(pixelBGR24, c->mPixelType);  // the old type stays
    EXPECT_EQ(b.data(), c->mpCanvas);
    EXPECT_EQ(16u, c->mWidth);
    EXPECT_EQ(9u, c->mHeight);
    EXPECT_EQ(48u, c->mPitch);
    EXPECT_TRUE(c->mbUseBuiltInFont);
    ReleaseDraw(c);
  }
}

TEST(Factory, HeightGoesBeforeWidthIntoSetCanvas) {
  ZrDraw* c = nullptr;
  ASSERT_EQ(0, GetDraw(pixelRGBA32, 640, -480, -3000, nullptr, c));
  EXPECT_EQ(640u, c->mWidth);
  EXPECT_EQ(480u, c->mHeight);
  EXPECT_TRUE(c->mbBottomUp);
  EXPECT_EQ(3000u, c->mPitch);
  ReleaseDraw(c);
}

TEST(Factory, ReferenceCount) {
  ZrDraw* c = nullptr;
  ASSERT_EQ(0, GetDraw(pixelRGBA32, 4, 4, 0, nullptr, c));
  EXPECT_EQ(0, AddRefDraw(c));
  EXPECT_EQ(2, c->mRefCount);
  ZrDraw* keep = c;
  EXPECT_EQ(0, ReleaseDraw(c));
  EXPECT_EQ(keep, c);
  EXPECT_EQ(1, c->mRefCount);
  // A count already at or below 0 also ends the object.
  c->mRefCount = -5;
  EXPECT_EQ(0, ReleaseDraw(c));
  EXPECT_EQ(nullptr, c);
}

TEST(Factory, FontFunctionsIgnoreTheirArguments) {
  ZrDraw* c = nullptr;
  ASSERT_EQ(0, GetDraw(pixelRGBA32, 4, 4, 0, nullptr, c));
  c->mbUseBuiltInFont = false;
  EXPECT_EQ(0, UseDefaultFont(c, false));
  EXPECT_TRUE(c->mbUseBuiltInFont);
  char name[] = "deffont_sd.bmp";
  EXPECT_EQ(0, SetFont(c, name));
  EXPECT_EQ(0, SetFont(c, nullptr));
  EXPECT_EQ(0, c->HaveFont());
  ReleaseDraw(c);
}

}  // namespace
