// The dissolve's integer loops with AVX2: four doubles a step. Chosen at run
// time on processors that have AVX2 but no AVX-512.
#include <immintrin.h>

#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

// Four 32-bit samples of each source mixed as four doubles; cvttpd2dq gives
// 0x80000000 for what fits no integer, as the plain loop does here.
inline __m128i Mix4(__m128i a, __m128i b, __m256d t, __m256d u) {
  const __m256d sum =
      _mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(a), t), _mm256_mul_pd(_mm256_cvtepi32_pd(b), u));
  return _mm256_cvttpd_epi32(sum);
}

// Packs eight 32-bit results to 16 bits, keeping the bits of `mask` only, so
// that the pack wraps as the plain loop does instead of saturating.
inline __m128i PackLow(__m128i r0, __m128i r1, __m128i mask) {
  return _mm_packus_epi32(_mm_and_si128(r0, mask), _mm_and_si128(r1, mask));
}

// Sixteen 8-bit samples.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m256d t, __m256d u) {
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(out));
  const __m256i a0 = _mm256_cvtepu8_epi32(a), a1 = _mm256_cvtepu8_epi32(_mm_srli_si128(a, 8));
  const __m256i b0 = _mm256_cvtepu8_epi32(b), b1 = _mm256_cvtepu8_epi32(_mm_srli_si128(b, 8));
  const __m128i r0 = Mix4(_mm256_castsi256_si128(a0), _mm256_castsi256_si128(b0), t, u);
  const __m128i r1 = Mix4(_mm256_extracti128_si256(a0, 1), _mm256_extracti128_si256(b0, 1), t, u);
  const __m128i r2 = Mix4(_mm256_castsi256_si128(a1), _mm256_castsi256_si128(b1), t, u);
  const __m128i r3 = Mix4(_mm256_extracti128_si256(a1, 1), _mm256_extracti128_si256(b1, 1), t, u);
  const __m128i mask = _mm_set1_epi32(0xFF);
  const __m128i packed = _mm_packus_epi16(PackLow(r0, r1, mask), PackLow(r2, r3, mask));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), packed);
}

// Eight 16-bit samples.
inline void Mix8x16(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m256d t, __m256d u) {
  const __m256i a = _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in)));
  const __m256i b = _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(out)));
  const __m128i r0 = Mix4(_mm256_castsi256_si128(a), _mm256_castsi256_si128(b), t, u);
  const __m128i r1 = Mix4(_mm256_extracti128_si256(a, 1), _mm256_extracti128_si256(b, 1), t, u);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), PackLow(r0, r1, _mm_set1_epi32(0xFFFF)));
}

}  // namespace

void DissolveRow8_AVX2(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                       double u) {
  const __m256d vt = _mm256_set1_pd(t), vu = _mm256_set1_pd(u);
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

void DissolveRow16_AVX2(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                        double u) {
  const __m256d vt = _mm256_set1_pd(t), vu = _mm256_set1_pd(u);
  size_t i = 0;
  for (; i + 32 <= samples; i += 32)
    for (size_t k = 0; k < 64; k += 16) Mix8x16(in + 2 * i + k, out + 2 * i + k, dst + 2 * i + k, vt, vu);
  DissolveRow16_C(in + 2 * i, out + 2 * i, dst + 2 * i, samples - i, t, u);
}

}  // namespace zr::fx
