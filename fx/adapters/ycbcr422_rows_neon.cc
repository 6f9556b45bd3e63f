// The 4:2:2 row loops with NEON: 16 pixels a step, by structure loads and
// stores.
#include <arm_neon.h>

#include "fx/adapters/ycbcr422_rows.h"

namespace zr::fx::neon {

void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width) {
  uint32_t x = 0;
  for (; x + 16 <= width; x += 16) {
    // Eight pairs, split into bytes 0, 1, 2 and 3 of each pair.
    const uint8x8x4_t pairs = vld4_u8(src + 2 * x);
    const uint8x8x2_t y = vzip_u8(pairs.val[1], pairs.val[2]);
    const uint8x8x2_t cb = vzip_u8(pairs.val[0], pairs.val[0]);
    const uint8x8x2_t cr = vzip_u8(pairs.val[3], pairs.val[3]);
    uint8x16x3_t pixels;
    pixels.val[0] = vcombine_u8(y.val[0], y.val[1]);
    pixels.val[1] = vcombine_u8(cb.val[0], cb.val[1]);
    pixels.val[2] = vcombine_u8(cr.val[0], cr.val[1]);
    vst3q_u8(plane + 3 * x, pixels);
  }
  ExpandYCbCr422Row_C(src + 2 * x, plane + 3 * x, width - x);
}

void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  uint32_t x = 0;
  for (; x + 16 <= width; x += 16) {
    const uint8x16x3_t pixels = vld3q_u8(plane + 3 * x);
    uint8x8x4_t pairs;
    pairs.val[0] = vget_low_u8(vuzp1q_u8(pixels.val[1], pixels.val[1]));  // even Cb
    pairs.val[1] = vget_low_u8(vuzp1q_u8(pixels.val[0], pixels.val[0]));  // even Y
    pairs.val[2] = vget_low_u8(vuzp2q_u8(pixels.val[0], pixels.val[0]));  // odd Y
    pairs.val[3] = vget_low_u8(vuzp1q_u8(pixels.val[2], pixels.val[2]));  // even Cr
    vst4_u8(dst + 2 * x, pairs);
  }
  PackYCbCr422Row_C(plane + 3 * x, dst + 2 * x, width - x);
}

}  // namespace zr::fx::neon
