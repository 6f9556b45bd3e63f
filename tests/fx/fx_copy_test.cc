// The effects on frames large enough to take the streaming copy.
#include "fx/fx_copy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "common/test_random.h"
#include "wipe_model.h"

namespace {

using zr::test::Rng;

// Frames at the size where the effects switch to the streaming copy, against
// the per-pixel model.
TEST(FxCopy, LargeFramesMatchThePerPixelModel) {
  constexpr uint32_t kW = 2048, kH = 1024, kPitch = kW * 4 + 12;
  const size_t bytes = size_t{kPitch} * kH + kPitch;
  std::vector<uint8_t> a(bytes), b(bytes), d(bytes);
  Rng r(0x1A26E);
  r.Fill(a.data(), bytes);
  r.Fill(b.data(), bytes);
  for (zrfxEffectFn effect : {zrfxSMPTE_TopRight, zrfxSMPTE_Vertical, zrfxSMPTE_Rectangle, zrfxSLIDE_Basic}) {
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
