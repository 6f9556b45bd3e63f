#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>

#include "platform/zrutil.h"

namespace {

TEST(Events, AutoResetSignalsOnceAndTimesOut) {
  ZrHandle e = zrOSCreateEvent(nullptr, 0, 0, nullptr);
  ASSERT_NE(e, nullptr);
  EXPECT_EQ(zrOSWaitForEvent(e, 0), kZrWaitTimeout);
  std::thread t([e] { zrOSSetEvent(e); });
  EXPECT_EQ(zrOSWaitForEvent(e, kZrInfinite), kZrWaitSignaled);
  t.join();
  EXPECT_EQ(zrOSWaitForEvent(e, 10), kZrWaitTimeout);
  zrOSCloseEvent(e);
}

TEST(Events, NullHandleIsTolerated) {
  EXPECT_EQ(zrOSWaitForEvent(nullptr, 5), kZrWaitFailed);
  EXPECT_EQ(zrOSSetEvent(nullptr), 0);
  EXPECT_EQ(zrOSCloseEvent(nullptr), 0);
}

TEST(CriticalSection, IsRecursiveAndTryFailsFromAnotherThread) {
  ZrCriticalSection cs;
  zrOSInitializeCriticalSection(&cs);
  zrOSEnterCriticalSection(&cs);
  EXPECT_NE(zrOSTryEnterCriticalSection(&cs), 0);
  int otherTry = -1;
  std::thread([&] { otherTry = zrOSTryEnterCriticalSection(&cs); }).join();
  EXPECT_EQ(otherTry, 0);
  zrOSLeaveCriticalSection(&cs);
  zrOSLeaveCriticalSection(&cs);
  std::thread([&] {
    otherTry = zrOSTryEnterCriticalSection(&cs);
    if (otherTry) zrOSLeaveCriticalSection(&cs);
  }).join();
  EXPECT_NE(otherTry, 0);
  zrOSDeleteCriticalSection(&cs);
}

struct Job {
  volatile int* count;
  char name[16];
};

unsigned int Worker(void* p) {
  auto* job = static_cast<Job*>(p);
  pthread_getname_np(pthread_self(), job->name, sizeof job->name);
  zrOSInterlockedDecrement(job->count);
  return 7;
}

TEST(Threads, NamedDetachedWorkersCountDownAndClosingDoesNotWait) {
  volatile int count = 0;
  Job jobs[4];
  ZrHandle handles[4];
  for (auto& job : jobs) {
    job = Job{&count, {}};
  }
  for (int i = 0; i < 4; ++i) {
    zrOSInterlockedIncrement(&count);
    unsigned long id = 0;
    handles[i] = zrOSCreateThread(nullptr, 0, Worker, &jobs[i], 0, &id, "dffx");
    ASSERT_NE(handles[i], nullptr);
    EXPECT_NE(id, 0u);
    EXPECT_NE(zrOSSetThreadPriority(handles[i], 15), 0);
    EXPECT_EQ(zrOSGetThreadPriority(handles[i]), 15);
  }
  for (ZrHandle h : handles) zrOSCloseThread(h, "dffx");
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (zrOSInterlockedRead(&count) != 0 && std::chrono::steady_clock::now() < deadline) usleep(1000);
  ASSERT_EQ(zrOSInterlockedRead(&count), 0);
  for (const auto& job : jobs) EXPECT_STREQ(job.name, "dffx");
}

TEST(Threads, CurrentThreadPriorityIsKeptPerThread) {
  ZrHandle self = zrOSGetCurrentThread();
  const int before = zrOSGetThreadPriority(self);
  zrOSSetThreadPriority(self, 15);
  EXPECT_EQ(zrOSGetThreadPriority(self), 15);
  int other = -1;
  std::thread([&] { other = zrOSGetThreadPriority(zrOSGetCurrentThread()); }).join();
  EXPECT_EQ(other, 0);
  zrOSSetThreadPriority(self, before);
  EXPECT_EQ(zrOSGetThreadPriority(self), before);
}

TEST(Interlocked, ManyThreadsBalanceToZero) {
  volatile int count = 0;
  std::thread threads[4];
  for (auto& t : threads)
    t = std::thread([&] {
      for (int i = 0; i < 10000; ++i) {
        zrOSInterlockedIncrement(&count);
        zrOSInterlockedDecrement(&count);
      }
    });
  for (auto& t : threads) t.join();
  EXPECT_EQ(zrOSInterlockedRead(&count), 0);
}

}  // namespace
