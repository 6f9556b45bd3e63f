// weigh_plane rows with SSE4.1, 16 bytes a step: each (dst, src) byte pair is
// multiplied by the split weights with pmaddwd in 32-bit lanes, byte 2 of
// each sum is gathered, and the carries are added (see SplitWeights).
#include <smmintrin.h>

#include "mux/weigh_rows.h"
#include "mux/x86_stream.h"

namespace zr::mux {
namespace {

// Byte 2 of the four sums of pair group g goes to bytes 4g to 4g + 3.
__m128i Pick(int g) {
  const auto at = [g](int i) { return static_cast<char>(i / 4 == g ? 4 * (i % 4) + 2 : -1); };
  return _mm_setr_epi8(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8), at(9), at(10), at(11),
                       at(12), at(13), at(14), at(15));
}

// The whole steps of a row; returns the bytes done.
template <int kKind>
uint32_t Steps(uint8_t* dst, const uint8_t* src, uint32_t width, const WeighSplit& w) {
  const __m128i low = _mm_set1_epi32(static_cast<int>(w.low));
  const __m128i carry = _mm_set1_epi32(static_cast<int>(w.carry));
  const __m128i half = _mm_set1_epi32(32768);
  const __m128i zero = _mm_setzero_si128();
  const __m128i pick0 = Pick(0), pick1 = Pick(1), pick2 = Pick(2), pick3 = Pick(3);
  const auto sums = [&](__m128i pairs) {
    __m128i t = _mm_add_epi32(_mm_madd_epi16(pairs, low), half);
    if constexpr (kKind == kWeighGeneral)
      t = _mm_add_epi32(t, _mm_slli_epi32(_mm_madd_epi16(pairs, carry), 16));
    return t;
  };
  uint32_t x = 0;
  for (; width - x >= 16; x += 16) {
    if (x % 64 == 0) {  // once a cache line
      PrefetchAhead(dst + x);
      PrefetchAhead(src + x);
    }
    const __m128i d = InRegister(_mm_loadu_si128(reinterpret_cast<const __m128i*>(dst + x)));
    const __m128i s = InRegister(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + x)));
    const __m128i ds0 = _mm_unpacklo_epi8(d, s);
    const __m128i ds1 = _mm_unpackhi_epi8(d, s);
    const __m128i r0 = _mm_shuffle_epi8(sums(_mm_unpacklo_epi8(ds0, zero)), pick0);
    const __m128i r1 = _mm_shuffle_epi8(sums(_mm_unpackhi_epi8(ds0, zero)), pick1);
    const __m128i r2 = _mm_shuffle_epi8(sums(_mm_unpacklo_epi8(ds1, zero)), pick2);
    const __m128i r3 = _mm_shuffle_epi8(sums(_mm_unpackhi_epi8(ds1, zero)), pick3);
    __m128i r = _mm_or_si128(_mm_or_si128(r0, r1), _mm_or_si128(r2, r3));
    if constexpr ((kKind & kWeighAddDst) != 0) r = _mm_add_epi8(r, d);
    if constexpr ((kKind & kWeighAddSrc) != 0) r = _mm_add_epi8(r, s);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + x), r);
  }
  return x;
}

constexpr uint32_t (*kSteps[])(uint8_t*, const uint8_t*, uint32_t, const WeighSplit&) = {
    Steps<0>, Steps<1>, Steps<2>, Steps<3>, Steps<kWeighGeneral>};

}  // namespace

void WeighRowSse41(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc, uint32_t weightDst) {
  uint32_t x = 0;
  if (WeighVectorSafe(dst, src, width)) {
    const WeighSplit w = SplitWeights(weightSrc, weightDst);
    x = kSteps[w.kind](dst, src, width, w);
  }
  if (x < width) WeighRowScalar(dst + x, src + x, width - x, weightSrc, weightDst);
}

}  // namespace zr::mux
