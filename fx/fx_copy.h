// The copies of the effects: runs of whole pixels and whole rows into the
// output frame.
#ifndef ZR_FX_FX_COPY_H
#define ZR_FX_FX_COPY_H

#include <cstddef>
#include <cstdint>

namespace zr::fx {

// `nextRow` is the distance from `source` to the same bytes of the next row
// of its picture, which a copy may fetch ahead.
using CopyFn = void (*)(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

// CopyMemoryFast; an empty copy touches nothing, not even its pointers.
void CopyBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

// The same bytes with stores that bypass the cache, for output frames too
// large to stay in it: no line of the frame is read in before it is written.
// It fetches the next row's run while it copies this one, since runs of part
// of a row taken from alternating pictures defeat the hardware prefetcher.
// Ranges that overlap go to CopyBytes. Only in the SSE build.
void CopyBytesStreaming_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);
// Streaming stores are weakly ordered; this orders them before what follows.
void StreamingFence_sse41();

// The copy for an output of `frameBytes` in all.
CopyFn CopyFor(uint64_t frameBytes);
// Called once when an effect is done with `copy`: makes its stores visible
// before the worker reports its band finished.
void FinishCopies(CopyFn copy);

// For output that several workers write at once with the same bytes (frames
// one pixel wide or high, where more than one band starts at row or column
// 0): relaxed atomic stores, so the concurrent writes are well defined.
void CopySharedBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

}  // namespace zr::fx

#endif
