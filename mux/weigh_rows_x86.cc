// weigh_plane rows for SSE4.1, AVX2 and AVX-512 (16, 32 or 64 bytes a step):
// each (dst, src) byte pair is multiplied by the split weights with pmaddwd
// in 32-bit lanes, byte 2 of each sum is gathered, and the carries are added
// (see SplitWeights). Every operation stays within its 128-bit lane, so the
// lanes come out in order.
#include "mux/weigh_rows.h"
#include "platform/simd_x86.h"

namespace zr::mux::ZR_ISA_NS {
namespace {

namespace isa = ::zr::ZR_ISA_NS;
using V = isa::Wide;
using T = V::T;

// Byte 2 of the four sums of pair group g goes to bytes 4g to 4g + 3.
T Pick(int g) {
  const auto at = [g](int i) { return static_cast<char>(i / 4 == g ? 4 * (i % 4) + 2 : -1); };
  return V::Lanes(_mm_setr_epi8(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8), at(9), at(10),
                                at(11), at(12), at(13), at(14), at(15)));
}

// The whole steps of a row; returns the bytes done.
template <int kKind>
uint32_t Steps(uint8_t* dst, const uint8_t* src, uint32_t width, const WeighSplit& w) {
  const T low = V::Set32(w.low), carry = V::Set32(w.carry), half = V::Set32(32768), zero = V::Zero();
  const T pick0 = Pick(0), pick1 = Pick(1), pick2 = Pick(2), pick3 = Pick(3);
  const auto sums = [&](T pairs) {
    T t = V::Add32(V::MAdd16(pairs, low), half);
    if constexpr (kKind == kWeighGeneral) t = V::Add32(t, V::Slli32<16>(V::MAdd16(pairs, carry)));
    return t;
  };
  uint32_t x = 0;
  for (; width - x >= V::kBytes; x += V::kBytes) {
    if (x % 64 == 0) {  // once a cache line
      isa::PrefetchAhead(dst + x);
      isa::PrefetchAhead(src + x);
    }
    const T d = isa::InRegister(V::Load(dst + x)), s = isa::InRegister(V::Load(src + x));
    const T ds0 = V::UnpackLo8(d, s), ds1 = V::UnpackHi8(d, s);
    const T r0 = V::Shuffle8(sums(V::UnpackLo8(ds0, zero)), pick0);
    const T r1 = V::Shuffle8(sums(V::UnpackHi8(ds0, zero)), pick1);
    const T r2 = V::Shuffle8(sums(V::UnpackLo8(ds1, zero)), pick2);
    const T r3 = V::Shuffle8(sums(V::UnpackHi8(ds1, zero)), pick3);
    T r = V::Or(V::Or3(r0, r1, r2), r3);
    if constexpr ((kKind & kWeighAddDst) != 0) r = V::Add8(r, d);
    if constexpr ((kKind & kWeighAddSrc) != 0) r = V::Add8(r, s);
    V::Store(dst + x, r);
  }
  return x;
}

constexpr uint32_t (*kSteps[])(uint8_t*, const uint8_t*, uint32_t, const WeighSplit&) = {
    Steps<0>, Steps<1>, Steps<2>, Steps<3>, Steps<kWeighGeneral>};

}  // namespace

void WeighRow(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc, uint32_t weightDst) {
  uint32_t x = 0;
  if (WeighVectorSafe(dst, src, width)) {
    const WeighSplit w = SplitWeights(weightSrc, weightDst);
    x = kSteps[w.kind](dst, src, width, w);
  }
  if (x < width) WeighRowScalar(dst + x, src + x, width - x, weightSrc, weightDst);
}

}  // namespace zr::mux::ZR_ISA_NS
