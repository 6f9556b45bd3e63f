#include "fx/fx_copy.h"

#include <atomic>

#include "platform/zrutil.h"

namespace zr::fx {

namespace {

// Above this the three frames of a call no longer stay in a typical last
// level cache, and reading each output line in before it is overwritten
// costs a third of the memory traffic.
constexpr uint64_t kStreamingThreshold = uint64_t{8} << 20;

}  // namespace

void CopyBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t) {
  if (bytes != 0) CopyMemoryFast(target, source, bytes);
}

CopyFn CopyFor(uint64_t frameBytes) {
#if defined(__x86_64__)
  if (frameBytes >= kStreamingThreshold) return CopyBytesStreaming_sse41;
#else
  static_cast<void>(frameBytes);
#endif
  return CopyBytes;
}

void FinishCopies(CopyFn copy) {
#if defined(__x86_64__)
  if (copy == CopyBytesStreaming_sse41) StreamingFence_sse41();
#else
  static_cast<void>(copy);
#endif
}

void CopySharedBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t) {
  for (size_t i = 0; i < bytes; ++i)
    std::atomic_ref<uint8_t>(target[i]).store(source[i], std::memory_order_relaxed);
}

}  // namespace zr::fx
