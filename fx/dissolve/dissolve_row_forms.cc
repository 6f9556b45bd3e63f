// The vector forms of the dissolve's integer loops, and the choice of one.
// Every form gives the plain loop's bytes, so the choice changes speed only.
#include <iterator>

#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

#if defined(__x86_64__)
// __builtin_cpu_supports also checks that the system saves the wide registers.
bool HasAvx512() {
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq");
}
bool HasAvx2() { return __builtin_cpu_supports("avx2"); }
// The SSE build requires SSE4.1 and does not look.
bool Always() { return true; }

constexpr DissolveRowForm kForms[] = {
    {"avx512", HasAvx512, DissolveRow8_AVX512, DissolveRow16_AVX512},
    {"avx2", HasAvx2, DissolveRow8_AVX2, DissolveRow16_AVX2},
    {"sse41", Always, DissolveRow8_SSE41, DissolveRow16_SSE41},
};
#elif defined(__aarch64__)
bool Always() { return true; }

constexpr DissolveRowForm kForms[] = {
    {"neon", Always, DissolveRow8_NEON, DissolveRow16_NEON},
};
#endif

}  // namespace

std::span<const DissolveRowForm> DissolveRowForms() { return kForms; }

const DissolveRowForm& PickDissolveRowForm() {
  for (const auto& form : kForms)
    if (form.supported()) return form;
  return kForms[std::size(kForms) - 1];
}

}  // namespace zr::fx
