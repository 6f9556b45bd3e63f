// Every vector form of the kernel family against the scalar reference, on
// seeded random data over many sizes, and golden checksums of whole calls
// that every variant and every build must reproduce.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "common/crc32.h"
#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "resize/cpu_features.h"
#include "resize/resize_dispatch.h"
#include "resize/resize_variants.h"

namespace zr::test {
namespace {

// Each variant: name, kernels, entry and the features its instructions need.
const std::tuple<const char*, const ownResizeKernels*, ownResizeSqrPixelFn, uint64_t> kResizeVariants[] = {
    {"m7", &m7_ownResizeKernels, m7_ippiResizeSqrPixel_8u_C4R, kOwnSSE2},
    {"u8", &u8_ownResizeKernels, u8_ippiResizeSqrPixel_8u_C4R, kOwnSSE3 | kOwnSSSE3},
    {"y8", &y8_ownResizeKernels, y8_ippiResizeSqrPixel_8u_C4R, kOwnSSSE3 | kOwnSSE41 | kOwnSSE42},
    {"e9", &e9_ownResizeKernels, e9_ippiResizeSqrPixel_8u_C4R,
     kOwnSSE41 | kOwnSSE42 | kOwnAVX | kOwnAVXUsable},
};

// From the processor itself, not from the engine's stored (and possibly forced) word.
bool MachineHas(uint64_t features) {
  uint64_t word = 0;
  return ownReadCpuFeatures(&word) && (word & features) == features;
}

// The table fill, also with mappings and offsets that leave the 32-bit range,
// and each row form over sources that end at their last needed byte, into
// guarded destinations 4-byte aligned or not.
TEST(ResizeKernels, EveryFormMatchesScalar) {
  const double kInv[] = {2.0, 1.0, 0.5, 1 / 0.37, 1 / 3.0, 1e12, -0.75},
               kOff[] = {-1e-10, -5, 1.25, -3e9, 7.5};
  using K = ownResizeKernels;
  constexpr ownResizeRowFn K::*kRows[] = {&K::rowCopy, &K::rowHalf, &K::rowHalfStream, &K::rowGather};
  Rng rng(0x7AB1E5EEDull);
  for (const auto& [name, kernels, resize, needs] : kResizeVariants)
    for (int32_t n = 1; MachineHas(needs) && n < 1100; n += n < 40 ? 1 : 97) {
      const int32_t first = n % 3 ? n * 37 : INT32_MAX - n, scale = n % 2 ? 4 : int32_t(rng.Next32());
      std::vector<int32_t> want(n), got(n), col(n);
      ownResizeKernels_C.fillTable(want.data(), first, n, kInv[n % 7], kOff[n % 5], scale);
      kernels->fillTable(got.data(), first, n, kInv[n % 7], kOff[n % 5], scale);
      ASSERT_EQ(got, want) << name << " n " << n;
      for (size_t form = 0; form < 4; ++form) {
        for (int32_t j = 0; j < n; ++j) col[j] = form == 3 ? 4 * rng.Below(n + 3) : (form ? 8 : 4) * j;
        std::vector<uint8_t> src(form == 3 ? 4 * (n + 3) : (form ? 8 : 4) * (n - 1) + 4), ref(4 * n);
        rng.Fill(src.data(), src.size());
        (ownResizeKernels_C.*kRows[form])(src.data(), col.data(), ref.data(), n);
        for (size_t misalign : {0, 1, 4, 12}) {
          GuardedBuffer dst(4 * n, misalign);
          (kernels->*kRows[form])(src.data(), col.data(), dst.data(), n);
          ASSERT_TRUE(std::equal(ref.begin(), ref.end(), dst.data()) && dst.GuardsIntact())
              << name << " form " << form << " n " << n << " misalign " << misalign;
        }
      }
    }
}

struct Task {
  int32_t srcW, srcH, srcStep, dstW, dstH, dstStep;
  IppiRect srcRoi, dstRoi;
  double xf, yf, xs, ys;
  size_t srcMis, dstMis, scratchMis;
  int32_t interpolation = ZRIPP_INTER_NN;
};

// The CRC of the whole destination after one call on a seeded source that
// ends where its last row does, with a scratch of exactly the queried size.
// With a negative step the first row is the last in memory.
uint32_t RunTask(const Task& t, ownResizeSqrPixelFn resize) {
  const size_t srcBytes = size_t(std::abs(t.srcStep)) * (t.srcH - 1) + 4 * t.srcW,
               dstBytes = size_t(std::abs(t.dstStep)) * t.dstH;
  std::vector<uint8_t> src(srcBytes + t.srcMis), dst(dstBytes + t.dstMis);
  Rng fill(0x601D5EEDull);
  fill.Fill(src.data() + t.srcMis, srcBytes);
  fill.Fill(dst.data() + t.dstMis, dstBytes);
  int32_t size = 0;
  EXPECT_EQ(ippiResizeGetBufSize(t.srcRoi, t.dstRoi, 4, ZRIPP_INTER_NN, &size), 0);
  std::vector<uint8_t> scratch(size + t.scratchMis);
  uint8_t* pDst = dst.data() + t.dstMis + (t.dstStep < 0 ? size_t(-t.dstStep) * (t.dstH - 1) : 0);
  EXPECT_EQ(resize(src.data() + t.srcMis + (t.srcStep < 0 ? size_t(-t.srcStep) * (t.srcH - 1) : 0),
                   {t.srcW, t.srcH}, t.srcStep, t.srcRoi, pDst, t.dstStep, t.dstRoi, t.xf, t.yf, t.xs, t.ys,
                   t.interpolation, scratch.data() + t.scratchMis),
            t.interpolation == ZRIPP_INTER_NN ? ZRIPP_OK : ZRIPP_ANTIALIAS_IGNORED);
  return Crc32(dst.data() + t.dstMis, dstBytes);
}

// clang-format off
const std::pair<Task, uint32_t> kGolden[] = {
    {{61, 17, 244, 61, 17, 244, {0, 0, 61, 17}, {0, 0, 61, 17}, 0.5, 1.0, 0, 0, 0, 0, 0}, 0x32993273u},  // the mux's half, odd width
    {{1920, 4, 7680, 1920, 4, 7680, {0, 0, 1920, 4}, {0, 0, 1920, 4}, 0.5, 1.0, 0, 0, 1, 0, 0}, 0xEFF8BD76u},
    {{45, 31, 190, 31, 51, 132, {3, 2, 40, 25}, {1, 1, 30, 50}, 0.37, 1.7, 0.5, -1.25, 1, 1, 5}, 0x3BE15258u},
    // Large enough for the output to be streamed around the caches.
    {{4096, 1040, 16384, 4096, 1040, 16384, {0, 0, 4096, 1040}, {0, 0, 4096, 1040}, 0.5, 1.0, 0, 0, 0, 4, 0}, 0xED5B8250u},
    {{33, 9, -140, 70, 5, 280, {0, 0, 33, 9}, {3, 0, 60, 5}, 2.0, 0.5, 0, 0, 0, 1, 9}, 0x1EADC2BBu},  // cut at the left
    {{37, 5, 156, 37, 5, 148, {0, 0, 500, 90}, {0, 0, 37, 5}, 1.0, 1.0, 0, 0, 0, 0, 3}, 0xA17A27ACu},  // srcRoi cut to the image
    {{10, 4, 40, 10, 4, 40, {4, 1, 3, 2}, {0, 0, 10, 4}, 1.0, 1.0, 0, 0, 0, 0, 0}, 0x2FE7DB1Cu},  // absolute coordinates
    {{4, 3, 16, 8, 3, -36, {0, 0, 4, 3}, {0, 0, 8, 3}, 1.0, 1.0, 2.5, 0, 0, 0, 0}, 0x847DDB42u},  // shifted, bottom-up
    {{12, 3, 48, 12, 3, 48, {0, 0, 12, 3}, {0, 0, 12, 3}, 0.5, 1.0, 0, 0, 0, 0, 0, ZRIPP_INTER_NN | ZRIPP_INTER_ANTIALIAS}, 0x5B0CDC5Eu},
};
// clang-format on

TEST(ResizeKernels, GoldenChecksums) {
  for (const auto& [task, crc] : kGolden) {
    EXPECT_EQ(RunTask(task, ippiResizeSqrPixel_8u_C4R), crc) << "public name, CRC " << std::hex << crc;
    for (const auto& [name, kernels, resize, needs] : kResizeVariants)
      EXPECT_EQ(MachineHas(needs) ? RunTask(task, resize) : crc, crc) << name << ", CRC " << std::hex << crc;
  }
}

}  // namespace
}  // namespace zr::test
