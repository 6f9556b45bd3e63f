// The integer form of the dissolve's mix, for a weight that is a whole number
// of 65536ths: dst = (in * w + out * (65536 - w)) >> 16, the low 8 or 16 bits
// stored. Where progress / span is exactly w / 65536 (a span that is a power
// of two up to 65536, progress within it), every product and sum of the
// double mix is exact, so its truncation is this quotient to the bit.
//
// The plain forms (_C) are the reference and handle any run. The vector forms
// give their bytes; they take one vector step at a time, then finish with the
// plain loop. They load a whole step before they store it, so `dst` may
// equal a source but must not overlap one at another address.
#ifndef ZR_FX_DISSOLVE_MIX_ROW_H
#define ZR_FX_DISSOLVE_MIX_ROW_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zr::fx {

// The weight of the incoming sample, 0 to 65536.
inline constexpr uint32_t kMixWhole = 65536;

// The weight equal to progress / span, where there is one.
inline std::optional<uint32_t> MixWeight(uint32_t progress, uint32_t span) {
  if (span == 0 || span > kMixWhole || (span & (span - 1)) != 0 || progress > span) return std::nullopt;
  return progress * (kMixWhole / span);
}

// How the vector forms take a weight: the mix is base + floor((in - out) *
// factor / 65536), with out as the base and the weight as the factor below
// 32768, and in as the base and the weight less 65536 from there on. The
// factor then fits a signed 16-bit lane.
struct MixFactor {
  bool fromIn;
  int32_t factor;
  explicit MixFactor(uint32_t weight)
      : fromIn(weight >= kMixWhole / 2),
        factor(static_cast<int32_t>(weight) - static_cast<int32_t>(fromIn ? kMixWhole : 0)) {}
};

// The distances from `in` and `out` to the same samples of the row that the
// band takes next, which the vector forms fetch while they mix this row: the
// processor's own prefetchers lose a band narrower than its frame at every
// row. 0 fetches nothing ahead; the plain forms fetch nothing.
struct NextRows {
  size_t in = 0, out = 0;
};

using MixRowFn = void (*)(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples,
                          uint32_t weight, NextRows next);

void MixRow8_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
               NextRows next = {});
void MixRow16_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
                NextRows next = {});

// The vector forms, each in its instruction set's namespace.
using MixRowSig = void(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
                       NextRows next);
#if defined(__x86_64__)
namespace sse41 {
MixRowSig MixRow8, MixRow16;
}
namespace avx2 {
MixRowSig MixRow8, MixRow16;
}
namespace avx512 {
MixRowSig MixRow8, MixRow16;
}
#else
namespace neon {
MixRowSig MixRow8, MixRow16;
}
#endif

// One vector form and the instruction set (cpu::Isa) it needs.
struct MixRowForm {
  uint32_t isa;
  MixRowFn row8;
  MixRowFn row16;
};

// The vector forms, widest first, and the widest one the processor runs.
std::span<const MixRowForm> MixRowForms();
const MixRowForm& PickMixRowForm();

}  // namespace zr::fx

#endif
