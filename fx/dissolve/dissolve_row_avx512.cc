// The dissolve's integer loops with AVX-512: eight doubles a step. Chosen at
// run time on processors with AVX-512 F, BW, VL and DQ.
// GCC 12's AVX-512 header seeds its results with _mm512_undefined_*(), which
// -Wmaybe-uninitialized misreads once inlined here (fixed in GCC 13).
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>

#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

// Eight samples, widened to 64 bits, as doubles: 2^52 + x has the bits of 2^52
// with x in the low mantissa, and taking 2^52 off again is exact. Cheaper here
// than the conversion instructions.
inline __m512d ToDouble(__m512i x) {
  const __m512d twoTo52 = _mm512_set1_pd(0x1p52);
  return _mm512_sub_pd(_mm512_castsi512_pd(_mm512_or_si512(x, _mm512_castpd_si512(twoTo52))), twoTo52);
}

// Eight samples of each source mixed; cvttpd2dq gives 0x80000000 for what
// fits no integer, as the plain loop does here.
inline __m256i Mix8(__m512i a, __m512i b, __m512d t, __m512d u) {
  return _mm512_cvttpd_epi32(_mm512_add_pd(_mm512_mul_pd(ToDouble(a), t), _mm512_mul_pd(ToDouble(b), u)));
}

inline __m512i Join(__m256i lo, __m256i hi) { return _mm512_inserti64x4(_mm512_castsi256_si512(lo), hi, 1); }

// Sixteen 8-bit samples; vpmovdb keeps the low 8 bits, as the plain loop does.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m512d t, __m512d u) {
  const auto bytes = [](const uint8_t* p) {
    return _mm512_cvtepu8_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
  };
  const __m256i lo = Mix8(bytes(in), bytes(out), t, u), hi = Mix8(bytes(in + 8), bytes(out + 8), t, u);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), _mm512_cvtepi32_epi8(Join(lo, hi)));
}

// Sixteen 16-bit samples; vpmovdw keeps the low 16 bits.
inline void Mix16x16(const uint8_t* in, const uint8_t* out, uint8_t* dst, __m512d t, __m512d u) {
  const auto words = [](const uint8_t* p) {
    return _mm512_cvtepu16_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
  };
  const __m256i lo = Mix8(words(in), words(out), t, u), hi = Mix8(words(in + 16), words(out + 16), t, u);
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), _mm512_cvtepi32_epi16(Join(lo, hi)));
}

}  // namespace

void DissolveRow8_AVX512(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                         double u) {
  const __m512d vt = _mm512_set1_pd(t), vu = _mm512_set1_pd(u);
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

void DissolveRow16_AVX512(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                          double u) {
  const __m512d vt = _mm512_set1_pd(t), vu = _mm512_set1_pd(u);
  size_t i = 0;
  for (; i + 32 <= samples; i += 32) {
    Mix16x16(in + 2 * i, out + 2 * i, dst + 2 * i, vt, vu);
    Mix16x16(in + 2 * i + 32, out + 2 * i + 32, dst + 2 * i + 32, vt, vu);
  }
  DissolveRow16_C(in + 2 * i, out + 2 * i, dst + 2 * i, samples - i, t, u);
}

}  // namespace zr::fx
