// Processor dispatch: the feature word, the choice of a variant from it or
// from a processor code, and the feature calls. Each test leaves a variant
// that this build's baseline runs.
#include "resize/resize_dispatch.h"

#include <cpuid.h>
#include <gtest/gtest.h>

#include <vector>

#include "resize/cpu_features.h"
#include "resize/cpu_init.h"
#include "zripp.h"

namespace zr::test {
namespace {

// Index, second index, mask, and then the stored feature word and its flag.
std::vector<uint64_t> State() {
  return {uint64_t(ippJumpIndexForMergedLibs), uint64_t(ippJumpIndexForMergedLibsLP),
          ippGetEnabledCpuFeatures(), ownFeatures, uint64_t(ownFeaturesAreValid)};
}

// Each line of ippStaticInit's ladder, from index 3, second index 1 and mask
// 0x7FFF each time. Another vendor runs the same variant and is told so.
TEST(ResizeDispatch, StaticInitLadder) {
  const uint64_t sse2 = kOwnMMX | kOwnSSE | kOwnSSE2, ssse3 = sse2 | kOwnSSE3 | kOwnSSSE3;
  // clang-format off
  const uint64_t sse41 = ssse3 | kOwnSSE41 | kOwnSSE42 | kOwnAES, avx = sse41 | kOwnAVX | kOwnAVXUsable | kOwnAVX2;
  const struct { bool read; uint64_t features; bool intel; IppStatus status; uint64_t index, indexLP, mask; } cases[] = {
      {true, avx, true, 0, 4, 0, avx & 28639},
      {true, avx & ~kOwnAVXUsable, true, 0, 3, 0, avx & ~kOwnAVXUsable & 3295},  // AVX the system doesn't save
      {true, sse41, true, 0, 3, 0, sse41 & 3295}, {true, ssse3 | kOwnMOVBE, true, 0, 2, 1, 31},
      {true, ssse3, true, 0, 2, 0, 31}, {true, sse2, true, ZRIPP_CPU_NOT_SUPPORTED, 0, 0, 7},
      {true, sse2 | kOwnSSE3 | kOwnMOVBE, true, 0, 1, 0, 15},  // MOVBE without SSSE3: the SSE3 line
      {true, kOwnSSE2 | kOwnCLMUL, true, ZRIPP_CPU_NOT_SUPPORTED, 0, 0, 4}, {false, 0, true, ZRIPP_CPU_NOT_SUPPORTED, 0, 0, 7},
      {true, avx, false, ZRIPP_OTHER_VENDOR, 4, 0, avx & 28639}, {true, sse2, false, ZRIPP_OTHER_VENDOR, 0, 0, 7},
  };
  // clang-format on
  for (const auto& c : cases) {
    ippJumpIndexForMergedLibs = 3, ippJumpIndexForMergedLibsLP = 1, ownFeaturesMask = 0x7FFF;
    EXPECT_EQ(ownStaticInitFrom(c.read, c.features, c.intel), c.status) << "case " << &c - cases;
    EXPECT_EQ(State(),
              (std::vector<uint64_t>{c.index, c.indexLP, c.mask, ownFeatures, uint64_t(ownFeaturesAreValid)}))
        << "case " << &c - cases;
  }
}

// From the state of code 35 each time: codes that choose a level make it the
// processor's own; known but unsupported codes (36) do only that; unknown
// codes (21) change nothing.
TEST(ResizeDispatch, InitCpuCodes) {
  // clang-format off
  const struct { int32_t code; IppStatus status; uint64_t index, indexLP, mask; } cases[] = {
      {0, 0, 1, 0, 15}, {32, 0, 1, 0, 15}, {66, 0, 1, 0, 15}, {33, 0, 2, 0, 31}, {34, 0, 2, 0, 31},
      {67, 0, 2, 0, 31}, {35, 0, 3, 0, 95}, {68, 0, 3, 0, 95}, {36, 0, 2, 1, 31}, {37, 0, 3, 0, 223},
      {69, 0, 3, 0, 223}, {38, 0, 3, 0, 3295}, {71, 0, 3, 0, 3295}, {70, 0, 4, 0, 4063}, {73, 0, 4, 0, 4063},
      {74, 0, 4, 0, 4063}, {1, 36, 3, 0, 95}, {5, 36, 3, 0, 95}, {11, 36, 3, 0, 95}, {64, 36, 3, 0, 95},
      {65, 36, 3, 0, 95}, {96, 36, 3, 0, 95}, {12, 21, 3, 0, 95}, {31, 21, 3, 0, 95}, {39, 21, 3, 0, 95},
      {63, 21, 3, 0, 95}, {72, 21, 3, 0, 95}, {75, 21, 3, 0, 95}, {95, 21, 3, 0, 95}, {97, 21, 3, 0, 95},
      {-2, 21, 3, 0, 95}, {INT32_MIN, 21, 3, 0, 95},
  };
  // clang-format on
  for (const auto& c : cases) {
    ippInitCpu(35);
    ippJumpIndexForMergedLibsLP = 1 - c.indexLP, ownFeatures = 0x1234, ownFeaturesAreValid = 0;
    EXPECT_EQ(ippInitCpu(c.code), c.status) << c.code;
    const bool unknown = c.status == ZRIPP_UNKNOWN_CPU_CODE;
    const uint64_t word = unknown ? 0x1234 : c.mask;
    EXPECT_EQ(State(), (std::vector<uint64_t>{c.index, c.status ? 1 : c.indexLP, c.mask, word, !unknown}))
        << c.code;
  }
}

// ippInit reads the processor once and takes its line of the ladder; code
// all ones is ippInit, here on the level that code 0 made the processor's own.
TEST(ResizeDispatch, InitAndFeatureCalls) {
  uint64_t real = 0, word = ZRIPP_CPUID_QUERY;
  ASSERT_TRUE(ownReadCpuFeatures(&real));
  ownFeaturesAreValid = 0;
  const IppStatus status = ippInit();
  EXPECT_EQ(status, ownIsGenuineIntel() ? 0 : ZRIPP_OTHER_VENDOR);
  EXPECT_EQ(ownFeatures.load(), real);
  EXPECT_GE(ippJumpIndexForMergedLibs.load(), 3);  // this build's baseline is SSE4.1
  EXPECT_EQ(ippInitCpu(0) + ippInitCpu(-1), status);
  EXPECT_EQ(ippJumpIndexForMergedLibs.load(), 1);
  // The query word takes leaf and sub-leaf from registers 0 and 2: leaf 0 is the vendor.
  uint32_t q[4] = {}, a, b, c, d;
  EXPECT_EQ(ippGetCpuFeatures(nullptr, q) * 10 + ippGetCpuFeatures(&word, q), ZRIPP_NULL_PTR_ERR * 10);
  __cpuid(0, a, b, c, d);
  EXPECT_EQ(std::vector<uint64_t>({word, q[0], q[1], q[2], q[3]}), std::vector<uint64_t>({15, a, b, c, d}));
  EXPECT_EQ(ippSetCpuFeaturesMask(0x4F) + ippGetEnabledCpuFeatures(), 0x4Fu);
}

// The feature word read from the processor agrees with the compiler's own
// reading of the same cpuid registers.
TEST(ResizeDispatch, FeatureWordMatchesTheProcessor) {
  uint64_t word = 0;
  ASSERT_TRUE(ownReadCpuFeatures(&word));
  const std::pair<uint64_t, bool> kBits[] = {
      {kOwnSSE2, __builtin_cpu_supports("sse2")},    {kOwnSSE3, __builtin_cpu_supports("sse3")},
      {kOwnSSSE3, __builtin_cpu_supports("ssse3")},  {kOwnSSE41, __builtin_cpu_supports("sse4.1")},
      {kOwnSSE42, __builtin_cpu_supports("sse4.2")}, {kOwnAVXUsable, __builtin_cpu_supports("avx")}};
  for (const auto& [bit, has] : kBits) EXPECT_EQ((word & bit) != 0, has) << "bit " << bit;
}

}  // namespace
}  // namespace zr::test
