// The vector forms of the adapters' row loops, and the choice of one.
#include <iterator>

#include "fx/adapters/v210_rows.h"
#include "fx/adapters/ycbcr422_rows.h"

namespace zr::fx {
namespace {

// The build's baseline (SSE4.1, or NEON) runs everywhere and is not looked for.
bool Always() { return true; }

#if defined(__x86_64__)
bool HasAvx2() { return __builtin_cpu_supports("avx2"); }

constexpr AdapterRowForm kYCbCr422Forms[] = {
    {"sse41", Always, ExpandYCbCr422Row_SSE41, PackYCbCr422Row_SSE41},
};
constexpr AdapterRowForm kV210Forms[] = {
    {"avx2", HasAvx2, ExpandV210Row_AVX2, PackV210Row_AVX2},
    {"sse41", Always, ExpandV210Row_SSE41, PackV210Row_SSE41},
};
#elif defined(__aarch64__)
constexpr AdapterRowForm kYCbCr422Forms[] = {
    {"neon", Always, ExpandYCbCr422Row_NEON, PackYCbCr422Row_NEON},
};
constexpr AdapterRowForm kV210Forms[] = {
    {"neon", Always, ExpandV210Row_NEON, PackV210Row_NEON},
};
#endif

template <size_t N>
const AdapterRowForm& Widest(const AdapterRowForm (&forms)[N]) {
  for (const auto& form : forms)
    if (form.supported()) return form;
  return forms[N - 1];
}

}  // namespace

std::span<const AdapterRowForm> YCbCr422RowForms() { return kYCbCr422Forms; }
const AdapterRowForm& PickYCbCr422Rows() { return Widest(kYCbCr422Forms); }
std::span<const AdapterRowForm> V210RowForms() { return kV210Forms; }
const AdapterRowForm& PickV210Rows() { return Widest(kV210Forms); }

}  // namespace zr::fx
