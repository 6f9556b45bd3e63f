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

#if defined(__x86_64__)
void DissolveRow8_SSE41(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                        double u);
void DissolveRow16_SSE41(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                         double u);
void DissolveRow8_AVX2(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                       double u);
void DissolveRow16_AVX2(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                        double u);
void DissolveRow8_AVX512(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                         double u);
void DissolveRow16_AVX512(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                          double u);
#elif defined(__aarch64__)
void DissolveRow8_NEON(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                       double u);
void DissolveRow16_NEON(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                        double u);
#endif

// One vector form of the integer loops.
struct DissolveRowForm {
  const char* name;
  bool (*supported)();
  DissolveRowFn row8;
  DissolveRowFn row16;
};

// The vector forms built into this library, widest first; the last one runs
// on every processor of its build.
std::span<const DissolveRowForm> DissolveRowForms();

// The widest form that this processor runs. The choice follows the
// processor's features only.
const DissolveRowForm& PickDissolveRowForm();

}  // namespace zr::fx

#endif
