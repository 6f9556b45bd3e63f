// The canvas lock across threads: the polling and blocking forms of Lock,
// and the reference count waiting on a held lock.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "zrdraw.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(CanvasLock, PollingFormReturns128WhenHeldAndZeroWhenItGivesUp) {
  ZrDraw* c = qtGetDraw(pixelRGBA32, 4, 4, 0, nullptr);
  ASSERT_NE(nullptr, c);
  EXPECT_EQ(128, c->Lock(1));
  EXPECT_EQ(0, c->Unlock());

  std::atomic<int> stage{0};
  std::thread holder([&] {
    EXPECT_EQ(0, c->Lock(0));
    stage = 1;
    while (stage != 2) std::this_thread::yield();
    c->Unlock();
  });
  while (stage != 1) std::this_thread::yield();
  const auto start = steady_clock::now();
  EXPECT_EQ(0, c->Lock(1));
  EXPECT_EQ(0, c->Lock(3));
  EXPECT_GE(steady_clock::now() - start, milliseconds(4));
  EXPECT_EQ(0, c->TryLock());
  EXPECT_EQ(-1, qtZrPixelLock(nullptr, 3));
  stage = 2;
  holder.join();
  EXPECT_EQ(128, c->Lock(0xFFFFFFFE));
  c->Unlock();
  qtReleaseDraw(c);
}

TEST(CanvasLock, ReferenceCountWaitsForTheLockHolder) {
  ZrDraw* c = qtGetDraw(pixelRGBA32, 4, 4, 0, nullptr);
  ASSERT_NE(nullptr, c);
  std::atomic<bool> released{false};
  EXPECT_EQ(0, qtZrPixelLock(c, 0));
  std::thread other([&] {
    ZrDraw* h = c;
    AddRefDraw(h);
    ReleaseDraw(h);
    EXPECT_EQ(c, h);
    released = true;
  });
  std::this_thread::sleep_for(milliseconds(20));
  EXPECT_FALSE(released);
  EXPECT_EQ(1, c->mRefCount);
  qtZrPixelUnlock(c);
  other.join();
  EXPECT_TRUE(released);
  EXPECT_EQ(1, c->mRefCount);
  qtReleaseDraw(c);
}

}  // namespace
