// The state at load, in a process of its own: nothing has been read or
// chosen, and every public name runs the slot-0 routine until a host calls
// ippInit. Resizing reads no feature and changes no index.
#include <gtest/gtest.h>

#include <vector>

#include "resize/cpu_features.h"
#include "resize/resize_dispatch.h"

TEST(ResizeLoadState, LowestVariantUntilInit) {
  std::vector<uint8_t> src{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, dst(8), scratch(144);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(ippJumpIndexForMergedLibs + ippJumpIndexForMergedLibsLP + ownFeaturesAreValid, 0);
    EXPECT_EQ(ippGetEnabledCpuFeatures(), 7u);
    ippiResizeSqrPixel_8u_C4R(src.data(), {3, 1}, 12, {0, 0, 3, 1}, dst.data(), 8, {0, 0, 2, 1}, 0.5, 1.0,
                              0.0, 0.0, ZRIPP_INTER_NN, scratch.data());
  }
  EXPECT_EQ(dst, (std::vector<uint8_t>{0, 1, 2, 3, 8, 9, 10, 11}));
}
