// The plain-function interface, called as a C host would.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <vector>

#include "platform/zrutil.h"
#include "zrdraw.h"

namespace {

TEST(QtInterface, FactoryPair) {
  std::vector<char> mem(640 * 480 * 4);
  EXPECT_EQ(nullptr, qtGetDraw(7, 640, 480, 0, mem.data()));
  EXPECT_EQ(nullptr, qtGetDraw(0xFFFFFFFF, 640, 480, 0, mem.data()));
  ZrDraw* c = qtGetDraw(1, 640, 480, 0, mem.data());
  ASSERT_NE(nullptr, c);
  EXPECT_EQ(1, c->mRefCount);
  EXPECT_EQ(2560u, c->mPitch);
  EXPECT_EQ(0, qtAddRefDraw(c));
  EXPECT_EQ(2, c->mRefCount);
  EXPECT_EQ(0, qtReleaseDraw(c));
  EXPECT_EQ(1, c->mRefCount);
  c->mbUseBuiltInFont = false;
  EXPECT_EQ(0, qtUseDefaultFont(c, false));
  EXPECT_TRUE(c->mbUseBuiltInFont);
  EXPECT_EQ(0, qtSetFont(c, nullptr));
  EXPECT_EQ(0, qtSetFont(nullptr, nullptr));
  EXPECT_EQ(0, qtReleaseDraw(c));
}

TEST(QtInterface, EmptySizeFunctionsWriteNothing) {
  tagBITMAPINFO b;
  std::memset(&b, 0x5A, sizeof b);
  tagBITMAPINFO copy = b;
  unsigned int type = 77;
  EXPECT_EQ(0u, qtGetDrawSizeBMI(&b, &type));
  EXPECT_EQ(0u, qtGetDrawSizeBMI(nullptr, nullptr));
  EXPECT_EQ(0u, qtGetDrawSize(1, 1920, 1080, 0));
  EXPECT_EQ(77u, type);
  EXPECT_EQ(0, std::memcmp(&b, &copy, sizeof b));
}

TEST(QtInterface, NullCanvasResults) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(-1, qtZrPixelLock(nullptr, 5));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(4));
  EXPECT_EQ(-1, qtZrPixelTryLock(nullptr));
  EXPECT_EQ(-1, qtZrPixelUnlock(nullptr));
  EXPECT_EQ(0xFFFFFFFFu, qtZrPixelWaitForChangeEvent(nullptr, 0));
  qtZrPixelSetChangeEvent(nullptr);
  EXPECT_EQ(-1, qtZrPixelLastChange(nullptr, 5));
  EXPECT_EQ(-1, qtZrPixelSetCanvas(nullptr, nullptr, 1, 1, 0));
}

TEST(QtInterface, StateThroughTheHandle) {
  ZrDraw* c = qtGetDraw(pixelRGB24, 8, 8, 0, nullptr);
  ASSERT_NE(nullptr, c);
  EXPECT_EQ(0, qtZrPixelLastChange(c, -1));
  EXPECT_EQ(77, qtZrPixelLastChange(c, 77));
  EXPECT_EQ(77, qtZrPixelLastChange(c, -1));
  EXPECT_EQ(77u, c->mLastChange);
  EXPECT_EQ(-2, qtZrPixelLastChange(c, -2));

  std::vector<char> mem(100);
  c->mbUseBuiltInFont = false;
  EXPECT_EQ(0, qtZrPixelSetCanvas(c, mem.data(), 3, 5, 1));
  EXPECT_EQ(mem.data(), c->mpCanvas);
  EXPECT_EQ(5u, c->mWidth);
  EXPECT_EQ(3u, c->mHeight);
  EXPECT_EQ(15u, c->mPitch);
  EXPECT_FALSE(c->mbUseBuiltInFont);

  EXPECT_EQ(kZrWaitTimeout, qtZrPixelWaitForChangeEvent(c, 0));
  qtZrPixelSetChangeEvent(c);
  EXPECT_EQ(kZrWaitSignaled, qtZrPixelWaitForChangeEvent(c, 0));
  EXPECT_EQ(kZrWaitTimeout, qtZrPixelWaitForChangeEvent(c, 1));

  EXPECT_EQ(0, qtZrPixelLock(c, 0));
  EXPECT_EQ(128, qtZrPixelLock(c, 10));  // recursive
  EXPECT_EQ(1, qtZrPixelTryLock(c));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(0, qtZrPixelUnlock(c));
  qtReleaseDraw(c);
}

TEST(QtInterface, NullEventIsTolerated) {
  ZrDraw* c = qtGetDraw(pixelRGBA32, 1, 1, 0, nullptr);
  zrOSCloseEvent(c->mChangeEvent);
  c->mChangeEvent = nullptr;
  EXPECT_EQ(0, c->SetChangeEvent());
  EXPECT_EQ(kZrWaitFailed, c->WaitForChangeEvent(0));
  qtReleaseDraw(c);
}

}  // namespace
