// The state at load, in a process of its own: nothing has been read or
// chosen, and every public name runs the slot-0 routine until a host calls
// ippInit.
#include <gtest/gtest.h>

#include <vector>

#include "resize_test_util.h"

namespace zr::test {
namespace {

TEST(ResizeLoadState, LowestVariantUntilInit) {
  EXPECT_EQ(ippJumpIndexForMergedLibs.load(), 0);
  EXPECT_EQ(ippJumpIndexForMergedLibsLP.load(), 0);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 7u);
  EXPECT_EQ(ownFeaturesAreValid.load(), 0);

  // Resizing reads no feature and changes no index.
  const int32_t w = 6, h = 2;
  std::vector<uint8_t> src(4 * w * h), dst(4 * w * h, 0);
  for (size_t i = 0; i < src.size(); ++i) src[i] = static_cast<uint8_t>(i);
  int32_t size = 0;
  ASSERT_EQ(ippiResizeGetBufSize(Rect(0, 0, w, h), Rect(0, 0, w, h), 1, ZRIPP_INTER_NN, &size), 0);
  uint8_t* scratch = ippsMalloc_8u(size);
  ASSERT_EQ(ippiResizeSqrPixel_8u_C4R(src.data(), Size(w, h), 4 * w, Rect(0, 0, w, h), dst.data(), 4 * w,
                                      Rect(0, 0, w, h), 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_NN, scratch),
            0);
  ippsFree(scratch);
  EXPECT_EQ(PixelAt(&dst[4]), PixelAt(&src[8]));
  EXPECT_EQ(ippJumpIndexForMergedLibs.load(), 0);
  EXPECT_EQ(ownFeaturesAreValid.load(), 0);
}

}  // namespace
}  // namespace zr::test
