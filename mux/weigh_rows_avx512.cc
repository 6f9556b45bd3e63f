// weigh_plane rows with AVX-512 (F and BW), 64 bytes a step: each (dst, src)
// byte pair is multiplied by the split weights with pmaddwd in 32-bit lanes,
// byte 2 of each sum is gathered, and the carries are added (see
// SplitWeights). Every byte operation stays within its 128-bit lane, so the
// lanes come out in order.
// GCC 12 warns about the undefined inputs that its own AVX-512 intrinsics
// pass to their builtins (fixed in GCC 13); nothing here is uninitialised.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>

#include "mux/weigh_rows.h"
#include "mux/x86_stream.h"

namespace zr::mux {
namespace {

// Byte 2 of the four sums of pair group g goes to bytes 4g to 4g + 3.
__m512i Pick(int g) {
  const auto at = [g](int i) { return static_cast<char>(i / 4 == g ? 4 * (i % 4) + 2 : -1); };
  return _mm512_broadcast_i32x4(_mm_setr_epi8(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8),
                                              at(9), at(10), at(11), at(12), at(13), at(14), at(15)));
}

// The whole steps of a row; returns the bytes done.
template <int kKind>
uint32_t Steps(uint8_t* dst, const uint8_t* src, uint32_t width, const WeighSplit& w) {
  const __m512i low = _mm512_set1_epi32(static_cast<int>(w.low));
  const __m512i carry = _mm512_set1_epi32(static_cast<int>(w.carry));
  const __m512i half = _mm512_set1_epi32(32768);
  const __m512i zero = _mm512_setzero_si512();
  const __m512i pick0 = Pick(0), pick1 = Pick(1), pick2 = Pick(2), pick3 = Pick(3);
  const auto sums = [&](__m512i pairs) {
    __m512i t = _mm512_add_epi32(_mm512_madd_epi16(pairs, low), half);
    if constexpr (kKind == kWeighGeneral)
      t = _mm512_add_epi32(t, _mm512_slli_epi32(_mm512_madd_epi16(pairs, carry), 16));
    return t;
  };
  uint32_t x = 0;
  for (; width - x >= 64; x += 64) {
    if (x % 64 == 0) {  // once a cache line
      PrefetchAhead(dst + x);
      PrefetchAhead(src + x);
    }
    const __m512i d = InRegister(_mm512_loadu_si512(dst + x));
    const __m512i s = InRegister(_mm512_loadu_si512(src + x));
    const __m512i ds0 = _mm512_unpacklo_epi8(d, s);
    const __m512i ds1 = _mm512_unpackhi_epi8(d, s);
    const __m512i r0 = _mm512_shuffle_epi8(sums(_mm512_unpacklo_epi8(ds0, zero)), pick0);
    const __m512i r1 = _mm512_shuffle_epi8(sums(_mm512_unpackhi_epi8(ds0, zero)), pick1);
    const __m512i r2 = _mm512_shuffle_epi8(sums(_mm512_unpacklo_epi8(ds1, zero)), pick2);
    const __m512i r3 = _mm512_shuffle_epi8(sums(_mm512_unpackhi_epi8(ds1, zero)), pick3);
    __m512i r = _mm512_or_si512(_mm512_ternarylogic_epi32(r0, r1, r2, 0xFE), r3);
    if constexpr ((kKind & kWeighAddDst) != 0) r = _mm512_add_epi8(r, d);
    if constexpr ((kKind & kWeighAddSrc) != 0) r = _mm512_add_epi8(r, s);
    _mm512_storeu_si512(dst + x, r);
  }
  return x;
}

constexpr uint32_t (*kSteps[])(uint8_t*, const uint8_t*, uint32_t, const WeighSplit&) = {
    Steps<0>, Steps<1>, Steps<2>, Steps<3>, Steps<kWeighGeneral>};

}  // namespace

void WeighRowAvx512(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc,
                    uint32_t weightDst) {
  uint32_t x = 0;
  if (WeighVectorSafe(dst, src, width)) {
    const WeighSplit w = SplitWeights(weightSrc, weightDst);
    x = kSteps[w.kind](dst, src, width, w);
  }
  if (x < width) WeighRowScalar(dst + x, src + x, width - x, weightSrc, weightDst);
}

}  // namespace zr::mux
