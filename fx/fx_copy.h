// The copy of the effects for output that several workers write at once.
#ifndef ZR_FX_FX_COPY_H
#define ZR_FX_FX_COPY_H

#include <cstddef>
#include <cstdint>

namespace zr::fx {

// For output that several workers write at once with the same bytes (frames
// one pixel wide or high, where more than one band starts at row or column
// 0): relaxed atomic stores, so the concurrent writes are well defined. A
// platform::RowCopyFn.
void CopySharedBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow);

}  // namespace zr::fx

#endif
