// The v210 row loops with AVX2: two groups of 6 pixels a step, one in each
// 128-bit lane. Chosen at run time on processors with AVX2.
#include <immintrin.h>

#include <cstdint>

#include "fx/adapters/v210_rows.h"

namespace zr::fx {
namespace {

constexpr uint8_t Z = 0x80;  // shuffle to zero

// The tables of the SSE4.1 form, once per lane. After the shifts below, byte
// 4i + s of a group is field s of word i (the fields at bits 0, 10, 20, each
// cut to its high 8 bits); plane bytes 0..15 and 2..17 of the group come
// from those field bytes.
alignas(32) constexpr uint8_t kPlaneLow[32] = {1, 0, 2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14,
                                               1, 0, 2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14};
alignas(32) constexpr uint8_t kPlaneHigh[32] = {2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14, 10, 13,
                                                2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14, 10, 13};
// From plane bytes 0..15 of a group: per word, the fields at bits 0 and 20
// in the low bytes of its two halves, and the field at bit 10 in byte 1.
alignas(32) constexpr uint8_t kOuterFields[32] = {1, Z, 2, Z, 3, Z, 6, Z, 8, Z, 13, Z, 12, Z, 15, Z,
                                                  1, Z, 2, Z, 3, Z, 6, Z, 8, Z, 13, Z, 12, Z, 15, Z};
alignas(32) constexpr uint8_t kMiddleFields[32] = {Z, 0, Z, Z, Z, 7, Z, Z, Z, 9, Z, Z, Z, 14, Z, Z,
                                                   Z, 0, Z, Z, Z, 7, Z, Z, Z, 9, Z, Z, Z, 14, Z, Z};

inline __m256i Load256(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
inline __m128i Load128(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void Store128(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

}  // namespace

void ExpandV210Row_AVX2(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const __m256i low = Load256(kPlaneLow), high = Load256(kPlaneHigh);
  const __m256i byte0 = _mm256_set1_epi32(0xFF), byte1 = _mm256_set1_epi32(0xFF00);
  const __m256i bytes23 = _mm256_set1_epi32(static_cast<int>(0xFFFF0000u));
  uint32_t x = 0;
  for (; x + 12 <= width; x += 12, src += 32, plane += 36) {
    const __m256i w = Load256(src);
    // Bits 2..9 to byte 0, 12..19 to byte 1, 22..29 to byte 2 of each word.
    const __m256i fields = _mm256_or_si256(_mm256_or_si256(_mm256_and_si256(_mm256_srli_epi32(w, 2), byte0),
                                                           _mm256_and_si256(_mm256_srli_epi32(w, 4), byte1)),
                                           _mm256_and_si256(_mm256_srli_epi32(w, 6), bytes23));
    const __m256i lo = _mm256_shuffle_epi8(fields, low), hi = _mm256_shuffle_epi8(fields, high);
    Store128(plane, _mm256_castsi256_si128(lo));
    Store128(plane + 2, _mm256_castsi256_si128(hi));
    Store128(plane + 18, _mm256_extracti128_si256(lo, 1));
    Store128(plane + 20, _mm256_extracti128_si256(hi, 1));
  }
  ExpandV210Row_C(src, plane, width - x);
}

void PackV210Row_AVX2(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const __m256i outer = Load256(kOuterFields), middle = Load256(kMiddleFields);
  // Per word: the low half times 4 (field at bit 0), the high half times 64
  // (field at bit 20, as 16 + 6).
  const __m256i scale = _mm256_set1_epi32(0x00400004);
  uint32_t x = 0;
  for (; x + 12 <= width; x += 12, plane += 36, dst += 32) {
    const __m256i p = _mm256_inserti128_si256(_mm256_castsi128_si256(Load128(plane)), Load128(plane + 18), 1);
    const __m256i w = _mm256_or_si256(_mm256_mullo_epi16(_mm256_shuffle_epi8(p, outer), scale),
                                      _mm256_slli_epi32(_mm256_shuffle_epi8(p, middle), 4));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), w);
  }
  PackV210Row_C(plane, dst, width - x);
}

}  // namespace zr::fx
