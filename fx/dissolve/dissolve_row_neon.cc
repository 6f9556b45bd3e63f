// The dissolve's integer loops with NEON: pairs of doubles.
#include <arm_neon.h>

#include "fx/dissolve/dissolve_row.h"

namespace zr::fx::neon {
namespace {

// Two samples of each source (64-bit lanes) mixed as doubles. fcvtzs
// saturates to 64 bits and gives 0 for not-a-number; sqxtn then saturates to
// 32 bits: together the answer of the plain loop's 32-bit conversion.
inline int32x2_t Mix2(uint64x2_t a, uint64x2_t b, float64x2_t t, float64x2_t u) {
  const float64x2_t sum = vaddq_f64(vmulq_f64(vcvtq_f64_u64(a), t), vmulq_f64(vcvtq_f64_u64(b), u));
  return vqmovn_s64(vcvtq_s64_f64(sum));
}

// Four 32-bit samples of each source; the four results as they convert.
inline uint32x4_t Mix4(uint32x4_t a, uint32x4_t b, float64x2_t t, float64x2_t u) {
  const int32x2_t lo = Mix2(vmovl_u32(vget_low_u32(a)), vmovl_u32(vget_low_u32(b)), t, u);
  const int32x2_t hi = Mix2(vmovl_high_u32(a), vmovl_high_u32(b), t, u);
  return vreinterpretq_u32_s32(vcombine_s32(lo, hi));
}

// Eight 16-bit samples; xtn keeps the low 16 bits, as the plain loop does.
inline uint16x8_t Mix8(uint16x8_t a, uint16x8_t b, float64x2_t t, float64x2_t u) {
  const uint32x4_t lo = Mix4(vmovl_u16(vget_low_u16(a)), vmovl_u16(vget_low_u16(b)), t, u);
  const uint32x4_t hi = Mix4(vmovl_high_u16(a), vmovl_high_u16(b), t, u);
  return vcombine_u16(vmovn_u32(lo), vmovn_u32(hi));
}

// Sixteen 8-bit samples; xtn keeps the low 8 bits.
inline void Mix16x8(const uint8_t* in, const uint8_t* out, uint8_t* dst, float64x2_t t, float64x2_t u) {
  const uint8x16_t a = vld1q_u8(in), b = vld1q_u8(out);
  const uint16x8_t lo = Mix8(vmovl_u8(vget_low_u8(a)), vmovl_u8(vget_low_u8(b)), t, u);
  const uint16x8_t hi = Mix8(vmovl_high_u8(a), vmovl_high_u8(b), t, u);
  vst1q_u8(dst, vcombine_u8(vmovn_u16(lo), vmovn_u16(hi)));
}

// Eight 16-bit samples, at any byte address.
inline void Mix8x16(const uint8_t* in, const uint8_t* out, uint8_t* dst, float64x2_t t, float64x2_t u) {
  const uint16x8_t a = vreinterpretq_u16_u8(vld1q_u8(in));
  const uint16x8_t b = vreinterpretq_u16_u8(vld1q_u8(out));
  vst1q_u8(dst, vreinterpretq_u8_u16(Mix8(a, b, t, u)));
}

}  // namespace

void DissolveRow8(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u) {
  const float64x2_t vt = vdupq_n_f64(t), vu = vdupq_n_f64(u);
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
  const float64x2_t vt = vdupq_n_f64(t), vu = vdupq_n_f64(u);
  size_t i = 0;
  for (; i + 32 <= samples; i += 32)
    for (size_t k = 0; k < 64; k += 16) Mix8x16(in + 2 * i + k, out + 2 * i + k, dst + 2 * i + k, vt, vu);
  DissolveRow16_C(in + 2 * i, out + 2 * i, dst + 2 * i, samples - i, t, u);
}

}  // namespace zr::fx::neon
