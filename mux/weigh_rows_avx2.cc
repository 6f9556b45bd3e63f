// weigh_plane rows with AVX2, 32 bytes a step: each (dst, src) byte pair is
// multiplied by the split weights with pmaddwd in 32-bit lanes, byte 2 of
// each sum is gathered, and the carries are added (see SplitWeights). Every
// operation stays within its 128-bit lane, so the lanes come out in order.
#include <immintrin.h>

#include "mux/weigh_rows.h"
#include "mux/x86_stream.h"

namespace zr::mux {
namespace {

// Byte 2 of the four sums of pair group g goes to bytes 4g to 4g + 3.
__m256i Pick(int g) {
  const auto at = [g](int i) { return static_cast<char>(i / 4 == g ? 4 * (i % 4) + 2 : -1); };
  return _mm256_broadcastsi128_si256(_mm_setr_epi8(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7),
                                                   at(8), at(9), at(10), at(11), at(12), at(13), at(14),
                                                   at(15)));
}

// The whole steps of a row; returns the bytes done.
template <int kKind>
uint32_t Steps(uint8_t* dst, const uint8_t* src, uint32_t width, const WeighSplit& w) {
  const __m256i low = _mm256_set1_epi32(static_cast<int>(w.low));
  const __m256i carry = _mm256_set1_epi32(static_cast<int>(w.carry));
  const __m256i half = _mm256_set1_epi32(32768);
  const __m256i zero = _mm256_setzero_si256();
  const __m256i pick0 = Pick(0), pick1 = Pick(1), pick2 = Pick(2), pick3 = Pick(3);
  const auto sums = [&](__m256i pairs) {
    __m256i t = _mm256_add_epi32(_mm256_madd_epi16(pairs, low), half);
    if constexpr (kKind == kWeighGeneral)
      t = _mm256_add_epi32(t, _mm256_slli_epi32(_mm256_madd_epi16(pairs, carry), 16));
    return t;
  };
  uint32_t x = 0;
  for (; width - x >= 32; x += 32) {
    if (x % 64 == 0) {  // once a cache line
      PrefetchAhead(dst + x);
      PrefetchAhead(src + x);
    }
    const __m256i d = InRegister(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(dst + x)));
    const __m256i s = InRegister(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(src + x)));
    const __m256i ds0 = _mm256_unpacklo_epi8(d, s);
    const __m256i ds1 = _mm256_unpackhi_epi8(d, s);
    const __m256i r0 = _mm256_shuffle_epi8(sums(_mm256_unpacklo_epi8(ds0, zero)), pick0);
    const __m256i r1 = _mm256_shuffle_epi8(sums(_mm256_unpackhi_epi8(ds0, zero)), pick1);
    const __m256i r2 = _mm256_shuffle_epi8(sums(_mm256_unpacklo_epi8(ds1, zero)), pick2);
    const __m256i r3 = _mm256_shuffle_epi8(sums(_mm256_unpackhi_epi8(ds1, zero)), pick3);
    __m256i r = _mm256_or_si256(_mm256_or_si256(r0, r1), _mm256_or_si256(r2, r3));
    if constexpr ((kKind & kWeighAddDst) != 0) r = _mm256_add_epi8(r, d);
    if constexpr ((kKind & kWeighAddSrc) != 0) r = _mm256_add_epi8(r, s);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst + x), r);
  }
  return x;
}

constexpr uint32_t (*kSteps[])(uint8_t*, const uint8_t*, uint32_t, const WeighSplit&) = {
    Steps<0>, Steps<1>, Steps<2>, Steps<3>, Steps<kWeighGeneral>};

}  // namespace

void WeighRowAvx2(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc, uint32_t weightDst) {
  uint32_t x = 0;
  if (WeighVectorSafe(dst, src, width)) {
    const WeighSplit w = SplitWeights(weightSrc, weightDst);
    x = kSteps[w.kind](dst, src, width, w);
  }
  if (x < width) WeighRowScalar(dst + x, src + x, width - x, weightSrc, weightDst);
}

}  // namespace zr::mux
