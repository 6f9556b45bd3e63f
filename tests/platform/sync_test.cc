// The platform layer's events, critical sections, threads and counters.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/zrutil.h"

namespace {

TEST(Sync, EventsAndCriticalSections) {
  ZrHandle e = zrOSCreateEvent(nullptr, 0, 0, nullptr);
  EXPECT_EQ(kZrWaitTimeout, zrOSWaitForEvent(e, 0));
  std::thread([e] { zrOSSetEvent(e); }).join();
  EXPECT_EQ(kZrWaitSignaled, zrOSWaitForEvent(e, kZrInfinite));
  EXPECT_EQ(kZrWaitTimeout, zrOSWaitForEvent(e, 10));  // auto-reset
  zrOSCloseEvent(e);
  EXPECT_EQ(kZrWaitFailed, zrOSWaitForEvent(nullptr, 5));
  EXPECT_EQ(0, zrOSSetEvent(nullptr) + zrOSCloseEvent(nullptr));
  ZrCriticalSection cs;
  zrOSInitializeCriticalSection(&cs);
  zrOSEnterCriticalSection(&cs);
  EXPECT_NE(0, zrOSTryEnterCriticalSection(&cs));  // recursive
  const auto tryFromAnotherThread = [&cs] {
    int got = 0;
    std::thread([&] {
      if ((got = zrOSTryEnterCriticalSection(&cs))) zrOSLeaveCriticalSection(&cs);
    }).join();
    return got;
  };
  EXPECT_EQ(0, tryFromAnotherThread());
  zrOSLeaveCriticalSection(&cs);
  zrOSLeaveCriticalSection(&cs);
  EXPECT_NE(0, tryFromAnotherThread());
  zrOSDeleteCriticalSection(&cs);
}

struct Job {
  volatile int* count;
  char name[16];
};

unsigned int Worker(void* p) {
  auto* job = static_cast<Job*>(p);
  pthread_getname_np(pthread_self(), job->name, sizeof job->name);
  return zrOSInterlockedDecrement(job->count) + 7;
}

TEST(Sync, NamedDetachedWorkersPrioritiesAndCounters) {
  volatile int count = 0;
  Job jobs[4];
  for (Job& job : jobs) {
    job = Job{&count, {}};
    zrOSInterlockedIncrement(&count);
    unsigned long id = 0;
    ZrHandle h = zrOSCreateThread(nullptr, 0, Worker, &job, 0, &id, "dffx");
    EXPECT_NE(0u, id);
    EXPECT_NE(0, zrOSSetThreadPriority(h, 15));
    EXPECT_EQ(15, zrOSGetThreadPriority(h));
    zrOSCloseThread(h, "dffx");  // does not wait
  }
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (zrOSInterlockedRead(&count) != 0 && std::chrono::steady_clock::now() < deadline) usleep(1000);
  ASSERT_EQ(0, zrOSInterlockedRead(&count));
  for (const Job& job : jobs) EXPECT_STREQ("dffx", job.name);
  ZrHandle self = zrOSGetCurrentThread();
  zrOSSetThreadPriority(self, 15);
  int other = -1;
  std::thread([&] { other = zrOSGetThreadPriority(zrOSGetCurrentThread()); }).join();
  EXPECT_EQ(15 * 100, zrOSGetThreadPriority(self) * 100 + other);  // kept per thread
  zrOSSetThreadPriority(self, 0);
}

}  // namespace
