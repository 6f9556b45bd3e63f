// The integer mix with NEON. With d = in - out, the mix is out + floor(d * w /
// 65536); for weights of 32768 and more it is in + floor(d * (w - 65536) /
// 65536), so the factor fits 16 signed bits and each product 32. The
// arithmetic narrowing shift by 16 is the floor.
#include <arm_neon.h>

#include <cstdint>

#include "fx/dissolve/mix_row.h"

namespace zr::fx::neon {
namespace {

// Eight 8-bit samples of each source, widened to 16 bits.
template <bool fromIn>
inline uint8x8_t Mix8(uint8x8_t a, uint8x8_t b, int16x4_t factor) {
  const int16x8_t d = vreinterpretq_s16_u16(vsubl_u8(a, b));
  const int16x8_t step = vcombine_s16(vshrn_n_s32(vmull_s16(vget_low_s16(d), factor), 16),
                                      vshrn_n_s32(vmull_s16(vget_high_s16(d), factor), 16));
  const int16x8_t base = vreinterpretq_s16_u16(vmovl_u8(fromIn ? a : b));
  return vqmovun_s16(vaddq_s16(base, step));
}

// Four 16-bit samples of each source, widened to 32 bits.
template <bool fromIn>
inline uint16x4_t Mix4(uint16x4_t a, uint16x4_t b, int32x4_t factor) {
  const int32x4_t d = vreinterpretq_s32_u32(vsubl_u16(a, b));
  const int32x4_t base = vreinterpretq_s32_u32(vmovl_u16(fromIn ? a : b));
  return vqmovun_s32(vaddq_s32(base, vshrq_n_s32(vmulq_s32(d, factor), 16)));
}

// Asks for the line `distance` bytes past p; the address is formed as an
// integer, since it may lie past the frame, and is never dereferenced.
inline void PrefetchAt(const uint8_t* p, size_t distance) {
  __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<uintptr_t>(p) + distance));
}

// Whole 64-byte steps, asking for each line of both sources in the next row;
// returns the bytes done.
template <bool fromIn>
size_t Mix8Bytes(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t bytes, int16x4_t factor,
                 NextRows next) {
  size_t i = 0;
  for (; i + 64 <= bytes; i += 64) {
    PrefetchAt(in + i, next.in);
    PrefetchAt(out + i, next.out);
    for (size_t k = 0; k < 64; k += 16) {
      const uint8x16_t a = vld1q_u8(in + i + k), b = vld1q_u8(out + i + k);
      const uint8x8_t lo = Mix8<fromIn>(vget_low_u8(a), vget_low_u8(b), factor);
      const uint8x8_t hi = Mix8<fromIn>(vget_high_u8(a), vget_high_u8(b), factor);
      vst1q_u8(dst + i + k, vcombine_u8(lo, hi));
    }
  }
  return i;
}

template <bool fromIn>
size_t Mix16Bytes(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t bytes, int32x4_t factor,
                  NextRows next) {
  size_t i = 0;
  for (; i + 64 <= bytes; i += 64) {
    PrefetchAt(in + i, next.in);
    PrefetchAt(out + i, next.out);
    for (size_t k = 0; k < 64; k += 16) {
      const uint16x8_t a = vreinterpretq_u16_u8(vld1q_u8(in + i + k));
      const uint16x8_t b = vreinterpretq_u16_u8(vld1q_u8(out + i + k));
      const uint16x4_t lo = Mix4<fromIn>(vget_low_u16(a), vget_low_u16(b), factor);
      const uint16x4_t hi = Mix4<fromIn>(vget_high_u16(a), vget_high_u16(b), factor);
      vst1q_u8(dst + i + k, vreinterpretq_u8_u16(vcombine_u16(lo, hi)));
    }
  }
  return i;
}

}  // namespace

void MixRow8(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
             NextRows next) {
  const MixFactor f(weight);
  const int16x4_t factor = vdup_n_s16(static_cast<int16_t>(f.factor));
  const size_t done = f.fromIn ? Mix8Bytes<true>(in, out, dst, samples, factor, next)
                               : Mix8Bytes<false>(in, out, dst, samples, factor, next);
  MixRow8_C(in + done, out + done, dst + done, samples - done, weight);
}

void MixRow16(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
              NextRows next) {
  const MixFactor f(weight);
  const int32x4_t factor = vdupq_n_s32(f.factor);
  const size_t done = f.fromIn ? Mix16Bytes<true>(in, out, dst, 2 * samples, factor, next)
                               : Mix16Bytes<false>(in, out, dst, 2 * samples, factor, next);
  MixRow16_C(in + done, out + done, dst + done, samples - done / 2, weight);
}

}  // namespace zr::fx::neon
