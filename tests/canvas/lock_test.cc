// The canvas lock across threads: the polling form returns 128 when it holds
// the lock and 0 when it gives up, the blocking form 0 with the lock held,
// and the reference count waits on a held lock.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "zrdraw.h"

TEST(CanvasLock, PollingBlockingAndTheReferenceCount) {
  ZrDraw* c = qtGetDraw(pixelRGBA32, 4, 4, 0, nullptr);
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
  EXPECT_EQ(0, c->Lock(1) + c->Lock(3) + c->TryLock());
  stage = 2;
  holder.join();
  EXPECT_EQ(128, c->Lock(0xFFFFFFFE));
  std::atomic<bool> released{false};
  std::thread other([&] {
    ZrDraw* h = c;
    AddRefDraw(h);
    ReleaseDraw(h);
    EXPECT_EQ(c, h);
    released = true;
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_FALSE(released);
  c->Unlock();
  other.join();
  EXPECT_EQ(1, c->mRefCount);
  qtReleaseDraw(c);
}
