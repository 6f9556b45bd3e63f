// Scratch shared with the driver's workers outlives the driver's bounded
// wait: a worker that finishes late still writes into live memory (the
// sanitizer build catches a write into a freed block).
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "fx/late_workers.h"
#include "fx/run_bands.h"
#include "platform/zrutil.h"

namespace {

constexpr size_t kBytes = 4096;

// Outlasts the driver's 100 ms bound, then writes its band's four-byte pixels.
uint32_t SlowEffect(uint8_t*, uint32_t, uint8_t*, uint32_t pitchB, uint8_t* dst, uint32_t, uint32_t, uint32_t,
                    uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                    uint32_t, uint32_t bandLeft, uint32_t bandRight, uint32_t bandTop, uint32_t bandBottom) {
  std::this_thread::sleep_for(std::chrono::milliseconds(250));
  for (uint32_t y = bandTop; y < bandBottom; ++y)
    std::memset(dst + y * pitchB + bandLeft * 4, 0x5A, (bandRight - bandLeft) * 4);
  return 0;
}

TEST(SharedScratch, LateWorkersKeepTheBlockAlive) {
  void* block = ZrAlloc(kBytes);
  ASSERT_NE(block, nullptr);
  zr::fx::SharedScratch* scratch = zr::fx::SharedScratch::Adopt(block, kBytes);
  auto* rows = static_cast<uint8_t*>(block);
  const auto start = std::chrono::steady_clock::now();
  zr::fx::RunBands({rows, 64, rows, 64, rows, 64, 0, 1, 16, 32, 0, 0, 0, 0, 0, 0, 100, 50, 0, 0, 0, 0},
                   SlowEffect, scratch);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(240));
  // The adapter lets go while the workers are still asleep.
  scratch->Release();
  zr::test::WaitForLateWorkers();
}

TEST(SharedScratch, LastReleaseFreesWhoeverMakesIt) {
  void* block = ZrAlloc(kBytes);
  ASSERT_NE(block, nullptr);
  zr::fx::SharedScratch* scratch = zr::fx::SharedScratch::Adopt(block, kBytes);
  scratch->AddRef();
  scratch->Release();
  // Still held: the block is writable up to the count at its end.
  std::memset(block, 1, kBytes - 64);
  scratch->Release();
}

}  // namespace
