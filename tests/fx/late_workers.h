// The driver stops waiting after 100 ms, so on a loaded machine a worker may
// still be writing its band when the call returns. Tests that read or free a
// frame after a driver call first wait for every worker to let go of its job
// block.
#ifndef ZR_TESTS_FX_LATE_WORKERS_H
#define ZR_TESTS_FX_LATE_WORKERS_H

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "fx/band_job.h"

namespace zr::test {

inline void WaitForLateWorkers() {
  for (int i = 0; i < 60000 && fx::BandJobBlock::LiveBlocks() != 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  ASSERT_EQ(fx::BandJobBlock::LiveBlocks(), 0) << "a worker never finished";
}

}  // namespace zr::test

#endif
