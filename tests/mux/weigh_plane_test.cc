// weigh_plane through its exported entry: the rounding and the wrap, empty
// and negative sizes, negative pitches and overlap.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "zrmux.h"

namespace zr::test {
namespace {

uint8_t WeighOne(uint8_t d, uint8_t s, int32_t weightSrc, int32_t weightDst) {
  weigh_plane(&d, &s, 1, 1, 1, 1, weightSrc, weightDst);
  return d;
}

TEST(WeighPlane, RoundsHalvesUpAndWrapsPast255) {
  EXPECT_EQ(WeighOne(201, 100, 32768, 32768), 151);
  EXPECT_EQ(WeighOne(201, 100, 65536, 0), 100);
  EXPECT_EQ(WeighOne(201, 100, 0, 65536), 201);
  EXPECT_EQ(WeighOne(100, 200, 65536, 65536), 44);  // 300 loses its high bits
  EXPECT_EQ(WeighOne(128, 128, 65536, 65536), 0);   // 256 stores as 0
  EXPECT_EQ(WeighOne(0, 1, 32767, 0), 0);           // 0.49998 rounds down
  EXPECT_EQ(WeighOne(0, 1, 32768, 0), 1);           // a half rounds up
  EXPECT_EQ(WeighOne(10, 0, 0, -65536), 246);       // negative weights wrap too
}

TEST(WeighPlane, EmptyOrNegativeSizesTouchNothing) {
  GuardedBuffer dst(64), src(64);
  for (int i = 0; i < 64; ++i) dst[i] = static_cast<uint8_t>(i), src[i] = 200;
  const std::vector<uint8_t> before(dst.data(), dst.data() + 64);
  for (const auto& [w, h] : {std::pair{0, 4}, {4, 0}, {-3, 4}, {4, -1}, {-1, -1}})
    weigh_plane(dst.data(), src.data(), 16, 16, w, h, 65536, 0);
  EXPECT_EQ(std::vector<uint8_t>(dst.data(), dst.data() + 64), before);
  EXPECT_TRUE(dst.GuardsIntact());
}

// A bottom-up plane: the first row is the last in memory, so the call equals
// one call per row from the bottom of memory up.
TEST(WeighPlane, NegativePitchesWalkUpwards) {
  constexpr int32_t kW = 21, kH = 6;
  Rng rng(77);
  std::vector<uint8_t> dst(kW * kH), src(kW * kH);
  rng.Fill(dst.data(), dst.size());
  rng.Fill(src.data(), src.size());
  std::vector<uint8_t> want = dst;
  for (int32_t y = 0; y < kH; ++y)
    weigh_plane(want.data() + kW * (kH - 1 - y), src.data() + kW * y, kW, kW, kW, 1, 40000, 25536);
  weigh_plane(dst.data() + kW * (kH - 1), src.data(), -kW, kW, kW, kH, 40000, 25536);
  EXPECT_EQ(dst, want);
}

// src one byte behind dst: each result is read again as the next src byte.
TEST(WeighPlane, OverlappingPlanesAreTakenInAscendingOrder) {
  std::vector<uint8_t> plane(40, 0);
  plane[0] = 200;
  weigh_plane(plane.data() + 1, plane.data(), 40, 40, 39, 1, 32768, 32768);
  uint32_t expect = 200;
  for (int x = 1; x < 40; ++x) {
    expect = (expect * 32768 + 32768) >> 16;  // (src + 0) / 2, rounded
    ASSERT_EQ(plane[x], expect) << "x " << x;
  }
}

}  // namespace
}  // namespace zr::test
