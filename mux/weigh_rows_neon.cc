// weigh_plane rows with NEON, 16 bytes a step: bytes widened to 32-bit lanes,
// multiplied and added with wrapping 32-bit arithmetic exactly as the scalar
// rule, then bits 16 to 23 narrowed back.
#include <arm_neon.h>

#include "mux/weigh_rows.h"

namespace zr::mux::neon {

void WeighRow(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc, uint32_t weightDst) {
  uint32_t x = 0;
  if (WeighVectorSafe(dst, src, width)) {
    const uint32x4_t half = vdupq_n_u32(32768);
    const auto mix = [&](uint16x4_t d, uint16x4_t s) {
      return vshrn_n_u32(vmlaq_n_u32(vmlaq_n_u32(half, vmovl_u16(d), weightDst), vmovl_u16(s), weightSrc),
                         16);
    };
    const auto mix8 = [&](uint8x8_t d, uint8x8_t s) {
      const uint16x8_t d16 = vmovl_u8(d);
      const uint16x8_t s16 = vmovl_u8(s);
      return vmovn_u16(vcombine_u16(mix(vget_low_u16(d16), vget_low_u16(s16)),
                                    mix(vget_high_u16(d16), vget_high_u16(s16))));
    };
    for (; width - x >= 16; x += 16) {
      const uint8x16_t d = vld1q_u8(dst + x);
      const uint8x16_t s = vld1q_u8(src + x);
      vst1q_u8(dst + x,
               vcombine_u8(mix8(vget_low_u8(d), vget_low_u8(s)), mix8(vget_high_u8(d), vget_high_u8(s))));
    }
  }
  if (x < width) WeighRowScalar(dst + x, src + x, width - x, weightSrc, weightDst);
}

}  // namespace zr::mux::neon
