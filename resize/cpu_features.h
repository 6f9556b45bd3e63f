// The processor's features as one 64-bit word, read with cpuid and xgetbv
// once a process, and the mask of the features the engine may use.
#ifndef ZR_RESIZE_CPU_FEATURES_H
#define ZR_RESIZE_CPU_FEATURES_H

#include <atomic>
#include <cstdint>

// Bits of the feature word.
enum : uint64_t {
  kOwnMMX = 1,
  kOwnSSE = 2,
  kOwnSSE2 = 4,
  kOwnSSE3 = 8,
  kOwnSSSE3 = 16,
  kOwnMOVBE = 32,
  kOwnSSE41 = 64,
  kOwnSSE42 = 128,
  kOwnAVX = 256,
  kOwnAVXUsable = 512,  // AVX, and the operating system saves its registers
  kOwnAES = 1024,
  kOwnCLMUL = 2048,
  kOwnFamilyBFeature = 4096,  // read only on family 0x0B processors
  kOwnRDRAND = 8192,
  kOwnF16C = 16384,
  kOwnAVX2 = 32768,  // with FMA and BMI1/BMI2
};

// The registers the feature word is made of.
enum ownCpuidReg { kLeaf1Edx, kLeaf1Ecx, kLeaf7Ebx, kXcr0, kFamilyBEdx, kOwnCpuidRegs };

// The stored word, whether it has been read, and the enabled features
// (7 at load). Atomics: plain words without a lock, the flag published
// after the word.
extern std::atomic<uint64_t> ownFeatures;
extern std::atomic<int32_t> ownFeaturesAreValid;
extern std::atomic<uint64_t> ownFeaturesMask;

// The feature word that these register values give.
uint64_t ownFeatureWord(const uint32_t (&regs)[kOwnCpuidRegs]);
// Runs cpuid (and xgetbv) now; false when the processor has no leaf 1.
bool ownReadCpuFeatures(uint64_t* features);
// The stored word, read on first use.
bool ownGetMaskFeatures(uint64_t* features);
// From now on the enabled features count as the processor's own.
void ownMaskIsFeatures();
// True when every bit of `features` is enabled.
bool ownGetFeature(uint64_t features);
// The vendor string of cpuid leaf 0 is "GenuineIntel".
bool ownIsGenuineIntel();

#endif
