// The v210 row loops with SSE4.1: one group of 6 pixels a step.
#include <smmintrin.h>

#include <cstdint>

#include "fx/adapters/v210_rows.h"

namespace zr::fx {
namespace {

constexpr uint8_t Z = 0x80;  // shuffle to zero

// After the shifts below, byte 4i + s of the group is field s of word i
// (s = 0, 1, 2 for the fields at bits 0, 10, 20, each cut to its high 8 bits).
// Plane bytes 0..15 and 2..17 of the group, taken from those field bytes.
alignas(16) constexpr uint8_t kPlaneLow[16] = {1, 0, 2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14};
alignas(16) constexpr uint8_t kPlaneHigh[16] = {2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14, 10, 13};

// From plane bytes 0..15 of a group: per word, the fields at bits 0 and 20
// in the low bytes of its two halves, and the field at bit 10 in byte 1.
alignas(16) constexpr uint8_t kOuterFields[16] = {1, Z, 2, Z, 3, Z, 6, Z, 8, Z, 13, Z, 12, Z, 15, Z};
alignas(16) constexpr uint8_t kMiddleFields[16] = {Z, 0, Z, Z, Z, 7, Z, Z, Z, 9, Z, Z, Z, 14, Z, Z};

inline __m128i Load(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline void Store(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

}  // namespace

void ExpandV210Row_SSE41(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const __m128i low = Load(kPlaneLow), high = Load(kPlaneHigh);
  const __m128i byte0 = _mm_set1_epi32(0xFF), byte1 = _mm_set1_epi32(0xFF00);
  const __m128i bytes23 = _mm_set1_epi32(static_cast<int>(0xFFFF0000u));
  uint32_t x = 0;
  for (; x + 6 <= width; x += 6, src += 16, plane += 18) {
    const __m128i w = Load(src);
    // Bits 2..9 to byte 0, 12..19 to byte 1, 22..29 to byte 2 of each word.
    const __m128i fields = _mm_or_si128(
        _mm_or_si128(_mm_and_si128(_mm_srli_epi32(w, 2), byte0), _mm_and_si128(_mm_srli_epi32(w, 4), byte1)),
        _mm_and_si128(_mm_srli_epi32(w, 6), bytes23));
    Store(plane, _mm_shuffle_epi8(fields, low));
    Store(plane + 2, _mm_shuffle_epi8(fields, high));
  }
  ExpandV210Row_C(src, plane, width - x);
}

void PackV210Row_SSE41(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const __m128i outer = Load(kOuterFields), middle = Load(kMiddleFields);
  // Per word: the low half times 4 (field at bit 0), the high half times 64
  // (field at bit 20, as 16 + 6).
  const __m128i scale = _mm_set1_epi32(0x00400004);
  uint32_t x = 0;
  for (; x + 6 <= width; x += 6, plane += 18, dst += 16) {
    const __m128i p = Load(plane);
    const __m128i w = _mm_or_si128(_mm_mullo_epi16(_mm_shuffle_epi8(p, outer), scale),
                                   _mm_slli_epi32(_mm_shuffle_epi8(p, middle), 4));
    Store(dst, w);
  }
  PackV210Row_C(plane, dst, width - x);
}

}  // namespace zr::fx
