// Resize calls on their own scratch run in parallel, and the variant may be
// switched between calls while they do: the variants agree, and the index
// and feature words are race-free words.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "common/test_random.h"
#include "resize_test_util.h"

namespace zr::test {
namespace {

TEST(ResizeThreads, ParallelCallsWhileTheVariantChanges) {
  DispatchStateGuard guard;
  const int32_t w = 203, h = 9;
  std::vector<uint8_t> src(4 * w * h);
  Rng(0x7EAD5EEDull).Fill(src.data(), src.size());
  auto resize = [&](std::vector<uint8_t>& dst) {
    int32_t size = 0;
    ippiResizeGetBufSize(Rect(0, 0, w, h), Rect(0, 0, w, h), 1, ZRIPP_INTER_NN, &size);
    uint8_t* scratch = ippsMalloc_8u(size);
    const IppStatus status =
        ippiResizeSqrPixel_8u_C4R(src.data(), Size(w, h), 4 * w, Rect(0, 0, w, h), dst.data(), 4 * w,
                                  Rect(0, 0, w, h), 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_NN, scratch);
    ippsFree(scratch);
    return status;
  };
  std::vector<uint8_t> want(4 * w * h, 0);
  ASSERT_EQ(resize(want), 0);

  std::vector<std::vector<uint8_t>> outs(2, std::vector<uint8_t>(4 * w * h, 0));
  std::vector<int> failures(2, 0);
  std::vector<std::thread> workers;
  for (int t = 0; t < 2; ++t)
    workers.emplace_back([&, t] {
      for (int i = 0; i < 200; ++i) failures[t] += resize(outs[t]) != 0 || outs[t] != want;
    });
  for (int i = 0; i < 200; ++i) i % 2 ? ippInit() : ippInitCpu(0);
  for (std::thread& worker : workers) worker.join();
  EXPECT_EQ(failures[0], 0);
  EXPECT_EQ(failures[1], 0);
}

}  // namespace
}  // namespace zr::test
