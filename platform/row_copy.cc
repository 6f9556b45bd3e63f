#include "platform/row_copy.h"

#include "platform/zrutil.h"

namespace zr::platform {
namespace {

// Beyond this a batch, with the sources it reads, no longer stays in the
// last-level cache that one core sees on the processors we run on, and
// reading each output line in before it is overwritten costs a third of the
// traffic. (The size the system reports is often a whole package's, or a
// virtual machine's invention.)
constexpr uint64_t kStreamingThreshold = uint64_t{8} << 20;
// Below this a batch stays in a core's own cache, where fetching ahead only
// costs instructions.
constexpr uint64_t kFetchAheadThreshold = uint64_t{1} << 20;

}  // namespace

void CopyRowBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t) {
  if (bytes != 0) CopyMemoryFast(target, source, bytes);
}

RowCopyFn RowCopyFor(uint64_t batchBytes) {
#if defined(__x86_64__)
  if (batchBytes >= kStreamingThreshold) return CopyRowBytesStreaming_sse41;
  if (batchBytes >= kFetchAheadThreshold) return CopyRowBytesAhead_sse41;
  return CopyRowBytes;
#else
  static_cast<void>(batchBytes);
  return CopyRowBytes;
#endif
}

void FinishRowCopies(RowCopyFn copy) {
#if defined(__x86_64__)
  if (copy == CopyRowBytesStreaming_sse41) StreamingFence_sse41();
#else
  static_cast<void>(copy);
#endif
}

}  // namespace zr::platform
