// The v210 adapter's row loops: one row of 10-bit v210 to 8-bit plane pixels
// (Y, Cb, Cr) and back.
//
// A group of four little-endian words w0..w3 holds 6 pixels in 12 fields of
// 10 bits at bits 0, 10 and 20 of each word. Expansion keeps the 8 high bits
// of each field: the word shifted right by 2, 12 or 22, cut to a byte.
//
//   pixel  Y         Cb        Cr
//   0      w0 >> 12  w0 >> 2   w0 >> 22
//   1      w1 >> 2   w0 >> 2   w0 >> 22
//   2      w1 >> 22  w1 >> 12  w2 >> 2
//   3      w2 >> 12  w1 >> 12  w2 >> 2
//   4      w3 >> 2   w2 >> 22  w3 >> 12
//   5      w3 >> 22  w2 >> 22  w3 >> 12
//
// Expansion reads whole groups while the pixel index is below the width and
// stores only the row's pixels. Packing writes each group whole, the plane
// byte in the high 8 bits of each field and 0 in the low 2 and in bits 30
// and 31; a last, partial group takes the plane bytes after the row's end.
// The odd pixels' chroma is dropped.
//
// The vector forms give the plain forms' bytes and run the plain form on the
// pixels that do not fill a whole group.
#ifndef ZR_FX_ADAPTERS_V210_ROWS_H
#define ZR_FX_ADAPTERS_V210_ROWS_H

#include <cstdint>
#include <span>

#include "fx/adapters/adapter_row_form.h"

namespace zr::fx {

// The bytes that packing writes in a row: 16 for each started group.
constexpr uint64_t V210RowBytes(uint32_t width) { return (uint64_t{width} + 5) / 6 * 16; }

void ExpandV210Row_C(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackV210Row_C(const uint8_t* plane, uint8_t* dst, uint32_t width);

// The vector forms, each in its instruction set's namespace.
#if defined(__x86_64__)
namespace sse41 {
void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace sse41
namespace avx2 {
void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace avx2
namespace avx512 {
void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace avx512
#else
namespace neon {
void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width);
void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width);
}  // namespace neon
#endif

// The vector forms, widest first, and the widest one the processor runs.
std::span<const AdapterRowForm> V210RowForms();
const AdapterRowForm& PickV210Rows();

}  // namespace zr::fx

#endif
