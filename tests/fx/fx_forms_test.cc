// Every form of the dissolve rows and of the 4:2:2 and v210 adapter rows
// against the plain rows, chosen through the processor choice; the dissolve
// through its entry point with each form; and the streaming copy against the
// plain copy.
#include <gtest/gtest.h>

#include "common/form_check.h"
#include "fx/adapters/v210_rows.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"
#include "fx/dissolve/dissolve_test_support.h"
#include "fx/fx_copy.h"
#include "fx/fx_format.h"

namespace zr::test {
namespace {

// Up to the span, beyond it (wraps, and sums that fit no integer), and a
// zero span's infinities and not-a-numbers.
constexpr uint32_t kProgress[][2] = {
    {0, 65536}, {1, 65536},      {12345, 65536},       {65536, 65536},   {1, 100}, {59, 1001},
    {200, 100}, {131073, 65536}, {0x7FFF0000u, 65536}, {0xFFFFFFFFu, 1}, {0, 0},   {5, 0}};

TEST(FxForms, DissolveRowsMatchPlain) {
  ForEachForm(fx::DissolveRowForms(), [](const fx::DissolveRowForm& form) {
    ASSERT_EQ(&fx::PickDissolveRowForm(), &form);
    for (size_t bytes : {1, 2})
      for (uint32_t width : FormWidths())
        for (size_t p = 0; p < std::size(kProgress); ++p) {
          const uint64_t seed = (bytes << 40) + (p << 32) + width;
          const double t = fx::zrfxDissolveRatio(kProgress[p][0], kProgress[p][1]);
          const auto run = [&](bool ref, const uint8_t* in, const uint8_t* out, uint8_t* dst) {
            const fx::DissolveRowFn plain = bytes == 1 ? fx::DissolveRow8_C : fx::DissolveRow16_C;
            (ref ? plain : bytes == 1 ? form.row8 : form.row16)(in, out, dst, width, t, 1.0 - t);
          };
          ASSERT_TRUE(SameAsReference(seed, width * bytes, width * bytes, bytes, p % 2, run));
        }
  });
}

// Expansion reads whole pairs or groups and writes the row's pixels; packing
// reads the plane pixels of whole pairs or groups and writes them whole.
TEST(FxForms, AdapterRowsMatchPlain) {
  const auto check = [](const fx::AdapterRowForm& plain, const fx::AdapterRowForm& form, uint32_t group,
                        size_t groupBytes) {
    for (uint32_t width : FormWidths())
      for (size_t misalign : {0, 1}) {
        const size_t packed = (width + group - 1) / group * groupBytes, plane = size_t{width} * 3;
        const uint64_t seed = width * 2 + misalign + group * 10000;
        const auto expand = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
          (ref ? plain : form).expand(src, dst, width);
        };
        const auto pack = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
          (ref ? plain : form).pack(src, dst, width);
        };
        ASSERT_TRUE(SameAsReference(seed, packed, plane, 3, misalign, expand)) << "expand " << width;
        ASSERT_TRUE(
            SameAsReference(seed, packed / groupBytes * group * 3, packed, groupBytes, misalign, pack))
            << "pack " << width;
      }
  };
  const fx::AdapterRowForm plain422{0, fx::ExpandYCbCr422Row_C, fx::PackYCbCr422Row_C};
  const fx::AdapterRowForm plainV210{0, fx::ExpandV210Row_C, fx::PackV210Row_C};
  ForEachForm(fx::YCbCr422RowForms(), [&](const fx::AdapterRowForm& form) {
    ASSERT_EQ(&fx::PickYCbCr422Rows(), &form);
    check(plain422, form, 2, 4);
  });
  ForEachForm(fx::V210RowForms(), [&](const fx::AdapterRowForm& form) {
    ASSERT_EQ(&fx::PickV210Rows(), &form);
    check(plainV210, form, 6, 16);
  });
}

TEST(FxForms, DissolveEntryPointMatchesPlainRowsWithEachForm) {
  ForEachForm(fx::DissolveRowForms(), [](const fx::DissolveRowForm&) {
    for (uint32_t format : {1u, 2u, 3u, 4u, 5u, 6u, 29u, 30u, 31u, 32u, 33u, 34u, 35u, 36u}) {
      const fx::FxFormatInfo info = fx::FxFormatOf(format);
      if (info.BytesPerSample() > 2) continue;
      const fx::DissolveRowFn plain = info.BytesPerSample() == 1 ? fx::DissolveRow8_C : fx::DissolveRow16_C;
      const uint32_t width = 37, height = 3, pitch = width * info.bytesPerPixel + 9;
      TestPicture a(pitch, height, format), b(pitch, height, format + 1), dst(pitch, height, format + 2, 1);
      std::vector<uint8_t> want = dst.Bytes();
      EffectArgs args{a.data(), pitch, b.data(), pitch, dst.data(), pitch, 0,     format, width,
                      height,   {},    0,        65536, 23456,      0,     width, 0,      height};
      const double t = fx::zrfxDissolveRatio(23456, 65536);
      for (uint32_t y = 0; y < height; ++y)
        plain(b.data() + y * pitch, a.data() + y * pitch, want.data() + y * pitch,
              width * info.samplesPerPixel, t, 1.0 - t);
      EXPECT_EQ(RunEffect(zrfxDISSOLVE, args), 0u);
      ASSERT_TRUE(SameBytes(dst.data(), want.data(), want.size(), pitch, "format " + std::to_string(format)));
      ASSERT_TRUE(dst.GuardsIntact());
    }
  });
}

#if defined(__x86_64__)
TEST(FxForms, StreamingCopyMatchesThePlainCopy) {
  for (uint32_t w : FormWidths())
    for (size_t misalign : {0, 1}) {
      const size_t n = w * 9 + 200;  // the streaming loop starts at 256 bytes
      const auto run = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
        (ref ? fx::CopyBytes : fx::CopyBytesStreaming_sse41)(dst, src, n, n + 5);
        fx::FinishCopies(fx::CopyBytesStreaming_sse41);
      };
      ASSERT_TRUE(SameAsReference(w, n, n, 1, misalign, run));
    }
  for (ptrdiff_t shift : {-300, -17, -1, 0, 1, 16, 300}) {  // overlaps copy as memmove
    std::vector<uint8_t> got(2000), want(2000);
    Rng(7).Fill(got.data(), got.size());
    want = got;
    fx::CopyBytes(want.data() + 600 + shift, want.data() + 600, 1000, 0);
    fx::CopyBytesStreaming_sse41(got.data() + 600 + shift, got.data() + 600, 1000, 2000);
    EXPECT_EQ(got, want) << "shift " << shift;
  }
}
#endif

}  // namespace
}  // namespace zr::test
