// Every form of the dissolve rows, of the integer mix and of the 4:2:2 and
// v210 adapter rows against the plain rows, chosen through the processor
// choice.
#include <gtest/gtest.h>

#include <cstring>

#include "common/form_check.h"
#include "fx/adapters/v210_rows.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"
#include "fx/dissolve/mix_row.h"
#include "zrfx.h"

namespace zr::test {
namespace {

// Progress and span: up to the span, beyond it (wraps, and sums that fit no
// integer), and a zero span's infinities and not-a-numbers.
constexpr uint32_t kProgress[][2] = {{0, 65536}, {1, 65536},       {12345, 65536},       {65536, 65536},
                                     {1, 100},   {59, 1001},       {200, 100},           {131073, 65536},
                                     {5, 0},     {0xFFFFFFFFu, 1}, {0x7FFF0000u, 65536}, {0, 0}};

// The rows, and the effect on one row against them (the incoming picture in
// b, formats 1 and 32: 8-bit and 16-bit, 4 samples).
TEST(FxForms, DissolveRowsMatchPlain) {
  ForEachForm(fx::DissolveRowForms(), [](const fx::DissolveRowForm& form) {
    ASSERT_EQ(&fx::PickDissolveRowForm(), &form);
    for (size_t bytes : {1, 2})
      for (uint32_t width : FormWidths())
        for (size_t p = 0; p < std::size(kProgress); ++p) {
          const auto [progress, span] = kProgress[p];
          const double t = fx::zrfxDissolveRatio(progress, span);
          const auto plain = bytes == 1 ? fx::DissolveRow8_C : fx::DissolveRow16_C;
          const auto row = [&](bool ref, const uint8_t* in, const uint8_t* out, uint8_t* dst) {
            (ref ? plain : bytes == 1 ? form.row8 : form.row16)(in, out, dst, width, t, 1.0 - t);
          };
          const auto effect = [&](bool ref, const uint8_t* a, const uint8_t* b, uint8_t* dst) {
            const auto pitch = static_cast<uint32_t>(width * 4 * bytes);
            if (ref)
              plain(b, a, dst, width * 4, t, 1.0 - t);
            else  // the effect takes its sources unqualified
              zrfxDISSOLVE(const_cast<uint8_t*>(a), pitch, const_cast<uint8_t*>(b), pitch, dst, pitch, 0,
                           bytes == 1 ? 1 : 32, width, 1, 0, 0, 0, 0, 0, 0, span, progress, 0, width, 0, 1);
          };
          const uint64_t seed = (bytes << 40) + (p << 32) + width;
          ASSERT_TRUE(SameAsReference(seed, width * bytes, width * bytes, bytes, p % 2, row));
          if (span != 0 && progress <= span) {
            ASSERT_TRUE(
                SameAsReference(seed, width * 4 * bytes, width * 4 * bytes, 4 * bytes, p % 2, effect));
          }
        }
  });
}

// The integer mix at the weights where its base and factor change.
TEST(FxForms, MixRowsMatchPlain) {
  ForEachForm(fx::MixRowForms(), [](const fx::MixRowForm& form) {
    ASSERT_EQ(&fx::PickMixRowForm(), &form);
    for (size_t bytes : {1, 2})
      for (uint32_t width : FormWidths())
        for (uint32_t weight : {0u, 1u, 12345u, 32767u, 32768u, 32769u, 65535u, 65536u}) {
          const auto row = [&](bool ref, const uint8_t* in, const uint8_t* out, uint8_t* dst) {
            (ref          ? (bytes == 1 ? fx::MixRow8_C : fx::MixRow16_C)
             : bytes == 1 ? form.row8
                          : form.row16)(in, out, dst, width, weight, fx::NextRows{});
          };
          ASSERT_TRUE(SameAsReference((bytes << 40) + (uint64_t{weight} << 16) + width, width * bytes,
                                      width * bytes, bytes, weight % 2, row));
        }
  });
}

// Expansion reads whole pairs or groups and writes the row's pixels; packing
// reads the plane pixels of whole pairs or groups and writes them whole.
TEST(FxForms, AdapterRowsMatchPlain) {
  const auto check = [](auto forms, auto pick, fx::AdapterRowForm plain, uint32_t group, size_t groupBytes) {
    ForEachForm(forms(), [&](const fx::AdapterRowForm& form) {
      ASSERT_EQ(&pick(), &form);
      for (uint32_t width : FormWidths())
        for (size_t misalign : {0, 1}) {
          const size_t groups = (width + group - 1) / group, seed = width * 2 + misalign;
          const auto expand = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* plane) {
            (ref ? plain : form).expand(src, plane, width);
          };
          const auto pack = [&](bool ref, const uint8_t* plane, const uint8_t*, uint8_t* dst) {
            (ref ? plain : form).pack(plane, dst, width);
          };
          ASSERT_TRUE(SameAsReference(seed, groups * groupBytes, width * 3, 3, misalign, expand));
          ASSERT_TRUE(
              SameAsReference(seed, groups * group * 3, groups * groupBytes, groupBytes, misalign, pack));
        }
    });
  };
  check(fx::YCbCr422RowForms, fx::PickYCbCr422Rows, {0, fx::ExpandYCbCr422Row_C, fx::PackYCbCr422Row_C}, 2,
        4);
  check(fx::V210RowForms, fx::PickV210Rows, {0, fx::ExpandV210Row_C, fx::PackV210Row_C}, 6, 16);
}

}  // namespace
}  // namespace zr::test
