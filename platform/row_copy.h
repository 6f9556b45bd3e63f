// Copies of rows into one output frame, a batch at a time. A batch that
// writes more than a last-level cache holds goes to memory with streaming
// stores, so that no output line is read in before it is overwritten: the C
// library streams only single copies larger than its own threshold, and a
// frame copied a row at a time never reaches it.
#ifndef ZR_PLATFORM_ROW_COPY_H
#define ZR_PLATFORM_ROW_COPY_H

#include <cstddef>
#include <cstdint>

namespace zr::platform {

// `nextRow` is the distance from `source` to the same bytes of the row that
// its picture gives next, which a copy may fetch ahead; it wraps for a row
// above, and 0 asks for nothing ahead.
using RowCopyFn = void (*)(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

// CopyMemoryFast; an empty copy touches nothing, not even its pointers.
void CopyRowBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

#if defined(__x86_64__)
// The same bytes with streaming stores, fetching the next row's run while it
// copies this one, since runs of part of a row taken from alternating
// pictures defeat the hardware prefetcher. Short runs and ranges that
// overlap go to CopyRowBytes.
void CopyRowBytesStreaming_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);
// The same with ordinary stores, for batches that stay in the cache: the C
// library's copy of a few kilobytes fetches nothing beyond its own run.
// A run longer than `nextRow` is a block of rows and goes to CopyRowBytes.
void CopyRowBytesAhead_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);
// Streaming stores are weakly ordered; this orders them before what follows.
void StreamingFence_sse41();
#endif

// The copy for a batch that writes `batchBytes` in all.
RowCopyFn RowCopyFor(uint64_t batchBytes);
// Called once when a batch is done with `copy`: makes its stores visible
// before anything that follows (a worker reporting its band finished).
void FinishRowCopies(RowCopyFn copy);

// RowCopyFor, each copy and FinishRowCopies for a frame's worth of rows.
class RowBatch {
 public:
  explicit RowBatch(uint64_t batchBytes) : copy_(RowCopyFor(batchBytes)) {}
  ~RowBatch() { FinishRowCopies(copy_); }
  RowBatch(const RowBatch&) = delete;
  RowBatch& operator=(const RowBatch&) = delete;

  void Copy(void* target, const void* source, size_t bytes, size_t nextRow = 0) const {
    copy_(static_cast<uint8_t*>(target), static_cast<const uint8_t*>(source), bytes, nextRow);
  }

 private:
  RowCopyFn copy_;
};

}  // namespace zr::platform

#endif
