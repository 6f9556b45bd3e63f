// The pixel mix rows for SSE4.1, AVX2 and AVX-512 (4, 8 or 16 pixels a step).
// Every byte operation stays within its 128-bit lane, so the lanes come out
// in order; the rest of a row, and rows where out runs into a source, go to
// the scalar rows.
#include "mux/pixel_rows.h"
#include "platform/simd_x86.h"

namespace zr::mux::ZR_ISA_NS {
namespace {

namespace isa = ::zr::ZR_ISA_NS;
using V = isa::Wide;
using T = V::T;

template <class Op>
void Rows(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k,
          PixelRowFn scalar, Op op) {
  constexpr uint32_t kStep = V::kBytes / 4;
  uint32_t x = 0;
  const auto steps = [&](auto store) {
    const uint32_t first = x;
    for (; width - x >= kStep; x += kStep) {
      const uint8_t* pa = a + size_t{x} * 4;
      const uint8_t* pb = b + size_t{x} * 4;
      if ((x - first) % 16 == 0) {  // once a cache line
        isa::PrefetchAhead(pa);
        isa::PrefetchAhead(pb);
      }
      store(out + size_t{x} * 4, op(isa::InRegister(V::Load(pa)), isa::InRegister(V::Load(pb))));
    }
  };
  if (VectorSafe(a, b, out, width * 4)) {
    if (width >= isa::kStreamBytes / 4 && isa::StreamStart(out, width, x)) {
      scalar(a, b, out, x, k);
      steps([](uint8_t* to, T v) { V::Stream(to, v); });
      _mm_sfence();
    } else {
      steps([](uint8_t* to, T v) { V::Store(to, v); });
    }
  }
  if (x < width) scalar(a + size_t{x} * 4, b + size_t{x} * 4, out + size_t{x} * 4, width - x, k);
}

// Each pixel's byte i in all four bytes.
T Broadcast(T v, int i) {
  return V::Shuffle8(v, V::Lanes(_mm_setr_epi8(i, i, i, i, i + 4, i + 4, i + 4, i + 4, i + 8, i + 8, i + 8,
                                               i + 8, i + 12, i + 12, i + 12, i + 12)));
}

void Merge(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const T ma = V::Set32(k.maskA), mb = V::Set32(k.maskB);
  Rows(a, b, out, width, k, kPixelRowsScalar.merge,
       [&](T va, T vb) { return V::Or(V::And(va, ma), V::And(vb, mb)); });
}

// a / 2 + b / 2 is the rounded-up mean less 1 where either low bit is set.
void Average(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const T one = V::Set8(1);
  Rows(a, b, out, width, k, kPixelRowsScalar.average,
       [&](T va, T vb) { return V::Sub8(V::AvgU8(va, vb), V::And(V::Or(va, vb), one)); });
}

void Difference(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const T halfMask = V::Set32(0x007F7F7F);  // halves of bytes 0-2; byte 3 dropped
  // min(m * gain, 127) is the same with the gain held to 127, which fits the
  // signed byte of pmaddubsw; bytes 1-3 of each word weigh 0.
  const T gain = V::Set32(k.gain < 127 ? k.gain : 127);
  const T limit = V::Set32(127), grey = V::Set32(128);
  const T spread = V::Lanes(_mm_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1));
#if defined(ZR_ISA_avx512)
  const T ones = V::Set8(-1);
#else
  const T zero = V::Zero();
#endif
  Rows(a, b, out, width, k, kPixelRowsScalar.difference, [&](T va, T vb) {
  // Where a byte of A is below B the difference wraps to a huge value: its
  // half is taken as 127, which saturates v whatever the gain.
#if defined(ZR_ISA_avx512)
    const T d0 = _mm512_mask_mov_epi8(V::SubsU8(va, vb), _mm512_cmpgt_epu8_mask(vb, va), ones);
    const T d = V::And(V::Srli16<1>(d0), halfMask);
#else
    const T notBelow = V::CmpEq8(V::SubsU8(vb, va), zero);
    const T half = V::And(V::Srli16<1>(V::SubsU8(va, vb)), halfMask);
    const T d = V::Or(half, V::AndNot(notBelow, halfMask));
#endif
    const T m = V::MaxU8(V::MaxU8(d, V::Srli32<8>(d)), V::Srli32<16>(d));
    const T v = V::MinU16(V::MAddUbs(m, gain), limit);
    return V::Shuffle8(V::Or(v, grey), spread);
  });
}

void MatchGate(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const T tol = V::Set8(static_cast<int>(k.tolerance > 255 ? 255 : k.tolerance));
  const T fill = V::Set32(k.fill);
  [[maybe_unused]] const T zero = V::Zero();
  Rows(a, b, out, width, k, kPixelRowsScalar.matchGate, [&](T va, T vb) {
    const T over = V::SubsU8(V::Or(V::SubsU8(va, vb), V::SubsU8(vb, va)), tol);
#if defined(ZR_ISA_avx512)
    return _mm512_mask_mov_epi32(vb, _mm512_test_epi32_mask(over, over), fill);
#else
    return V::Blend8(fill, vb, V::CmpEq32(over, zero));
#endif
  });
}

void Crossfade(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.p >= 1 && k.p <= 255 && k.p + k.q == 256) {
    // Both weights fit a byte and add up to 256: pmaddubsw of the weights
    // with the samples less 128 gives p * a + q * b - 32768 exactly.
    const T weights = V::Set16(static_cast<short>(k.p | k.q << 8));
    const T flip = V::Set8(-128), bias = V::Set16(-32768);
    Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](T va, T vb) {
      const T sa = V::Xor(va, flip), sb = V::Xor(vb, flip);
      const T lo = V::Add16(V::MAddUbs(weights, V::UnpackLo8(sa, sb)), bias);
      const T hi = V::Add16(V::MAddUbs(weights, V::UnpackHi8(sa, sb)), bias);
      return V::PackUs16(V::Srli16<8>(lo), V::Srli16<8>(hi));
    });
    return;
  }
  // Bits 8 to 15 of p * a + q * b depend only on the low 16 bits of p and q,
  // so 16-bit lanes that wrap give the 32-bit result exactly.
  const T zero = V::Zero();
  const T p = V::Set16(static_cast<short>(k.p)), q = V::Set16(static_cast<short>(k.q));
  const auto mix = [&](T a16, T b16) {
    return V::Srli16<8>(V::Add16(V::MulLo16(a16, p), V::MulLo16(b16, q)));
  };
  Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](T va, T vb) {
    const T lo = mix(V::UnpackLo8(va, zero), V::UnpackLo8(vb, zero));
    const T hi = mix(V::UnpackHi8(va, zero), V::UnpackHi8(vb, zero));
    return V::PackUs16(lo, hi);
  });
}

void ChannelView(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.channel != kChannelMean) {
    const int c = static_cast<int>(k.channel);
    Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [c](T va, T) { return Broadcast(va, c); });
    return;
  }
  // a0 + a1 + a2 by two multiply-adds, then (s * 0xAAAB) >> 17, which is s / 3
  // for s below 2^17.
  const T pick = V::Set32(0x00010101), ones = V::Set32(0x00010001), third = V::Set32(0xAAAB);
  Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [&](T va, T) {
    const T s = V::MAdd16(V::MAddUbs(va, pick), ones);
    return Broadcast(V::Srli16<1>(V::MulHiU16(s, third)), 0);
  });
}

}  // namespace

const PixelRowSet kPixelRows = {Merge, Average, Difference, MatchGate, Crossfade, ChannelView};

}  // namespace zr::mux::ZR_ISA_NS
