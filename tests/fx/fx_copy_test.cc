// The copies of the effects: the streaming form against the plain one, and
// the effects on frames large enough to take it.
#include "fx/fx_copy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "wipe_model.h"

namespace {

using zr::test::GuardedBuffer;
using zr::test::Rng;

#if defined(__x86_64__)
TEST(FxCopy, StreamingCopyGivesThePlainCopysBytes) {
  Rng r(0xC09E);
  std::vector<size_t> sizes;
  for (size_t n = 0; n <= 300; ++n) sizes.push_back(n);
  for (size_t n : {511, 512, 513, 1023, 4096 + 7, 15360, 65536 + 33}) sizes.push_back(n);
  for (size_t n : sizes)
    for (size_t misalign = 0; misalign < 4; ++misalign) {
      const size_t srcOffset = r.Below(17), dstOffset = r.Below(17);
      GuardedBuffer src(n + 32, misalign), got(n + 32, 3 - misalign);
      r.Fill(src.data(), n + 32);
      r.Fill(got.data(), n + 32);
      std::vector<uint8_t> want(got.data(), got.data() + n + 32);
      const std::vector<uint8_t> src0(src.data(), src.data() + n + 32);
      zr::fx::CopyBytes(want.data() + dstOffset, src.data() + srcOffset, n, 0);
      zr::fx::CopyBytesStreaming_sse41(got.data() + dstOffset, src.data() + srcOffset, n, r.Below(1 << 20));
      zr::fx::FinishCopies(zr::fx::CopyBytesStreaming_sse41);
      const auto diff = std::mismatch(want.begin(), want.end(), got.data()).first - want.begin();
      ASSERT_EQ(diff, static_cast<ptrdiff_t>(n + 32)) << "size " << n << " offsets " << srcOffset << "/"
                                                      << dstOffset << ": first difference at byte " << diff;
      ASSERT_TRUE(std::equal(src0.begin(), src0.end(), src.data()));
      ASSERT_TRUE(src.GuardsIntact() && got.GuardsIntact());
    }
}

TEST(FxCopy, OverlappingRangesCopyAsMemmove) {
  for (ptrdiff_t shift : {-300, -17, -1, 0, 1, 16, 255, 300}) {
    std::vector<uint8_t> got(2000), want(2000);
    Rng(7).Fill(got.data(), got.size());
    want = got;
    zr::fx::CopyBytes(want.data() + 600 + shift, want.data() + 600, 1000, 0);
    zr::fx::CopyBytesStreaming_sse41(got.data() + 600 + shift, got.data() + 600, 1000, 2000);
    EXPECT_EQ(got, want) << "shift " << shift;
  }
}
#endif

// Frames at the size where the effects switch to the streaming copy, against
// the per-pixel model.
TEST(FxCopy, LargeFramesMatchThePerPixelModel) {
  constexpr uint32_t kW = 2048, kH = 1024, kPitch = kW * 4 + 12;
  const size_t bytes = size_t{kPitch} * kH + kPitch;
  std::vector<uint8_t> a(bytes), b(bytes), d(bytes);
  Rng r(0x1A26E);
  r.Fill(a.data(), bytes);
  r.Fill(b.data(), bytes);
  for (zrfxEffectFn* effect :
       {zrfxSMPTE_TopRight, zrfxSMPTE_Vertical, zrfxSMPTE_Rectangle, zrfxSLIDE_Basic}) {
    r.Fill(d.data(), bytes);
    std::vector<uint8_t> want = d;
    const uint32_t pitch = effect == zrfxSLIDE_Basic ? kW * 4 : kPitch;
    zr::fx::FxCall c{
        a.data(), pitch, b.data(), pitch, d.data(), pitch,  effect == zrfxSLIDE_Basic ? 501u : 0u,
        1,        kW,    kH,       0,     0,        0,      0,
        0,        0,     65536,    23456, 3,        kW - 5, 1,
        kH};
    effect(ZRFX_CALL_VALUES(c));
    c.dst = want.data();
    zr::test::ModelEffect(effect, c);
    const auto diff = std::mismatch(want.begin(), want.end(), d.begin()).first - want.begin();
    EXPECT_EQ(diff, static_cast<ptrdiff_t>(bytes))
        << "first difference at x " << diff % pitch / 4 << ", y " << diff / pitch;
  }
}

}  // namespace
