// The pixel mix rows in portable code, the reference that every vector set
// reproduces to the bit, and the choice of a set.
#include "mux/pixel_rows.h"

#include "mux/mux_call.h"
#include "platform/cpu_choice.h"

namespace zr::mux {
namespace {

template <uint32_t (*Op)(uint32_t a, uint32_t b, const PixelRowParams& k)>
void Row(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  for (uint32_t x = 0; x < width; ++x)
    StorePixel(out + size_t{x} * 4, Op(LoadPixel(a + size_t{x} * 4), LoadPixel(b + size_t{x} * 4), k));
}

uint32_t Merge(uint32_t a, uint32_t b, const PixelRowParams& k) { return (a & k.maskA) | (b & k.maskB); }

// Each byte is a_i / 2 + b_i / 2: the low bits are dropped before the sum,
// so 255 and 255 give 254. Hosts rely on this truncation; keep it.
uint32_t Average(uint32_t a, uint32_t b, const PixelRowParams&) {
  return ((((a & 0xFE) + (b & 0xFE)) | ((a & 0xFE00) + (b & 0xFE00)) | ((a & 0xFE0000) + (b & 0xFE0000))) >>
          1) |
         (((a >> 1) & 0x7F000000) + ((b >> 1) & 0x7F000000));
}

// One-sided on purpose: the differences wrap, so a channel in which A is
// darker than B drives the pixel to full grey. Byte 3 plays no part and the
// output alpha is 0.
uint32_t Difference(uint32_t a, uint32_t b, const PixelRowParams& k) {
  const uint32_t d0 = ((a & 0xFF) - (b & 0xFF)) >> 1;
  const uint32_t d1 = ((a & 0xFF00) - (b & 0xFF00)) >> 9;
  const uint32_t d2 = ((a & 0xFF0000) - (b & 0xFF0000)) >> 17;
  uint32_t m = d0 > d1 ? d0 : d1;
  m = m > d2 ? m : d2;
  const uint64_t scaled = uint64_t{m} * k.gain;
  const uint32_t v = scaled > 127 ? 127 : static_cast<uint32_t>(scaled);
  return (v | 128) * 0x010101;
}

uint32_t MatchGate(uint32_t a, uint32_t b, const PixelRowParams& k) {
  for (int i = 0; i < 4; ++i) {
    const uint32_t ai = (a >> (8 * i)) & 0xFF;
    const uint32_t bi = (b >> (8 * i)) & 0xFF;
    if ((ai > bi ? ai - bi : bi - ai) > k.tolerance) return k.fill;
  }
  return b;
}

// 32-bit arithmetic that wraps for weights beyond 256, then the low byte of
// the sum shifted down: no rounding term.
uint32_t Crossfade(uint32_t a, uint32_t b, const PixelRowParams& k) {
  uint32_t out = 0;
  for (int i = 0; i < 4; ++i) {
    const uint32_t ai = (a >> (8 * i)) & 0xFF;
    const uint32_t bi = (b >> (8 * i)) & 0xFF;
    out |= (((k.p * ai + k.q * bi) >> 8) & 0xFF) << (8 * i);
  }
  return out;
}

uint32_t ChannelView(uint32_t a, uint32_t, const PixelRowParams& k) {
  const uint32_t g = k.channel == kChannelMean ? ((a & 0xFF) + ((a >> 8) & 0xFF) + ((a >> 16) & 0xFF)) / 3
                                               : (a >> (8 * k.channel)) & 0xFF;
  return g * 0x01010101;
}

constexpr PixelRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, &avx512::kPixelRows},
    {cpu::kAvx2, &avx2::kPixelRows},
    {cpu::kSse41, &sse41::kPixelRows},
#else
    {cpu::kNeon, &neon::kPixelRows},
#endif
};

}  // namespace

const PixelRowSet kPixelRowsScalar = {
    Row<Merge>, Row<Average>, Row<Difference>, Row<MatchGate>, Row<Crossfade>, Row<ChannelView>,
};

std::span<const PixelRowForm> PixelRowForms() { return kForms; }

const PixelRowSet& ActivePixelRows() { return *cpu::Widest(PixelRowForms()).rows; }

}  // namespace zr::mux
