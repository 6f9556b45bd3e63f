// The plain dissolve loops, the reference for every vector form, and the
// choice of a form.
#include "fx/dissolve/dissolve_row.h"

#include <cstring>

#include "fx/dissolve/dissolve_convert.h"
#include "platform/cpu_choice.h"

namespace zr::fx {

void DissolveRow8_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t, double u) {
  for (size_t i = 0; i < samples; ++i) {
    const double sum = static_cast<double>(in[i]) * t + static_cast<double>(out[i]) * u;
    // Truncated, not rounded: 3 and 3 at t = 0.01 give 2.9999999999999996 and
    // store 2. The low 8 bits are kept, so 300 stores 44.
    dst[i] = static_cast<uint8_t>(zrfxTruncToInt32(sum));
  }
}

void DissolveRow16_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                     double u) {
  for (size_t i = 0; i < samples; ++i) {
    uint16_t a, b;
    std::memcpy(&a, in + 2 * i, 2);
    std::memcpy(&b, out + 2 * i, 2);
    const double sum = static_cast<double>(a) * t + static_cast<double>(b) * u;
    const auto r = static_cast<uint16_t>(zrfxTruncToInt32(sum));
    std::memcpy(dst + 2 * i, &r, 2);
  }
}

void DissolveRowF32_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, double t,
                      double u) {
  for (size_t i = 0; i < samples; ++i) {
    float a, b;
    std::memcpy(&a, in + 4 * i, 4);
    std::memcpy(&b, out + 4 * i, 4);
    // The incoming sample loses its fraction and the outgoing one keeps it:
    // hosts have always seen fractional pictures fade to black this way.
    const double whole = static_cast<double>(zrfxTruncToInt64(a));
    const float r = zrfxNarrowToFloat(whole * t + static_cast<double>(b) * u);
    std::memcpy(dst + 4 * i, &r, 4);
  }
}

namespace {

constexpr DissolveRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, avx512::DissolveRow8, avx512::DissolveRow16},
    {cpu::kAvx2, avx2::DissolveRow8, avx2::DissolveRow16},
    {cpu::kSse41, sse41::DissolveRow8, sse41::DissolveRow16},
#else
    {cpu::kNeon, neon::DissolveRow8, neon::DissolveRow16},
#endif
};

}  // namespace

std::span<const DissolveRowForm> DissolveRowForms() { return kForms; }

const DissolveRowForm& PickDissolveRowForm() { return cpu::Widest(DissolveRowForms()); }

}  // namespace zr::fx
