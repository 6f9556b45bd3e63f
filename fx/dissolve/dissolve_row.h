// The inner loop of the dissolve: one run of samples of a row.
//
// Every sample is mixed on its own: dst = trunc(in * t + out * u) in double
// precision, two products and a sum each rounded by itself, the low 8 or 16
// bits of the integer stored. Float samples take the float mix instead, with
// the incoming sample cut to a whole number first.
//
// The plain forms (_C) are the reference and handle any run. The vector forms
// give exactly their bytes for every t and u (wraps, not-a-numbers and the
// machine answers of dissolve_convert.h included); they take 64 samples a step
// at 8 bits, then one step of 32, then finish with the plain loop, and 32 a
// step at 16 bits. They load a whole step before they store it, so `dst` may
// equal a source but must not overlap one at another address.
#ifndef ZR_FX_DISSOLVE_DISSOLVE_ROW_H
#define ZR_FX_DISSOLVE_DISSOLVE_ROW_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace zr::fx {

// `in`, `out` and `dst` point at the first byte of the run, `samples` is its
// length in samples. No alignment is needed.
using DissolveRowFn = void (*)(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                               double u);

void DissolveRow8_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u);
void DissolveRow16_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u);
void DissolveRowF32_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                      double u);

// The vector forms, each in its instruction set's namespace.
using DissolveRowSig = void(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                            double u);
#if defined(__x86_64__)
namespace sse41 {
DissolveRowSig DissolveRow8, DissolveRow16;
}
namespace avx2 {
DissolveRowSig DissolveRow8, DissolveRow16;
}
namespace avx512 {
DissolveRowSig DissolveRow8, DissolveRow16;
}
#else
namespace neon {
DissolveRowSig DissolveRow8, DissolveRow16;
}
#endif

// One vector form of the integer loops and the instruction set (cpu::Isa) it
// needs.
struct DissolveRowForm {
  uint32_t isa;
  DissolveRowFn row8;
  DissolveRowFn row16;
};

// The vector forms, widest first, and the widest one the processor runs.
std::span<const DissolveRowForm> DissolveRowForms();
const DissolveRowForm& PickDissolveRowForm();

}  // namespace zr::fx

#endif
