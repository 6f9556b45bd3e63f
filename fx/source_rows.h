// Where a row of a picture starts.
#ifndef ZR_FX_SOURCE_ROWS_H
#define ZR_FX_SOURCE_ROWS_H

#include <cstdint>

namespace zr::fx {

// Row y of a picture. The offset y * pitch wraps at 2^32 before it is added,
// as it always has; hosts with frames beyond 4 GiB see the wrap.
template <typename Byte>
inline Byte* FxRow(Byte* base, uint32_t y, uint32_t pitch) {
  return base + static_cast<uint32_t>(y * pitch);
}

}  // namespace zr::fx

#endif
