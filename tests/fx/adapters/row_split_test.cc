// The two-thread row split of the adapters: every row once, the upper half on
// a new thread at priority 15 from 64 rows on, all rows on the caller when no thread can be
// had, and when rows in dst may be shared out.
#include "fx/adapters/row_split.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace zr::fx {
namespace {

ZrHandle NoThread(void*, size_t, ZrThreadEntry, void*, unsigned int, unsigned long*, const char*) {
  return nullptr;
}

TEST(RowSplit, EveryRowOnceUpperHalfOnANewThread) {
  const auto self = std::this_thread::get_id();
  const int own = zrOSGetThreadPriority(zrOSGetCurrentThread());
  for (const CreateThreadFn create : {zrOSCreateThread, NoThread})
    for (const uint32_t height : {0u, 1u, 63u, 64u, 65u, 1001u}) {
      // Which thread did each row, at what priority, and how often.
      std::vector<std::thread::id> by(height);
      std::vector<int> times(height), priority(height);
      SplitRows(
          height,
          [&](uint32_t first, uint32_t last) {
            for (uint32_t y = first; y < last; ++y) {
              by[y] = std::this_thread::get_id(), ++times[y];
              priority[y] = zrOSGetThreadPriority(zrOSGetCurrentThread());
            }
          },
          create);
      const bool split = create != NoThread && height >= 64;
      for (uint32_t y = 0; y < height; ++y) {
        ASSERT_EQ(times[y], 1) << height << " row " << y;
        const bool upper = split && y < height / 2;
        ASSERT_EQ(by[y] != self, upper) << height << " row " << y;
        ASSERT_EQ(priority[y], upper ? 15 : own) << height << " row " << y;
      }
    }
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
