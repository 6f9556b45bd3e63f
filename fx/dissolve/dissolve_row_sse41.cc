// The dissolve's integer loops with SSE4.1: pairs of doubles.
#include <smmintrin.h>

#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

// Four 32-bit samples of each source mixed as two pairs of doubles. cvttpd2dq
// gives 0x80000000 for what fits no integer, as the plain loop does here.
inline __m128i Mix4(__m128i a, __m128i b, __m128d t, __m128d u) {
  const __m128d aLo = _mm_cvtepi32_pd(a), aHi = _mm_cvtepi32_pd(_mm_unpackhi_epi64(a, a));
  const __m128d bLo = _mm_cvtepi32_pd(b), bHi = _mm_cvtepi32_pd(_mm_unpackhi_epi64(b, b));
  const __m128i lo = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(aLo, t), _mm_mul_pd(bLo, u)));
  const __m128i hi = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(aHi, t), _mm_mul_pd(bHi, u)));
  return _mm_unpacklo_epi64(lo, hi);
}

// Packs eight 32-bit results to 16 bits, keeping the bits of `mask` only, so
// that the pack wraps as the plain loop does instead of saturating.
inline __m128i PackLow(__m128i r0, __m128i r1, __m128i mask) {
  return _mm_packus_epi32(_mm_and_si128(r0, mask), _mm_and_si128(r1, mask));
}

// Sixteen 8-bit samples.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m128d t, __m128d u) {
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(out));
  const __m128i r0 = Mix4(_mm_cvtepu8_epi32(a), _mm_cvtepu8_epi32(b), t, u);
  const __m128i r1 =
      Mix4(_mm_cvtepu8_epi32(_mm_srli_si128(a, 4)), _mm_cvtepu8_epi32(_mm_srli_si128(b, 4)), t, u);
  const __m128i r2 =
      Mix4(_mm_cvtepu8_epi32(_mm_srli_si128(a, 8)), _mm_cvtepu8_epi32(_mm_srli_si128(b, 8)), t, u);
  const __m128i r3 =
      Mix4(_mm_cvtepu8_epi32(_mm_srli_si128(a, 12)), _mm_cvtepu8_epi32(_mm_srli_si128(b, 12)), t, u);
  const __m128i mask = _mm_set1_epi32(0xFF);
  const __m128i packed = _mm_packus_epi16(PackLow(r0, r1, mask), PackLow(r2, r3, mask));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), packed);
}

// Eight 16-bit samples.
inline void Mix8x16(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m128d t, __m128d u) {
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(out));
  const __m128i r0 = Mix4(_mm_cvtepu16_epi32(a), _mm_cvtepu16_epi32(b), t, u);
  const __m128i r1 =
      Mix4(_mm_cvtepu16_epi32(_mm_srli_si128(a, 8)), _mm_cvtepu16_epi32(_mm_srli_si128(b, 8)), t, u);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), PackLow(r0, r1, _mm_set1_epi32(0xFFFF)));
}

}  // namespace

void DissolveRow8_SSE41(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                        double u) {
  const __m128d vt = _mm_set1_pd(t), vu = _mm_set1_pd(u);
  size_t i = 0;
  for (; i + 64 <= samples; i += 64)
    for (size_t k = 0; k < 64; k += 16) Mix16x8(in + i + k, out + i + k, dst + i + k, vt, vu);
  if (i + 32 <= samples) {
    Mix16x8(in + i, out + i, dst + i, vt, vu);
    Mix16x8(in + i + 16, out + i + 16, dst + i + 16, vt, vu);
    i += 32;
  }
  DissolveRow8_C(in + i, out + i, dst + i, samples - i, t, u);
}

void DissolveRow16_SSE41(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                         double u) {
  const __m128d vt = _mm_set1_pd(t), vu = _mm_set1_pd(u);
  size_t i = 0;
  for (; i + 32 <= samples; i += 32)
    for (size_t k = 0; k < 64; k += 16) Mix8x16(in + 2 * i + k, out + 2 * i + k, dst + 2 * i + k, vt, vu);
  DissolveRow16_C(in + 2 * i, out + 2 * i, dst + 2 * i, samples - i, t, u);
}

}  // namespace zr::fx
