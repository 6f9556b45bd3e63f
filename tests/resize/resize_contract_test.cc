// The resize contract: statuses and the order of their checks, the scratch
// size and the tables in it, and the allocator.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "zripp.h"

namespace zr::test {
namespace {

constexpr int32_t kNN = ZRIPP_INTER_NN;

TEST(ResizeContract, GetBufSizeChecksInOrder) {
  const IppiRect good{0, 0, 8, 8};
  // The size stored, 99 when nothing is.
  const auto size = [](IppiRect src, IppiRect dst, int32_t channels, int32_t interpolation, IppStatus want) {
    int32_t bytes = 99;
    EXPECT_EQ(ippiResizeGetBufSize(src, dst, channels, interpolation, &bytes), want);
    return bytes;
  };
  EXPECT_EQ(ippiResizeGetBufSize({-1, 0, 0, 0}, good, 7, 3, nullptr), ZRIPP_NULL_PTR_ERR);
  EXPECT_EQ(size({0, 0, 1920, 1080}, {0, 0, 1920, 1080}, 1, kNN, 0), 12048);
  EXPECT_EQ(size(good, {0, 0, 1, 1}, 4, kNN, 0), 144);
  EXPECT_EQ(size(good, {0, 0, 16 * 33554430, 1}, 4, kNN, 0), 2147483600);  // the largest below 2 GiB
  EXPECT_EQ(size(good, {0, 0, 16 * 33554431, 1}, 4, kNN, ZRIPP_SIZE_ERR), 0);
  for (IppiRect bad : {IppiRect{-1, 0, 8, 8}, {0, -1, 8, 8}, {0, 0, 0, 8}, {0, 0, 8, 0}})
    EXPECT_EQ(size(bad, good, 7, 3, ZRIPP_SIZE_ERR) + size(good, bad, 7, 3, ZRIPP_SIZE_ERR), 198) << bad.x;
  EXPECT_EQ(size(good, good, 2, 3, ZRIPP_CHANNEL_ERR), 99);
  EXPECT_EQ(size(good, good, 0, kNN, ZRIPP_CHANNEL_ERR), 99);
  // Two flags.
  EXPECT_EQ(size(good, good, 1, kNN | ZRIPP_INTER_ANTIALIAS | ZRIPP_INTER_SMOOTH_EDGE, -22), 99);
  // Numbers 1, 2, 4 to 8 and 16 with at most one flag are accepted; nearest
  // neighbour alone or with the antialiasing flag is built.
  for (int32_t flag : {0, ZRIPP_INTER_ANTIALIAS, ZRIPP_INTER_SUBPIXEL_EDGE, ZRIPP_INTER_SMOOTH_EDGE})
    for (int32_t n = 0; n < 40; ++n) {
      const bool accepted = n == 1 || n == 2 || (n >= 4 && n <= 8) || n == 16;
      const bool built = n == kNN && (flag == 0 || flag == ZRIPP_INTER_ANTIALIAS);
      int32_t bytes = 0;
      EXPECT_EQ(ippiResizeGetBufSize(good, good, 4, n | flag, &bytes), !accepted ? ZRIPP_INTERPOLATION_ERR
                                                                       : built   ? 0
                                                                                 : ZRIPP_MODE_NOT_BUILT)
          << n << " flag " << flag;
    }
}

// Every refusal, in the order of the checks, leaves the destination and the
// scratch as they were.
TEST(ResizeContract, SqrPixelChecksInOrder) {
  std::vector<uint8_t> src(128), dst(128, 0x11), scratch(1024);
  const IppiSize size{8, 4};
  const IppiRect all{0, 0, 8, 4}, past{8, 0, 1, 1};
  // The status, or 1000 if anything was written. `null`: 1 pSrc, 2 pDst, 3 pBuffer.
  const auto run = [&](IppiSize size, IppiRect srcRoi, IppiRect dstRoi, double xf, double yf, double xs,
                       double ys, int32_t interpolation, int null = 0) {
    const IppStatus status = ippiResizeSqrPixel_8u_C4R(
        null == 1 ? nullptr : src.data(), size, 32, srcRoi, null == 2 ? nullptr : dst.data(), 32, dstRoi, xf,
        yf, xs, ys, interpolation, null == 3 ? nullptr : scratch.data());
    return dst == std::vector<uint8_t>(128, 0x11) && scratch == std::vector<uint8_t>(1024) ? status : 1000;
  };
  // A null scratch before all else.
  EXPECT_EQ(run({0, 0}, {-1, 0, 0, 0}, all, 0.0, 0.0, 0.0, 0.0, 3, 3), ZRIPP_NULL_PTR_ERR);
  EXPECT_EQ(run(size, all, all, 0.5, 1.0, 0.0, 0.0, kNN, 1), ZRIPP_NULL_PTR_ERR);
  EXPECT_EQ(run({0, 4}, all, all, 0.0, 1.0, 0.0, 0.0, 3), ZRIPP_SIZE_ERR);
  EXPECT_EQ(run(size, {0, -1, 8, 4}, all, 0.5, 1.0, 0.0, 0.0, kNN), ZRIPP_SIZE_ERR);
  EXPECT_EQ(run(size, all, {0, 0, 8, 0}, 0.5, 1.0, 0.0, 0.0, kNN), ZRIPP_SIZE_ERR);
  EXPECT_EQ(run(size, all, all, 0.0, 1.0, 0.0, 0.0, 3), ZRIPP_FACTOR_ERR);
  EXPECT_EQ(run(size, past, all, 0.5, 1.0, 0.0, 0.0, 3), ZRIPP_INTERPOLATION_ERR);
  EXPECT_EQ(run(size, past, all, 0.5, 1.0, 0.0, 0.0, kNN), ZRIPP_ROI_OUTSIDE_SOURCE);
  EXPECT_EQ(run(size, {0, 4, 1, 1}, all, 0.5, 1.0, 0.0, 0.0, kNN), ZRIPP_ROI_OUTSIDE_SOURCE);
  EXPECT_EQ(run(size, past, all, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_LINEAR), ZRIPP_ROI_OUTSIDE_SOURCE);
  // The scaled picture misses the destination rectangle, or lies nowhere.
  EXPECT_EQ(run(size, all, all, 0.01, 1.0, 0.0, 0.0, kNN), ZRIPP_NO_OUTPUT);
  EXPECT_EQ(run(size, all, all, 1.0, 1.0, NAN, 0.0, kNN), ZRIPP_NO_OUTPUT);
  EXPECT_EQ(run(size, all, all, 1.0, 1.0, 0.0, -INFINITY, kNN), ZRIPP_NO_OUTPUT);
  EXPECT_EQ(run(size, all, all, 1.0, 1.0, 3e9, 0.0, kNN), ZRIPP_NO_OUTPUT);
}

// The column table at the first 16-byte boundary of the scratch, the row
// table at the next one behind it. At factor 0.5, the 1e-10 taken off each
// mapped centre keeps column j on source column 2j, not 2j + 1.
TEST(ResizeContract, TablesInScratch) {
  std::vector<uint8_t> src(92 * 7), dst(84 * 7), scratch(208 + 16);
  uint8_t* buffer = scratch.data() + 4 + (16 - reinterpret_cast<uintptr_t>(scratch.data()) % 16) % 16;
  ASSERT_EQ(ippiResizeSqrPixel_8u_C4R(src.data(), {21, 7}, 92, {0, 0, 21, 7}, dst.data(), 84, {0, 0, 21, 7},
                                      0.5, 1.0, 0.0, 0.0, kNN, buffer),
            0);
  std::vector<int32_t> tables(19);  // 11 columns, a gap to the next 16 bytes, 7 rows
  std::memcpy(tables.data(), buffer + 12, 76);
  EXPECT_EQ(tables, (std::vector<int32_t>{0, 8, 16, 24, 32, 40, 48, 56, 64, 72, 80, 0, 0, 92, 184, 276, 368,
                                          460, 552}));
}

// The replaceable allocator: what it is asked for and what it gets back.
size_t gAsked = 0;
void *gRaw = nullptr, *gFreed = nullptr;

TEST(ResizeContract, AllocatorAlignsAndKeepsTheRawPointerInFront) {
  EXPECT_EQ(ippsMalloc_8u(0) == nullptr && ippsMalloc_8u(-5) == nullptr, true);
  ippsFree(nullptr);
  void* (*const savedMalloc)(size_t) = i_malloc;
  void (*const savedFree)(void*) = i_free;
  i_malloc = [](size_t n) { return gRaw = std::malloc(gAsked = n); };
  i_free = [](void* p) { std::free(gFreed = p); };
  uint8_t* p = ippsMalloc_8u(12048);
  EXPECT_EQ(gAsked, 12048u + 72);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(p), (reinterpret_cast<uintptr_t>(gRaw) + 71) & ~uintptr_t{63});
  EXPECT_EQ(std::memcmp(p - 8, &gRaw, 8), 0);
  std::memset(p, 0x5A, 12048);  // the whole block is usable
  ippsFree(p);
  EXPECT_EQ(gFreed, gRaw);
  i_malloc = [](size_t) -> void* { return nullptr; };
  EXPECT_EQ(ippsMalloc_8u(100), nullptr);
  i_malloc = savedMalloc, i_free = savedFree;
}

}  // namespace
}  // namespace zr::test
