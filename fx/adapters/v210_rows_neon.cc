// The v210 row loops with NEON: one group of 6 pixels a step.
#include <arm_neon.h>

#include <cstdint>

#include "fx/adapters/v210_rows.h"

namespace zr::fx::neon {
namespace {

constexpr uint8_t Z = 0xFF;  // table index out of range: zero

// After the shifts below, byte 4i + s of the group is field s of word i
// (s = 0, 1, 2 for the fields at bits 0, 10, 20, each cut to its high 8 bits).
// Plane bytes 0..15 and 2..17 of the group, taken from those field bytes.
constexpr uint8_t kPlaneLow[16] = {1, 0, 2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14};
constexpr uint8_t kPlaneHigh[16] = {2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14, 10, 13};

// From plane bytes 0..15 of a group: per word, the fields at bits 0 and 20
// in the low bytes of its two halves, and the field at bit 10 in byte 1.
constexpr uint8_t kOuterFields[16] = {1, Z, 2, Z, 3, Z, 6, Z, 8, Z, 13, Z, 12, Z, 15, Z};
constexpr uint8_t kMiddleFields[16] = {Z, 0, Z, Z, Z, 7, Z, Z, Z, 9, Z, Z, Z, 14, Z, Z};
// Per word: the low half shifted by 2 (field at bit 0), the high half by 6
// (field at bit 20, as 16 + 6).
constexpr uint16_t kOuterShifts[8] = {2, 6, 2, 6, 2, 6, 2, 6};

}  // namespace

void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const uint8x16_t low = vld1q_u8(kPlaneLow), high = vld1q_u8(kPlaneHigh);
  const uint32x4_t byte0 = vdupq_n_u32(0xFF), byte1 = vdupq_n_u32(0xFF00);
  uint32_t x = 0;
  for (; x + 6 <= width; x += 6, src += 16, plane += 18) {
    const uint32x4_t w = vreinterpretq_u32_u8(vld1q_u8(src));
    // Bits 2..9 to byte 0, 12..19 to byte 1, 22..29 to byte 2 of each word.
    const uint32x4_t fields =
        vbslq_u32(byte0, vshrq_n_u32(w, 2), vbslq_u32(byte1, vshrq_n_u32(w, 4), vshrq_n_u32(w, 6)));
    const uint8x16_t f = vreinterpretq_u8_u32(fields);
    vst1q_u8(plane, vqtbl1q_u8(f, low));
    vst1q_u8(plane + 2, vqtbl1q_u8(f, high));
  }
  ExpandV210Row_C(src, plane, width - x);
}

void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const uint8x16_t outer = vld1q_u8(kOuterFields), middle = vld1q_u8(kMiddleFields);
  const int16x8_t shifts = vreinterpretq_s16_u16(vld1q_u16(kOuterShifts));
  uint32_t x = 0;
  for (; x + 6 <= width; x += 6, plane += 18, dst += 16) {
    const uint8x16_t p = vld1q_u8(plane);
    const uint16x8_t outerFields = vshlq_u16(vreinterpretq_u16_u8(vqtbl1q_u8(p, outer)), shifts);
    const uint32x4_t middleField = vshlq_n_u32(vreinterpretq_u32_u8(vqtbl1q_u8(p, middle)), 4);
    vst1q_u8(dst, vreinterpretq_u8_u32(vorrq_u32(vreinterpretq_u32_u16(outerFields), middleField)));
  }
  PackV210Row_C(plane, dst, width - x);
}

}  // namespace zr::fx::neon
