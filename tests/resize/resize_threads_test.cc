// Resize calls on their own scratch run in parallel while the variant is
// switched between them: the variants agree, and the index and feature
// words are race-free.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "common/test_random.h"
#include "zripp.h"

TEST(ResizeThreads, ParallelCallsWhileTheVariantChanges) {
  std::vector<uint8_t> src(4 * 203 * 9), want(src.size());
  zr::test::Rng(0x7EAD5EEDull).Fill(src.data(), src.size());
  const auto resize = [&](std::vector<uint8_t>& dst) {
    std::vector<uint8_t> scratch(64 * (13 + 1) + 16);
    return ippiResizeSqrPixel_8u_C4R(src.data(), {203, 9}, 4 * 203, {0, 0, 203, 9}, dst.data(), 4 * 203,
                                     {0, 0, 203, 9}, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_NN, scratch.data());
  };
  ASSERT_EQ(resize(want), 0);
  std::atomic<int> failures{0};
  const auto work = [&] {
    std::vector<uint8_t> out(src.size());
    for (int i = 0; i < 200; ++i) failures += resize(out) != 0 || out != want;
  };
  std::thread a(work), b(work);
  for (int i = 0; i < 200; ++i) i % 2 ? ippInit() : ippInitCpu(0);
  a.join(), b.join();
  EXPECT_EQ(failures, 0);
}
