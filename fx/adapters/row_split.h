// The row loops of an adapter call on two threads: the calling thread and one
// new thread, each with half of the rows.
#ifndef ZR_FX_ADAPTERS_ROW_SPLIT_H
#define ZR_FX_ADAPTERS_ROW_SPLIT_H

#include <cstdint>

#include "platform/zrutil.h"

namespace zr::fx {

// Pictures with fewer rows stay on the calling thread: a new thread costs
// more than their rows take.
inline constexpr uint32_t kSplitFromRows = 64;

// Work on rows first to last - 1, with what the caller passed as `context`.
using RowsFn = void (*)(const void* context, uint32_t first, uint32_t last);
using CreateThreadFn = decltype(&zrOSCreateThread);

// Runs rows 0 to height - 1 and returns when all are done: the upper half
// (height / 2 rows) on a new thread at the adapter's priority, the rest on
// the calling thread. The rows must not write bytes that another row reads
// or writes. Below kSplitFromRows rows, or when no thread can be created,
// all rows run on the calling thread. Tests pass their own `create`.
void SplitRows(uint32_t height, RowsFn rows, const void* context, CreateThreadFn create = zrOSCreateThread);

template <typename Rows>
void SplitRows(uint32_t height, const Rows& rows) {
  SplitRows(
      height,
      [](const void* c, uint32_t first, uint32_t last) { (*static_cast<const Rows*>(c))(first, last); },
      &rows);
}

// True when `height` rows of `rowBytes` bytes, `pitch` apart from one base,
// share no byte: each row ends before the next begins, and the last one ends
// within 4 GiB of the base, where row offsets would wrap.
bool RowsApart(uint32_t pitch, uint64_t rowBytes, uint32_t height);

}  // namespace zr::fx

#endif
