// The pixel mix rows with NEON, four pixels a step; the rest of a row, and
// rows where out runs into a source, go to the scalar rows.
#include <arm_neon.h>

#include "mux/pixel_rows.h"

namespace zr::mux::neon {
namespace {

template <class Op>
void Rows(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k,
          PixelRowFn scalar, Op op) {
  uint32_t x = 0;
  if (VectorSafe(a, b, out, width * 4))
    for (; width - x >= 4; x += 4)
      vst1q_u8(out + size_t{x} * 4, op(vld1q_u8(a + size_t{x} * 4), vld1q_u8(b + size_t{x} * 4)));
  if (x < width) scalar(a + size_t{x} * 4, b + size_t{x} * 4, out + size_t{x} * 4, width - x, k);
}

inline uint8x16_t Words(uint32_t w) { return vreinterpretq_u8_u32(vdupq_n_u32(w)); }

void Merge(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const uint8x16_t ma = Words(k.maskA);
  const uint8x16_t mb = Words(k.maskB);
  Rows(a, b, out, width, k, kPixelRowsScalar.merge,
       [&](uint8x16_t va, uint8x16_t vb) { return vorrq_u8(vandq_u8(va, ma), vandq_u8(vb, mb)); });
}

void Average(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  Rows(a, b, out, width, k, kPixelRowsScalar.average,
       [](uint8x16_t va, uint8x16_t vb) { return vaddq_u8(vshrq_n_u8(va, 1), vshrq_n_u8(vb, 1)); });
}

void Difference(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const uint8x16_t colour = Words(0x00FFFFFF);
  const uint32x4_t gain = vdupq_n_u32(k.gain);
  const uint32x4_t low = vdupq_n_u32(0xFF);
  Rows(a, b, out, width, k, kPixelRowsScalar.difference, [&](uint8x16_t va, uint8x16_t vb) {
    // A byte of A below B wraps to a huge difference: make it 0xFF, which
    // halves to 127 and saturates v whatever the gain.
    uint8x16_t d = vorrq_u8(vqsubq_u8(va, vb), vcgtq_u8(vb, va));
    const uint32x4_t h = vreinterpretq_u32_u8(vandq_u8(vshrq_n_u8(d, 1), colour));
    uint32x4_t m = vmaxq_u32(vandq_u32(h, low), vandq_u32(vshrq_n_u32(h, 8), low));
    m = vmaxq_u32(m, vshrq_n_u32(h, 16));
    const uint32x4_t v = vminq_u32(vmulq_u32(m, gain), vdupq_n_u32(127));
    return vreinterpretq_u8_u32(vmulq_n_u32(vorrq_u32(v, vdupq_n_u32(128)), 0x010101));
  });
}

void MatchGate(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const uint8x16_t tol = vdupq_n_u8(static_cast<uint8_t>(k.tolerance > 255 ? 255 : k.tolerance));
  const uint8x16_t fill = Words(k.fill);
  Rows(a, b, out, width, k, kPixelRowsScalar.matchGate, [&](uint8x16_t va, uint8x16_t vb) {
    const uint32x4_t over = vreinterpretq_u32_u8(vcgtq_u8(vabdq_u8(va, vb), tol));
    return vbslq_u8(vreinterpretq_u8_u32(vtstq_u32(over, over)), fill, vb);
  });
}

// Bits 8 to 15 of p * a + q * b depend only on the low 16 bits of p and q, so
// 16-bit lanes that wrap give the 32-bit result exactly.
void Crossfade(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const uint16x8_t p = vdupq_n_u16(static_cast<uint16_t>(k.p));
  const uint16x8_t q = vdupq_n_u16(static_cast<uint16_t>(k.q));
  Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](uint8x16_t va, uint8x16_t vb) {
    const uint16x8_t lo = vmlaq_u16(vmulq_u16(vmovl_u8(vget_low_u8(va)), p), vmovl_u8(vget_low_u8(vb)), q);
    const uint16x8_t hi = vmlaq_u16(vmulq_u16(vmovl_u8(vget_high_u8(va)), p), vmovl_u8(vget_high_u8(vb)), q);
    return vcombine_u8(vshrn_n_u16(lo, 8), vshrn_n_u16(hi, 8));
  });
}

void ChannelView(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.channel != kChannelMean) {
    const uint8_t c = static_cast<uint8_t>(k.channel);
    const uint8_t index[16] = {c,
                               c,
                               c,
                               c,
                               uint8_t(c + 4),
                               uint8_t(c + 4),
                               uint8_t(c + 4),
                               uint8_t(c + 4),
                               uint8_t(c + 8),
                               uint8_t(c + 8),
                               uint8_t(c + 8),
                               uint8_t(c + 8),
                               uint8_t(c + 12),
                               uint8_t(c + 12),
                               uint8_t(c + 12),
                               uint8_t(c + 12)};
    const uint8x16_t spread = vld1q_u8(index);
    Rows(a, b, out, width, k, kPixelRowsScalar.channelView,
         [&](uint8x16_t va, uint8x16_t) { return vqtbl1q_u8(va, spread); });
    return;
  }
  const uint32x4_t low = vdupq_n_u32(0xFF);
  Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [&](uint8x16_t va, uint8x16_t) {
    const uint32x4_t w = vreinterpretq_u32_u8(va);
    const uint32x4_t s = vaddq_u32(vaddq_u32(vandq_u32(w, low), vandq_u32(vshrq_n_u32(w, 8), low)),
                                   vandq_u32(vshrq_n_u32(w, 16), low));
    const uint32x4_t g = vshrq_n_u32(vmulq_n_u32(s, 0xAAAB), 17);  // s / 3 for s below 2^17
    return vreinterpretq_u8_u32(vmulq_n_u32(g, 0x01010101));
  });
}

}  // namespace

const PixelRowSet kPixelRows = {Merge, Average, Difference, MatchGate, Crossfade, ChannelView};

}  // namespace zr::mux::neon
