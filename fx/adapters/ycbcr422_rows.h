// The 8-bit 4:2:2 adapter's row loops: one row of packed pairs to plane
// pixels (Y, Cb, Cr) and back.
//
// Expansion, per 8-byte group b0..b7 of 4 pixels: pixel 0 takes Y b1, Cb b0,
// Cr b3; pixel 1 Y b2, Cb b0, Cr b3; pixels 2 and 3 the same from b4..b7.
// Position decides everything: the byte order of the caller's layout is not
// looked at, and packing undoes exactly what expansion did. A last, partial
// group reads the pairs of its pixels and stores only the row's pixels.
//
// Packing writes 4 bytes per pair of plane pixels while the pixel index is
// below the width: even Cb, even Y, odd Y, even Cr. The odd pixel's chroma
// is dropped; an odd width writes its last pair whole, the odd pixel taken
// from the plane bytes after the row.
//
// The vector forms give the plain forms' bytes and run the plain form on the
// pixels that do not fill a whole step.
#ifndef ZR_FX_ADAPTERS_YCBCR422_ROWS_H
#define ZR_FX_ADAPTERS_YCBCR422_ROWS_H

#include <cstdint>
#include <span>

#include "fx/adapters/adapter_row_form.h"

namespace zr::fx {

// The bytes that packing writes in a row: 4 for each started pair.
constexpr uint64_t YCbCr422RowBytes(uint32_t width) { return (uint64_t{width} + 1) / 2 * 4; }

void ExpandYCbCr422Row_C(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackYCbCr422Row_C(const uint8_t* plane, uint8_t* dst, uint32_t width);

// The vector forms, each in its instruction set's namespace.
#if defined(__x86_64__)
namespace sse41 {
void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace sse41
namespace avx2 {
void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace avx2
namespace avx512 {
void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace avx512
#else
namespace neon {
void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace neon
#endif

// The vector forms, widest first, and the widest one the processor runs.
std::span<const AdapterRowForm> YCbCr422RowForms();
const AdapterRowForm& PickYCbCr422Rows();

}  // namespace zr::fx

#endif
