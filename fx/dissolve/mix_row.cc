// The plain integer mix, the reference for every vector form, and the choice
// of a form.
#include "fx/dissolve/mix_row.h"

#include <cstring>

#include "platform/cpu_choice.h"

namespace zr::fx {

// Neither sum can pass 65535 * 65536, so 32 bits hold it.
void MixRow8_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
               NextRows) {
  for (size_t i = 0; i < samples; ++i)
    dst[i] = static_cast<uint8_t>((in[i] * weight + out[i] * (kMixWhole - weight)) >> 16);
}

void MixRow16_C(const uint8_t* in, const uint8_t* out, uint8_t* dst, size_t samples, uint32_t weight,
                NextRows) {
  for (size_t i = 0; i < samples; ++i) {
    uint16_t a, b;
    std::memcpy(&a, in + 2 * i, 2);
    std::memcpy(&b, out + 2 * i, 2);
    const auto r = static_cast<uint16_t>((uint32_t{a} * weight + uint32_t{b} * (kMixWhole - weight)) >> 16);
    std::memcpy(dst + 2 * i, &r, 2);
  }
}

namespace {

constexpr MixRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, avx512::MixRow8, avx512::MixRow16},
    {cpu::kAvx2, avx2::MixRow8, avx2::MixRow16},
    {cpu::kSse41, sse41::MixRow8, sse41::MixRow16},
#else
    {cpu::kNeon, neon::MixRow8, neon::MixRow16},
#endif
};

}  // namespace

std::span<const MixRowForm> MixRowForms() { return kForms; }

const MixRowForm& PickMixRowForm() { return cpu::Widest(MixRowForms()); }

}  // namespace zr::fx
