// The row loops of an adapter call on two threads: the calling thread and one
// new thread, sharing the rows out between them.
#ifndef ZR_FX_ADAPTERS_ROW_SPLIT_H
#define ZR_FX_ADAPTERS_ROW_SPLIT_H

#include <cstdint>

#include "platform/zrutil.h"

namespace zr::fx {

// Pictures with fewer rows stay on the calling thread: a new thread costs
// more than their rows take.
inline constexpr uint32_t kSplitFromRows = 64;

using CreateThreadFn = decltype(&zrOSCreateThread);

// Runs rows(first, last) over rows 0 to height - 1 and returns when all are
// done, each row once: on the calling thread and on a new thread at the
// adapter's priority, whichever comes first for the next rows. No two rows
// may write bytes that the other reads or writes. Below kSplitFromRows rows,
// or when no thread can be created, all rows run on the calling thread.
// Tests pass their own `create`.
template <typename Rows>
void SplitRows(uint32_t height, const Rows& rows, CreateThreadFn create = zrOSCreateThread);

// The same with the rows as a function and its context.
using RowsFn = void (*)(const void* context, uint32_t first, uint32_t last);
void SplitRows(uint32_t height, RowsFn rows, const void* context, CreateThreadFn create);

template <typename Rows>
void SplitRows(uint32_t height, const Rows& rows, CreateThreadFn create) {
  SplitRows(
      height,
      [](const void* c, uint32_t first, uint32_t last) { (*static_cast<const Rows*>(c))(first, last); },
      &rows, create);
}

// True when `height` rows of `rowBytes` bytes, `pitch` apart from one base,
// share no byte: each row ends before the next begins, and the last one ends
// within 4 GiB of the base, where row offsets would wrap.
bool RowsApart(uint32_t pitch, uint64_t rowBytes, uint32_t height);

}  // namespace zr::fx

#endif
