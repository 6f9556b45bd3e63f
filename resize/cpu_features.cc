#include "resize/cpu_features.h"

#include <cstring>

#include "platform/cpu_choice.h"
#include "zripp.h"

std::atomic<uint64_t> ownFeatures{0};
std::atomic<int32_t> ownFeaturesAreValid{0};
std::atomic<uint64_t> ownFeaturesMask{7};

namespace {

// A feature bit is set when every bit of `need` is set in register `reg`,
// and of `need2` in `reg2` (need2 0: no second condition).
struct ownFeatureSource {
  uint64_t bit;
  ownCpuidReg reg;
  uint32_t need;
  ownCpuidReg reg2;
  uint32_t need2;
};

constexpr uint32_t B(int n) { return uint32_t{1} << n; }

constexpr ownFeatureSource kFeatureSources[] = {
    {kOwnMMX, kLeaf1Edx, B(23), kLeaf1Edx, 0},
    {kOwnSSE, kLeaf1Edx, B(25), kLeaf1Edx, 0},
    {kOwnSSE2, kLeaf1Edx, B(26), kLeaf1Edx, 0},
    {kOwnSSE3, kLeaf1Ecx, B(0), kLeaf1Ecx, 0},
    {kOwnSSSE3, kLeaf1Ecx, B(9), kLeaf1Ecx, 0},
    {kOwnMOVBE, kLeaf1Ecx, B(22), kLeaf1Ecx, 0},
    {kOwnSSE41, kLeaf1Ecx, B(19), kLeaf1Ecx, 0},
    {kOwnSSE42, kLeaf1Ecx, B(20), kLeaf1Ecx, 0},
    {kOwnAVX, kLeaf1Ecx, B(28), kLeaf1Ecx, 0},
    // OSXSAVE and AVX, and XMM and YMM state enabled in XCR0.
    {kOwnAVXUsable, kLeaf1Ecx, B(27) | B(28), kXcr0, B(1) | B(2)},
    {kOwnAES, kLeaf1Ecx, B(25), kLeaf1Ecx, 0},
    {kOwnCLMUL, kLeaf1Ecx, B(1), kLeaf1Ecx, 0},
    {kOwnFamilyBFeature, kFamilyBEdx, B(1), kFamilyBEdx, 0},
    {kOwnRDRAND, kLeaf1Ecx, B(30), kLeaf1Ecx, 0},
    {kOwnF16C, kLeaf1Ecx, B(29), kLeaf1Ecx, 0},
    // FMA, and AVX2, BMI1 and BMI2.
    {kOwnAVX2, kLeaf1Ecx, B(12), kLeaf7Ebx, B(5) | B(3) | B(8)},
};

}  // namespace

uint64_t ownFeatureWord(const uint32_t (&regs)[kOwnCpuidRegs]) {
  uint64_t word = 0;
  for (const ownFeatureSource& s : kFeatureSources)
    if ((regs[s.reg] & s.need) == s.need && (regs[s.reg2] & s.need2) == s.need2) word |= s.bit;
  return word;
}

bool ownReadCpuFeatures(uint64_t* features) {
  uint32_t r[4];
  zr::cpu::Cpuid(0, 0, r);
  const uint32_t maxLeaf = r[0];
  if (maxLeaf < 1) return false;
  uint32_t regs[kOwnCpuidRegs] = {};
  zr::cpu::Cpuid(1, 0, r);
  const uint32_t eax = r[0];
  regs[kLeaf1Edx] = r[3];
  regs[kLeaf1Ecx] = r[2];
  regs[kXcr0] = zr::cpu::Xcr0();  // 0 without OSXSAVE
  if (((eax >> 8) & 0xF) == 0xB) {
    zr::cpu::Cpuid(0x20000001, 0, r);
    regs[kFamilyBEdx] = r[3];
  }
  if (maxLeaf >= 7) {
    zr::cpu::Cpuid(7, 0, r);
    regs[kLeaf7Ebx] = r[1];
  }
  *features = ownFeatureWord(regs);
  return true;
}

bool ownGetMaskFeatures(uint64_t* features) {
  // The word is published before the flag that says it is there.
  if (ownFeaturesAreValid.load(std::memory_order_acquire)) {
    *features = ownFeatures.load(std::memory_order_relaxed);
    return true;
  }
  uint64_t word;
  if (!ownReadCpuFeatures(&word)) return false;
  ownFeatures.store(word, std::memory_order_relaxed);
  ownFeaturesAreValid.store(1, std::memory_order_release);
  *features = word;
  return true;
}

void ownMaskIsFeatures() {
  ownFeatures.store(ownFeaturesMask.load(std::memory_order_relaxed), std::memory_order_relaxed);
  ownFeaturesAreValid.store(1, std::memory_order_release);
}

bool ownGetFeature(uint64_t features) {
  return (ownFeaturesMask.load(std::memory_order_relaxed) & features) == features;
}

bool ownIsGenuineIntel() {
  uint32_t r[4];
  zr::cpu::Cpuid(0, 0, r);
  char vendor[12];
  std::memcpy(vendor, &r[1], 4);
  std::memcpy(vendor + 4, &r[3], 4);
  std::memcpy(vendor + 8, &r[2], 4);
  return std::memcmp(vendor, "GenuineIntel", 12) == 0;
}

IppStatus ippGetCpuFeatures(uint64_t* pFeaturesMask, uint32_t* pCpuidInfoRegs) {
  if (pFeaturesMask == nullptr) return ZRIPP_NULL_PTR_ERR;
  uint32_t leaf = 1, subLeaf = 0;
  if (pCpuidInfoRegs != nullptr && *pFeaturesMask == ZRIPP_CPUID_QUERY) {
    leaf = pCpuidInfoRegs[0];
    subLeaf = pCpuidInfoRegs[2];
  }
  uint64_t word;
  if (!ownGetMaskFeatures(&word)) return ZRIPP_CPU_NOT_SUPPORTED;
  *pFeaturesMask = word;
  if (pCpuidInfoRegs != nullptr) {
    uint32_t r[4];
    zr::cpu::Cpuid(leaf, subLeaf, r);
    for (int i = 0; i < 4; ++i) pCpuidInfoRegs[i] = r[i];
  }
  return ZRIPP_OK;
}

uint64_t ippGetEnabledCpuFeatures(void) { return ownFeaturesMask.load(std::memory_order_relaxed); }

IppStatus ippSetCpuFeaturesMask(uint64_t features) {
  ownFeaturesMask.store(features, std::memory_order_relaxed);
  return ZRIPP_OK;
}

int32_t ippIsCpuEnabled(int32_t) { return 1; }

IppStatus ippEnableCpu(int32_t) { return ZRIPP_OK; }
