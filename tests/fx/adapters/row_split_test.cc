// The two-thread row split of the adapters: every row once, a new thread from
// 64 rows on, any rows it does at priority 15, all rows on the caller when no
// thread can be had; and when rows in dst may be shared out.
#include "fx/adapters/row_split.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace zr::fx {
namespace {

int gCreated;

ZrHandle CountedThread(void* security, size_t stack, ZrThreadEntry entry, void* parameter, unsigned int flags,
                       unsigned long* id, const char* name) {
  ++gCreated;
  return zrOSCreateThread(security, stack, entry, parameter, flags, id, name);
}

ZrHandle NoThread(void*, size_t, ZrThreadEntry, void*, unsigned int, unsigned long*, const char*) {
  return ++gCreated, nullptr;
}

TEST(RowSplit, EveryRowOnceOnTwoThreadsFrom64Rows) {
  const auto self = std::this_thread::get_id();
  const int own = zrOSGetThreadPriority(zrOSGetCurrentThread());
  for (const CreateThreadFn create : {CountedThread, NoThread})
    for (const uint32_t height : {0u, 1u, 63u, 64u, 65u, 1001u}) {
      // Which thread did each row, at what priority, and how often.
      std::vector<std::thread::id> by(height);
      std::vector<int> times(height), priority(height);
      gCreated = 0;
      SplitRows(
          height,
          [&](uint32_t first, uint32_t last) {
            for (uint32_t y = first; y < last; ++y) {
              by[y] = std::this_thread::get_id(), ++times[y];
              priority[y] = zrOSGetThreadPriority(zrOSGetCurrentThread());
            }
          },
          create);
      EXPECT_EQ(gCreated, height >= 64) << height;
      for (uint32_t y = 0; y < height; ++y) {
        ASSERT_EQ(times[y], 1) << height << " row " << y;
        const bool caller = by[y] == self;
        ASSERT_TRUE(caller || create == CountedThread) << height << " row " << y;
        ASSERT_EQ(priority[y], caller ? own : 15) << height << " row " << y;
      }
    }
}

// While the caller is held up in its first rows, the new thread takes the
// others on.
TEST(RowSplit, NewThreadTakesRowsWhileTheCallerIsBusy) {
  const auto self = std::this_thread::get_id();
  std::atomic<uint32_t> byNewThread{0};
  bool held = false;
  SplitRows(1001, [&](uint32_t first, uint32_t last) {
    if (std::this_thread::get_id() != self) return void(byNewThread += last - first);
    for (int i = 0; i < 10000 && !held && byNewThread == 0; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    held = true;
  });
  EXPECT_GT(byNewThread, 0u);
}

// Rows may go to two threads only when no two share a byte: a pitch below the
// row, or a last row that ends past 4 GiB, where offsets wrap, keeps them on
// one.
TEST(RowSplit, RowsApart) {
  const struct {
    uint32_t pitch;
    uint64_t rowBytes;
    uint32_t height;
    bool apart;
  } cases[] = {
      {52, 52, 97, true},
      {51, 52, 97, false},
      {0, 52, 1, true},
      {0, 52, 2, false},
      {1u << 31, 1u << 31, 2, true},
      {1u << 31, 16, 3, false},
      {0x80000001u, 0x7FFFFFFFu, 2, true},
      {0x80000001u, 0x80000000u, 2, false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(RowsApart(c.pitch, c.rowBytes, c.height), c.apart) << c.pitch << " " << c.rowBytes;
}

}  // namespace
}  // namespace zr::fx
