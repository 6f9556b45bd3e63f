// The dissolve's integer loops for SSE4.1 (pairs of doubles), AVX2 (four
// doubles) and AVX-512 (eight doubles). The steps of the loops are shared;
// the blocks of samples they mix differ where the sets do: AVX-512 widens to
// 64 bits and narrows with vpmov, the others pack.
#include "fx/dissolve/dissolve_row.h"
#include "platform/simd_x86.h"

namespace zr::fx::ZR_ISA_NS {
namespace {

#if defined(ZR_ISA_avx512)
using D = __m512d;
inline D Doubles(double v) { return _mm512_set1_pd(v); }

// Eight samples, widened to 64 bits, as doubles: 2^52 + x has the bits of 2^52
// with x in the low mantissa, and taking 2^52 off again is exact. Cheaper here
// than the conversion instructions.
inline D ToDouble(__m512i x) {
  const D twoTo52 = _mm512_set1_pd(0x1p52);
  return _mm512_sub_pd(_mm512_castsi512_pd(_mm512_or_si512(x, _mm512_castpd_si512(twoTo52))), twoTo52);
}

// Eight samples of each source mixed; cvttpd2dq gives 0x80000000 for what
// fits no integer, as the plain loop does here.
inline __m256i Mix8(__m512i a, __m512i b, D t, D u) {
  return _mm512_cvttpd_epi32(_mm512_add_pd(_mm512_mul_pd(ToDouble(a), t), _mm512_mul_pd(ToDouble(b), u)));
}

inline __m512i Join(__m256i lo, __m256i hi) { return _mm512_inserti64x4(_mm512_castsi256_si512(lo), hi, 1); }

// Sixteen 8-bit samples; vpmovdb keeps the low 8 bits, as the plain loop does.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, D t, D u) {
  const auto bytes = [](const uint8_t* p) {
    return _mm512_cvtepu8_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
  };
  const __m256i lo = Mix8(bytes(in), bytes(out), t, u), hi = Mix8(bytes(in + 8), bytes(out + 8), t, u);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), _mm512_cvtepi32_epi8(Join(lo, hi)));
}

// Sixteen 16-bit samples (32 bytes); vpmovdw keeps the low 16 bits.
constexpr size_t kBlock16Bytes = 32;
inline void Mix16Bit(const uint8_t* in, const uint8_t* out, uint8_t* dst, D t, D u) {
  const auto words = [](const uint8_t* p) {
    return _mm512_cvtepu16_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
  };
  const __m256i lo = Mix8(words(in), words(out), t, u), hi = Mix8(words(in + 16), words(out + 16), t, u);
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), _mm512_cvtepi32_epi16(Join(lo, hi)));
}
#else
// Four 32-bit samples of each source mixed in doubles. cvttpd2dq gives
// 0x80000000 for what fits no integer, as the plain loop does here.
#if defined(ZR_ISA_avx2)
using D = __m256d;
inline D Doubles(double v) { return _mm256_set1_pd(v); }
inline __m128i Mix4(__m128i a, __m128i b, D t, D u) {
  return _mm256_cvttpd_epi32(
      _mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(a), t), _mm256_mul_pd(_mm256_cvtepi32_pd(b), u)));
}
#else
using D = __m128d;
inline D Doubles(double v) { return _mm_set1_pd(v); }
inline __m128i Mix4(__m128i a, __m128i b, D t, D u) {
  const D aLo = _mm_cvtepi32_pd(a), aHi = _mm_cvtepi32_pd(_mm_unpackhi_epi64(a, a));
  const D bLo = _mm_cvtepi32_pd(b), bHi = _mm_cvtepi32_pd(_mm_unpackhi_epi64(b, b));
  const __m128i lo = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(aLo, t), _mm_mul_pd(bLo, u)));
  const __m128i hi = _mm_cvttpd_epi32(_mm_add_pd(_mm_mul_pd(aHi, t), _mm_mul_pd(bHi, u)));
  return _mm_unpacklo_epi64(lo, hi);
}
#endif

// Packs eight 32-bit results to 16 bits, keeping the bits of `mask` only, so
// that the pack wraps as the plain loop does instead of saturating.
inline __m128i PackLow(__m128i r0, __m128i r1, __m128i mask) {
  return _mm_packus_epi32(_mm_and_si128(r0, mask), _mm_and_si128(r1, mask));
}

// Sixteen 8-bit samples.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, D t, D u) {
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
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst),
                   _mm_packus_epi16(PackLow(r0, r1, mask), PackLow(r2, r3, mask)));
}

// Eight 16-bit samples (16 bytes).
constexpr size_t kBlock16Bytes = 16;
inline void Mix16Bit(const uint8_t* in, const uint8_t* out, uint8_t* dst, D t, D u) {
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(out));
  const __m128i r0 = Mix4(_mm_cvtepu16_epi32(a), _mm_cvtepu16_epi32(b), t, u);
  const __m128i r1 =
      Mix4(_mm_cvtepu16_epi32(_mm_srli_si128(a, 8)), _mm_cvtepu16_epi32(_mm_srli_si128(b, 8)), t, u);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), PackLow(r0, r1, _mm_set1_epi32(0xFFFF)));
}
#endif

}  // namespace

void DissolveRow8(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u) {
  const D vt = Doubles(t), vu = Doubles(u);
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

void DissolveRow16(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u) {
  const D vt = Doubles(t), vu = Doubles(u);
  size_t i = 0;
  for (; i + 32 <= samples; i += 32)
    for (size_t k = 0; k < 64; k += kBlock16Bytes)
      Mix16Bit(in + 2 * i + k, out + 2 * i + k, dst + 2 * i + k, vt, vu);
  DissolveRow16_C(in + 2 * i, out + 2 * i, dst + 2 * i, samples - i, t, u);
}

}  // namespace zr::fx::ZR_ISA_NS
