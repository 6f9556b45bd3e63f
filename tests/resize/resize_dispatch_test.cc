// Processor dispatch: the feature word, the choice of a variant from it or
// from a processor code, the tables behind the public names, and each
// variant this machine can run reached through the public name.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <vector>

#include "common/test_random.h"
#include "resize/cpu_init.h"
#include "resize_test_util.h"

namespace zr::test {
namespace {

int32_t Index() { return ippJumpIndexForMergedLibs.load(); }
int32_t IndexLP() { return ippJumpIndexForMergedLibsLP.load(); }

TEST(ResizeDispatch, TablesHoldTheVariantsBySlot) {
  const ownResizeSqrPixelFn resize[] = {m7_ippiResizeSqrPixel_8u_C4R, m7_ippiResizeSqrPixel_8u_C4R,
                                        u8_ippiResizeSqrPixel_8u_C4R, y8_ippiResizeSqrPixel_8u_C4R,
                                        e9_ippiResizeSqrPixel_8u_C4R};
  const ownResizeGetBufSizeFn size[] = {m7_ippiResizeGetBufSize, m7_ippiResizeGetBufSize,
                                        u8_ippiResizeGetBufSize, y8_ippiResizeGetBufSize,
                                        e9_ippiResizeGetBufSize};
  const ownsMallocFn alloc[] = {m7_ippsMalloc_8u, m7_ippsMalloc_8u, u8_ippsMalloc_8u, y8_ippsMalloc_8u,
                                e9_ippsMalloc_8u};
  const ownsFreeFn release[] = {m7_ippsFree, m7_ippsFree, u8_ippsFree, y8_ippsFree, e9_ippsFree};
  for (int slot = 0; slot < kOwnJumpSlots; ++slot) {
    EXPECT_EQ(ippiResizeSqrPixel_8u_C4R_arraddr[slot], resize[slot]) << slot;
    EXPECT_EQ(ippiResizeGetBufSize_arraddr[slot], size[slot]) << slot;
    EXPECT_EQ(ippsMalloc_8u_arraddr[slot], alloc[slot]) << slot;
    EXPECT_EQ(ippsFree_arraddr[slot], release[slot]) << slot;
  }
}

TEST(ResizeDispatch, FeatureWordFromRegisters) {
  struct Case {
    uint32_t regs[kOwnCpuidRegs];  // leaf 1 EDX, leaf 1 ECX, leaf 7 EBX, XCR0, family-B EDX
    uint64_t word;
  };
  const uint32_t osxsaveAvx = (1u << 27) | (1u << 28);
  const uint32_t avx2Bmi = (1u << 5) | (1u << 3) | (1u << 8);
  const Case cases[] = {
      {{1u << 23 | 1u << 25 | 1u << 26, 0, 0, 0, 0}, kOwnMMX | kOwnSSE | kOwnSSE2},
      {{0, 1u << 0 | 1u << 9 | 1u << 22 | 1u << 19 | 1u << 20, 0, 0, 0},
       kOwnSSE3 | kOwnSSSE3 | kOwnMOVBE | kOwnSSE41 | kOwnSSE42},
      {{0, 1u << 25 | 1u << 1 | 1u << 30 | 1u << 29, 0, 0, 0}, kOwnAES | kOwnCLMUL | kOwnRDRAND | kOwnF16C},
      // AVX is usable only with OSXSAVE and both XMM and YMM state enabled.
      {{0, 1u << 28, 0, 6, 0}, kOwnAVX},
      {{0, osxsaveAvx, 0, 2, 0}, kOwnAVX},
      {{0, osxsaveAvx, 0, 6, 0}, kOwnAVX | kOwnAVXUsable},
      // AVX2 counts only with FMA, BMI1 and BMI2 beside it.
      {{0, 1u << 12, avx2Bmi, 0, 0}, kOwnAVX2},
      {{0, 1u << 12, avx2Bmi & ~(1u << 8), 0, 0}, 0},
      {{0, 0, avx2Bmi, 0, 0}, 0},
      {{0, 0, 0, 0, 1u << 1}, kOwnFamilyBFeature},
  };
  for (const Case& c : cases) EXPECT_EQ(ownFeatureWord(c.regs), c.word) << "case " << (&c - cases);
}

TEST(ResizeDispatch, StaticInitLadder) {
  DispatchStateGuard guard;
  const uint64_t sse2 = kOwnMMX | kOwnSSE | kOwnSSE2;
  const uint64_t sse41 = sse2 | kOwnSSE3 | kOwnSSSE3 | kOwnSSE41 | kOwnSSE42 | kOwnAES;
  struct Case {
    bool read;
    uint64_t features;
    bool intel;
    int32_t index, indexLP;
    uint64_t mask;
    IppStatus status;
  };
  const uint64_t avx = sse41 | kOwnAVX | kOwnAVXUsable | kOwnF16C | kOwnAVX2;
  const Case cases[] = {
      {true, avx, true, 4, 0, avx & 28639, 0},
      // AVX that the operating system doesn't save: the SSE4.1 variant.
      {true, avx & ~kOwnAVXUsable, true, 3, 0, avx & ~kOwnAVXUsable & 3295, 0},
      {true, sse41, true, 3, 0, sse41 & 3295, 0},
      {true, sse2 | kOwnSSE3 | kOwnSSSE3 | kOwnMOVBE, true, 2, 1, 63 & 31, 0},
      {true, sse2 | kOwnSSE3 | kOwnSSSE3, true, 2, 0, 31, 0},
      // MOVBE without SSSE3 falls through to the SSE3 line.
      {true, sse2 | kOwnSSE3 | kOwnMOVBE, true, 1, 0, 15, 0},
      {true, sse2, true, 0, 0, 7, ZRIPP_CPU_NOT_SUPPORTED},
      {true, kOwnSSE2 | kOwnCLMUL, true, 0, 0, 4, ZRIPP_CPU_NOT_SUPPORTED},
      {false, 0, true, 0, 0, 7, ZRIPP_CPU_NOT_SUPPORTED},
      // Another vendor runs what a like processor of the named one would, and is told so.
      {true, avx, false, 4, 0, avx & 28639, ZRIPP_OTHER_VENDOR},
      {true, sse2, false, 0, 0, 7, ZRIPP_OTHER_VENDOR},
  };
  for (const Case& c : cases) {
    ippJumpIndexForMergedLibs = 3;
    ippJumpIndexForMergedLibsLP = 1;
    ownFeaturesMask = 0x7FFF;
    EXPECT_EQ(ownStaticInitFrom(c.read, c.features, c.intel), c.status) << "case " << (&c - cases);
    EXPECT_EQ(Index(), c.index) << "case " << (&c - cases);
    EXPECT_EQ(IndexLP(), c.indexLP) << "case " << (&c - cases);
    EXPECT_EQ(ippGetEnabledCpuFeatures(), c.mask) << "case " << (&c - cases);
  }
}

TEST(ResizeDispatch, InitCpuCodes) {
  DispatchStateGuard guard;
  struct Case {
    int32_t code;
    int32_t index, indexLP;
    uint64_t mask;
  };
  const Case chosen[] = {{0, 1, 0, 15},    {32, 1, 0, 15},   {66, 1, 0, 15},   {33, 2, 0, 31},
                         {34, 2, 0, 31},   {67, 2, 0, 31},   {35, 3, 0, 95},   {68, 3, 0, 95},
                         {36, 2, 1, 31},   {37, 3, 0, 223},  {69, 3, 0, 223},  {38, 3, 0, 3295},
                         {71, 3, 0, 3295}, {70, 4, 0, 4063}, {73, 4, 0, 4063}, {74, 4, 0, 4063}};
  for (const Case& c : chosen) {
    ownFeaturesAreValid = 0;
    ippJumpIndexForMergedLibsLP = 1 - c.indexLP;
    EXPECT_EQ(ippInitCpu(c.code), 0) << c.code;
    EXPECT_EQ(Index(), c.index) << c.code;
    EXPECT_EQ(IndexLP(), c.indexLP) << c.code;
    EXPECT_EQ(ippGetEnabledCpuFeatures(), c.mask) << c.code;
    // The chosen level now counts as the processor's own.
    uint64_t word = 0;
    EXPECT_EQ(ippGetCpuFeatures(&word, nullptr), 0);
    EXPECT_EQ(word, c.mask) << c.code;
  }

  // Known but unsupported codes change nothing but still make the mask the processor's own.
  for (int32_t code : {1, 2, 5, 11, 64, 65, 96}) {
    ippInitCpu(35);
    ownFeatures = 0x1234;
    EXPECT_EQ(ippInitCpu(code), ZRIPP_CPU_NOT_SUPPORTED) << code;
    EXPECT_EQ(Index(), 3) << code;
    EXPECT_EQ(ippGetEnabledCpuFeatures(), 95u) << code;
    EXPECT_EQ(ownFeatures.load(), 95u) << code;
  }

  // Unknown codes change nothing at all.
  for (int32_t code : {12, 31, 39, 63, 72, 75, 95, 97, 1000, -2, INT32_MIN}) {
    ippInitCpu(37);
    ownFeatures = 0x1234;
    ownFeaturesAreValid = 0;
    EXPECT_EQ(ippInitCpu(code), ZRIPP_UNKNOWN_CPU_CODE) << code;
    EXPECT_EQ(Index(), 3) << code;
    EXPECT_EQ(ippGetEnabledCpuFeatures(), 223u) << code;
    EXPECT_EQ(ownFeatures.load(), 0x1234u) << code;
    EXPECT_EQ(ownFeaturesAreValid.load(), 0) << code;
  }
}

TEST(ResizeDispatch, InitOnThisMachine) {
  DispatchStateGuard guard;
  uint64_t real = 0;
  ASSERT_TRUE(ownReadCpuFeatures(&real));
  ownFeaturesAreValid = 0;
  const IppStatus status = ippInit();
  EXPECT_EQ(status, ownIsGenuineIntel() ? 0 : ZRIPP_OTHER_VENDOR);
  // The word was read and stored, and the choice is the ladder's for it.
  EXPECT_EQ(ownFeaturesAreValid.load(), 1);
  EXPECT_EQ(ownFeatures.load(), real);
  const int32_t index = Index();
  const uint64_t mask = ippGetEnabledCpuFeatures();
  EXPECT_GE(index, 3);  // this build's baseline is SSE4.1
  EXPECT_EQ(ownStaticInitFrom(true, real, ownIsGenuineIntel()), status);
  EXPECT_EQ(Index(), index);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), mask);

  // All ones is ippInit, which now reads the level that code 0 made the processor's own.
  ippInitCpu(0);
  EXPECT_EQ(ippInitCpu(-1), status);
  EXPECT_EQ(Index(), 1);
}

TEST(ResizeDispatch, CpuFeatureCalls) {
  DispatchStateGuard guard;
  EXPECT_EQ(ippGetCpuFeatures(nullptr, nullptr), ZRIPP_NULL_PTR_ERR);

  ownFeaturesAreValid = 0;
  uint64_t word = 0;
  uint32_t regs[4] = {};
  ASSERT_EQ(ippGetCpuFeatures(&word, regs), 0);
  uint64_t real = 0;
  ASSERT_TRUE(ownReadCpuFeatures(&real));
  EXPECT_EQ(word, real);
  unsigned a, b, c, d;
  __cpuid(1, a, b, c, d);
  EXPECT_EQ(regs[0] & 0x0FFF3FFFu, a & 0x0FFF3FFFu);  // signature, without the APIC and logical-count bytes
  EXPECT_EQ(regs[2], c);
  EXPECT_EQ(regs[3], d);

  // The query word takes leaf and sub-leaf from registers 0 and 2: leaf 0 is the vendor.
  word = ZRIPP_CPUID_QUERY;
  uint32_t query[4] = {0, 0, 0, 0};
  ASSERT_EQ(ippGetCpuFeatures(&word, query), 0);
  EXPECT_EQ(word, real);
  __cpuid(0, a, b, c, d);
  EXPECT_EQ(query[0], a);
  EXPECT_EQ(query[1], b);
  EXPECT_EQ(query[2], c);
  EXPECT_EQ(query[3], d);

  EXPECT_EQ(ippSetCpuFeaturesMask(0x4F), 0);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 0x4Fu);
  EXPECT_TRUE(ownGetFeature(kOwnSSE41 | kOwnSSE3));
  EXPECT_FALSE(ownGetFeature(kOwnSSE41 | kOwnSSSE3));
  EXPECT_EQ(ippIsCpuEnabled(70), 1);
  EXPECT_EQ(ippEnableCpu(70), 0);
}

// Every code that selects a variant this machine can run: the public name
// then gives what slot 0 gives.
TEST(ResizeDispatch, EachReachableVariantAgreesWithSlotZero) {
  DispatchStateGuard guard;
  const int32_t w = 37, h = 5;
  std::vector<uint8_t> src(4 * w * h);
  Rng rng(0xD15BA7C4ull);
  rng.Fill(src.data(), src.size());
  auto run = [&](ownResizeSqrPixelFn fn) {
    std::vector<uint8_t> dst(4 * w * h, 0xEE);
    int32_t size = 0;
    EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, w, h), Rect(0, 0, w, h), 1, ZRIPP_INTER_NN, &size), 0);
    uint8_t* scratch = ippsMalloc_8u(size);
    EXPECT_EQ(fn(src.data(), Size(w, h), 4 * w, Rect(0, 0, w, h), dst.data(), 4 * w, Rect(0, 0, w, h), 0.5,
                 1.0, 0.0, 0.0, ZRIPP_INTER_NN, scratch),
              0);
    ippsFree(scratch);
    return dst;
  };
  const std::vector<uint8_t> slot0 = run(ippiResizeSqrPixel_8u_C4R_arraddr[0]);
  for (int32_t code : {0, 33, 36, 35, 37, 38, 70}) {
    ASSERT_EQ(ippInitCpu(code), 0);
    const int32_t slot = Index();
    const uint64_t needs = slot == 4   ? kOwnSSE41 | kOwnSSE42 | kOwnAVX | kOwnAVXUsable
                           : slot == 3 ? kOwnSSE41 | kOwnSSE42
                           : slot == 2 ? kOwnSSSE3
                                       : kOwnSSE2;
    if (!MachineHas(needs)) continue;
    EXPECT_EQ(run(ippiResizeSqrPixel_8u_C4R), slot0) << "code " << code << " slot " << slot;
  }
}

}  // namespace
}  // namespace zr::test
