// One processor variant of the engine. This file is built once per variant
// with OWN_VARIANT set to its prefix (m7, u8, y8, e9) and that variant's
// instruction-set flags; the preprocessor picks the widest vector forms the
// flags allow. Every form reproduces the scalar reference of resize_row.h to
// the bit.
#include <emmintrin.h>
#if defined(__SSE4_1__)
#include <smmintrin.h>
#endif
#if defined(__AVX__)
#include <immintrin.h>
#endif

#include "resize/ipps_malloc.h"
#include "resize/resize_row.h"
#include "resize/resize_setup.h"
#include "resize/resize_sp.h"
#include "resize/resize_variants.h"

#ifndef OWN_VARIANT
#error "OWN_VARIANT must name the variant prefix"
#endif
#define OWN_PASTE(v, name) v##_##name
#define OWN_NAME(v, name) OWN_PASTE(v, name)
#define OWN_V(name) OWN_NAME(OWN_VARIANT, name)

namespace {

// Four 32-bit products, wrapped as the scalar form wraps them.
inline __m128i ownMulLo32(__m128i a, int32_t scale) {
  const __m128i s = _mm_set1_epi32(scale);
#if defined(__SSE4_1__)
  return _mm_mullo_epi32(a, s);
#else
  const __m128i even = _mm_mul_epu32(a, s);
  const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a, 32), s);
  return _mm_unpacklo_epi32(_mm_shuffle_epi32(even, _MM_SHUFFLE(0, 0, 2, 0)),
                            _mm_shuffle_epi32(odd, _MM_SHUFFLE(0, 0, 2, 0)));
#endif
}

// Four entries at a time; the conversions truncate and give 0x80000000 out
// of range just as ownTrunc32 does, and no product is fused into a sum.
void ownFillTable(int32_t* table, int32_t first, int32_t n, double inv, double offEps, int32_t scale) {
  const __m128i lanes = _mm_setr_epi32(0, 1, 2, 3);
  int32_t k = 0;
#if defined(__AVX__)
  const __m256d half = _mm256_set1_pd(0.5), vinv = _mm256_set1_pd(inv), voff = _mm256_set1_pd(offEps);
  for (; k + 4 <= n; k += 4) {
    const __m128i index = _mm_add_epi32(_mm_set1_epi32(first + k), lanes);
    const __m256d x =
        _mm256_add_pd(_mm256_mul_pd(_mm256_add_pd(_mm256_cvtepi32_pd(index), half), vinv), voff);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(table + k), ownMulLo32(_mm256_cvttpd_epi32(x), scale));
  }
#else
  const __m128d half = _mm_set1_pd(0.5), vinv = _mm_set1_pd(inv), voff = _mm_set1_pd(offEps);
  for (; k + 4 <= n; k += 4) {
    const __m128i index = _mm_add_epi32(_mm_set1_epi32(first + k), lanes);
    const __m128d lo = _mm_cvtepi32_pd(index);
    const __m128d hi = _mm_cvtepi32_pd(_mm_shuffle_epi32(index, _MM_SHUFFLE(1, 0, 3, 2)));
    const __m128i tlo = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(_mm_add_pd(lo, half), vinv), voff));
    const __m128i thi = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(_mm_add_pd(hi, half), vinv), voff));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(table + k), ownMulLo32(_mm_unpacklo_epi64(tlo, thi), scale));
  }
#endif
  ownFillTableRef(table + k, first + k, n - k, inv, offEps, scale);
}

void ownRowCopy(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  const uint8_t* s = srcRow + col[0];
  int32_t j = 0;
#if defined(__AVX__)
  for (; j + 8 <= n; j += 8)
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + 4 * j),
                        _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + 4 * j)));
#endif
  for (; j + 4 <= n; j += 4)
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + 4 * j),
                     _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + 4 * j)));
  ownRowCopyRef(srcRow, col, dst, j, n);
}

inline __m128 ownLoad4(const uint8_t* p) {
  return _mm_castsi128_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}

// Every other pixel. A block of k output pixels loads 2k source pixels, the
// last of which is an odd one that is not needed; a block is taken only
// while a later pixel is still needed, so no byte past the last needed
// pixel is read. The float shuffles move bits and never touch values.
void ownRowHalf(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  const uint8_t* s = srcRow + col[0];
  int32_t j = 0;
#if defined(__AVX__)
  for (; j + 8 < n; j += 8) {
    const uint8_t* p = s + 8 * j;
    const __m256 lo = _mm256_insertf128_ps(_mm256_castps128_ps256(ownLoad4(p)), ownLoad4(p + 32), 1);
    const __m256 hi = _mm256_insertf128_ps(_mm256_castps128_ps256(ownLoad4(p + 16)), ownLoad4(p + 48), 1);
    _mm256_storeu_ps(reinterpret_cast<float*>(dst + 4 * j),
                     _mm256_shuffle_ps(lo, hi, _MM_SHUFFLE(2, 0, 2, 0)));
  }
#endif
  for (; j + 4 < n; j += 4) {
    const uint8_t* p = s + 8 * j;
    _mm_storeu_ps(reinterpret_cast<float*>(dst + 4 * j),
                  _mm_shuffle_ps(ownLoad4(p), ownLoad4(p + 16), _MM_SHUFFLE(2, 0, 2, 0)));
  }
  ownRowHalfRef(srcRow, col, dst, j, n);
}

// rowHalf with streaming stores, which need a 16-byte aligned destination:
// single pixels up to the first boundary, and the plain form for a
// destination that pixels never align.
void ownRowHalfStream(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  const uintptr_t at = reinterpret_cast<uintptr_t>(dst);
  if (at % 4 != 0) {
    ownRowHalf(srcRow, col, dst, n);
    return;
  }
  const int32_t head = static_cast<int32_t>((16 - at % 16) % 16 / 4);
  int32_t j = head < n ? head : n;
  ownRowHalfRef(srcRow, col, dst, 0, j);
  const uint8_t* s = srcRow + col[0];
  for (; j + 4 < n; j += 4) {
    const uint8_t* p = s + 8 * j;
    _mm_stream_ps(reinterpret_cast<float*>(dst + 4 * j),
                  _mm_shuffle_ps(ownLoad4(p), ownLoad4(p + 16), _MM_SHUFFLE(2, 0, 2, 0)));
  }
  ownRowHalfRef(srcRow, col, dst, j, n);
}

}  // namespace

const ownResizeKernels OWN_V(ownResizeKernels) = {ownFillTable, ownRowGatherRef, ownRowCopy, ownRowHalf,
                                                  ownRowHalfStream};

// The public routines of this variant. Only the pixel work differs between
// variants; the size query and the allocator are the shared ones.
extern "C" {

IppStatus OWN_V(ippiResizeGetBufSize)(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel,
                                      int32_t interpolation, int32_t* pBufferSize) {
  return ownpi_ResizeGetBufSizeSerial(srcRoi, dstRoi, nChannel, interpolation, pBufferSize);
}

IppStatus OWN_V(ippiResizeSqrPixel_8u_C4R)(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep,
                                           IppiRect srcRoi, uint8_t* pDst, int32_t dstStep, IppiRect dstRoi,
                                           double xFactor, double yFactor, double xShift, double yShift,
                                           int32_t interpolation, uint8_t* pBuffer) {
  return ownpiResizeSqrPixel_8u_C4R(pSrc, srcSize, srcStep, srcRoi, pDst, dstStep, dstRoi, xFactor, yFactor,
                                    xShift, yShift, interpolation, pBuffer, OWN_V(ownResizeKernels));
}

uint8_t* OWN_V(ippsMalloc_8u)(int32_t len) { return ownsMalloc_8u(len); }

void OWN_V(ippsFree)(void* ptr) { ownsFree(ptr); }

}  // extern "C"
