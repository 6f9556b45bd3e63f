// Shared pieces of the resize tests: the variants and whether this machine
// can run them, buffers that end where their data ends, and a guard that
// puts the dispatch state back.
#ifndef ZR_TESTS_RESIZE_TEST_UTIL_H
#define ZR_TESTS_RESIZE_TEST_UTIL_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "resize/cpu_features.h"
#include "resize/resize_dispatch.h"
#include "resize/resize_row.h"
#include "resize/resize_variants.h"
#include "zripp.h"

namespace zr::test {

struct ResizeVariant {
  const char* name;
  int slot;
  const ownResizeKernels* kernels;
  ownResizeSqrPixelFn resize;
  uint64_t needs;  // feature bits the variant's instructions need
};

inline const ResizeVariant kResizeVariants[] = {
    {"m7", 0, &m7_ownResizeKernels, m7_ippiResizeSqrPixel_8u_C4R, kOwnSSE2},
    {"u8", 2, &u8_ownResizeKernels, u8_ippiResizeSqrPixel_8u_C4R, kOwnSSE2 | kOwnSSE3 | kOwnSSSE3},
    {"y8", 3, &y8_ownResizeKernels, y8_ippiResizeSqrPixel_8u_C4R,
     kOwnSSE2 | kOwnSSE3 | kOwnSSSE3 | kOwnSSE41 | kOwnSSE42},
    {"e9", 4, &e9_ownResizeKernels, e9_ippiResizeSqrPixel_8u_C4R,
     kOwnSSE2 | kOwnSSE3 | kOwnSSSE3 | kOwnSSE41 | kOwnSSE42 | kOwnAVX | kOwnAVXUsable},
};

// From the processor itself, not from the engine's stored (and possibly
// forced) word.
inline bool MachineHas(uint64_t features) {
  uint64_t word = 0;
  return ownReadCpuFeatures(&word) && (word & features) == features;
}

// Bytes whose last usable byte is the last byte of the allocation, so that
// a sanitizer catches a read or write past the end. `misalign` moves the
// start off the allocator's alignment.
class TightBuffer {
 public:
  explicit TightBuffer(size_t size, size_t misalign = 0)
      : storage_(new uint8_t[size + misalign]), data_(storage_.get() + misalign), size_(size) {}
  uint8_t* data() { return data_; }
  size_t size() const { return size_; }

 private:
  std::unique_ptr<uint8_t[]> storage_;
  uint8_t* data_;
  size_t size_;
};

// Saves the jump indexes and the feature words, and restores them.
class DispatchStateGuard {
 public:
  DispatchStateGuard()
      : index_(ippJumpIndexForMergedLibs.load()),
        indexLP_(ippJumpIndexForMergedLibsLP.load()),
        features_(ownFeatures.load()),
        valid_(ownFeaturesAreValid.load()),
        mask_(ownFeaturesMask.load()) {}
  ~DispatchStateGuard() {
    ippJumpIndexForMergedLibs = index_;
    ippJumpIndexForMergedLibsLP = indexLP_;
    ownFeatures = features_;
    ownFeaturesAreValid = valid_;
    ownFeaturesMask = mask_;
  }

 private:
  int32_t index_, indexLP_;
  uint64_t features_;
  int32_t valid_;
  uint64_t mask_;
};

inline IppiRect Rect(int32_t x, int32_t y, int32_t w, int32_t h) { return IppiRect{x, y, w, h}; }
inline IppiSize Size(int32_t w, int32_t h) { return IppiSize{w, h}; }

inline uint32_t PixelAt(const uint8_t* p) {
  uint32_t v;
  std::memcpy(&v, p, 4);
  return v;
}

}  // namespace zr::test

#endif
