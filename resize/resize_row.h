// The nearest-neighbour kernel family: the table fill and the row copies,
// as a set of functions per processor variant. The scalar bodies below are
// the reference; they are `static` so that every translation unit that uses
// them (the reference set and each variant, built with its own instruction
// set flags) gets its own copy and no variant's code is shared by the linker.
#ifndef ZR_RESIZE_RESIZE_ROW_H
#define ZR_RESIZE_RESIZE_ROW_H

#include <cstdint>
#include <cstring>

// The processor's truncating conversion of a double to 32 bits: NaN and
// values outside the signed 32-bit range give 0x80000000, as the vector and
// scalar conversion instructions of the SSE build do.
static inline int32_t ownTrunc32(double v) {
  if (v > -2147483649.0 && v < 2147483648.0) return static_cast<int32_t>(v);
  return INT32_MIN;
}

// table[k] = T((first + k + 0.5) * inv + offEps) * scale, for k < n. The
// product wraps in 32 bits. offEps already holds the offset less 1e-10.
using ownFillTableFn = void (*)(int32_t* table, int32_t first, int32_t n, double inv, double offEps,
                                int32_t scale);

// Copies n four-byte pixels: dst pixel j = the pixel at srcRow + col[j].
// The stride forms read only col[0] and rely on the caller having checked
// that col[j] = col[0] + 4j (copy) or col[0] + 8j (every other pixel).
using ownResizeRowFn = void (*)(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n);

// The routines of one variant. rowHalfStream is rowHalf for outputs too
// large to stay in the caches: the same bytes, written around them; the
// caller fences once after its last row.
struct ownResizeKernels {
  ownFillTableFn fillTable;
  ownResizeRowFn rowGather;
  ownResizeRowFn rowCopy;
  ownResizeRowFn rowHalf;
  ownResizeRowFn rowHalfStream;
};

// The scalar reference set.
extern const ownResizeKernels ownResizeKernels_C;

static inline void ownFillTableRef(int32_t* table, int32_t first, int32_t n, double inv, double offEps,
                                   int32_t scale) {
  for (int32_t k = 0; k < n; ++k) {
    const double x = (static_cast<double>(first + k) + 0.5) * inv + offEps;
    table[k] = static_cast<int32_t>(static_cast<uint32_t>(ownTrunc32(x)) * static_cast<uint32_t>(scale));
  }
}

static inline void ownCopyPixel(const uint8_t* src, uint8_t* dst) { std::memcpy(dst, src, 4); }

static inline void ownRowGatherRef(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  for (int32_t j = 0; j < n; ++j) ownCopyPixel(srcRow + col[j], dst + 4 * j);
}

// Stride forms from pixel `from` on, for the tails of the vector loops.
static inline void ownRowCopyRef(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t from,
                                 int32_t n) {
  const uint8_t* s = srcRow + col[0];
  for (int32_t j = from; j < n; ++j) ownCopyPixel(s + 4 * j, dst + 4 * j);
}

static inline void ownRowHalfRef(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t from,
                                 int32_t n) {
  const uint8_t* s = srcRow + col[0];
  for (int32_t j = from; j < n; ++j) ownCopyPixel(s + 8 * j, dst + 4 * j);
}

#endif
