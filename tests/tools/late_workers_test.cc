// RunAndJoinWorkers waits for the library's workers only after a call that
// the driver may have stopped waiting on, and then until every one is gone.
#include "zrfx/late_workers.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace zrfx {
namespace {

using namespace std::chrono_literals;

// A thread named as the library names its workers.
template <class Body>
std::thread Worker(Body body) {
  std::thread t(std::move(body));
  pthread_setname_np(t.native_handle(), "dffx");
  return t;
}

TEST(LateWorkers, ASlowCallWaitsForEveryWorkerAndAQuickOneDoesNot) {
  std::atomic<bool> through{false};
  std::thread late;
  RunAndJoinWorkers([&] {
    late = Worker([&] {
      std::this_thread::sleep_for(kDriverPatience + 100ms);
      through = true;
    });
    std::this_thread::sleep_for(kDriverPatience);
  });
  EXPECT_TRUE(through);
  late.join();

  std::promise<void> release;
  std::thread waiting;
  RunAndJoinWorkers([&] { waiting = Worker([gate = release.get_future()] { gate.wait_for(30s); }); });
  EXPECT_TRUE(AnyLibraryWorker());
  release.set_value();
  waiting.join();
  EXPECT_FALSE(AnyLibraryWorker());
}

}  // namespace
}  // namespace zrfx
