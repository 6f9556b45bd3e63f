// The integer mix for SSE4.1, AVX2 and AVX-512, over the widest vector of the
// set. With d = in - out, the mix is out + floor(d * w / 65536); for weights
// of 32768 and more it is in + floor(d * (w - 65536) / 65536). Either way the
// factor fits a signed 16-bit lane and each product one lane twice as wide,
// so the high half of a signed multiply (or an arithmetic shift) is the floor.
#include "fx/dissolve/mix_row.h"
#include "platform/simd_x86.h"

namespace zr::fx::ZR_ISA_NS {
namespace {

using V = ::zr::ZR_ISA_NS::Wide;
using T = V::T;

// One vector of 8-bit samples, in 16-bit lanes.
template <bool fromIn>
inline void Mix8(const uint8_t* in, const uint8_t* out, uint8_t* dst, T factor) {
  const T a = V::Load(in), b = V::Load(out), zero = V::Zero();
  const auto half = [&](T a16, T b16) {
    return V::Add16(fromIn ? a16 : b16, V::MulHi16(V::Sub16(a16, b16), factor));
  };
  const T lo = half(V::UnpackLo8(a, zero), V::UnpackLo8(b, zero));
  const T hi = half(V::UnpackHi8(a, zero), V::UnpackHi8(b, zero));
  V::Store(dst, V::PackUs16(lo, hi));
}

// One vector of 16-bit samples, in 32-bit lanes.
template <bool fromIn>
inline void Mix16(const uint8_t* in, const uint8_t* out, uint8_t* dst, T factor) {
  const T a = V::Load(in), b = V::Load(out), zero = V::Zero();
  const auto half = [&](T a32, T b32) {
    return V::Add32(fromIn ? a32 : b32, V::Srai32<16>(V::MulLo32(V::Sub32(a32, b32), factor)));
  };
  const T lo = half(V::UnpackLo16(a, zero), V::UnpackLo16(b, zero));
  const T hi = half(V::UnpackHi16(a, zero), V::UnpackHi16(b, zero));
  V::Store(dst, V::PackUs32(lo, hi));
}

// Whole vectors over `bytes`, asking for each line of both sources in the
// next row; returns the bytes done.
template <bool fromIn, bool sixteen>
size_t MixBytes(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t bytes, T factor, NextRows next) {
  size_t i = 0;
  for (; i + 64 <= bytes; i += 64) {
    ::zr::ZR_ISA_NS::PrefetchAt(in + i, next.in);
    ::zr::ZR_ISA_NS::PrefetchAt(out + i, next.out);
    for (size_t k = 0; k < 64; k += V::kBytes)
      (sixteen ? Mix16<fromIn> : Mix8<fromIn>)(in + i + k, out + i + k, dst + i + k, factor);
  }
  for (; i + V::kBytes <= bytes; i += V::kBytes)
    (sixteen ? Mix16<fromIn> : Mix8<fromIn>)(in + i, out + i, dst + i, factor);
  return i;
}

template <bool sixteen>
size_t MixVectors(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t bytes, uint32_t weight,
                  NextRows next) {
  const MixFactor f(weight);
  const T factor = sixteen ? V::Set32(static_cast<uint32_t>(f.factor)) : V::Set16(f.factor);
  return f.fromIn ? MixBytes<true, sixteen>(in, out, dst, bytes, factor, next)
                  : MixBytes<false, sixteen>(in, out, dst, bytes, factor, next);
}

}  // namespace

void MixRow8(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
             NextRows next) {
  const size_t done = MixVectors<false>(in, out, dst, samples, weight, next);
  MixRow8_C(in + done, out + done, dst + done, samples - done, weight);
}

void MixRow16(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
              NextRows next) {
  const size_t done = MixVectors<true>(in, out, dst, 2 * samples, weight, next);
  MixRow16_C(in + done, out + done, dst + done, samples - done / 2, weight);
}

}  // namespace zr::fx::ZR_ISA_NS
