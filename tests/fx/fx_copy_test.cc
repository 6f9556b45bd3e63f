// The effects on frames large enough to take the streaming copy.
#include <gtest/gtest.h>

#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "fx/fx_call.h"

namespace {

// Frames at the size where the effects switch to the streaming copy, with a
// band that stops short of every edge, have golden checksums like the small
// ones: the streaming copy gives the plain copy's bytes.
TEST(FxCopy, LargeFramesGiveTheirGoldenChecksums) {
  constexpr uint32_t kW = 2048, kH = 1024, kPitch = kW * 4 + 12;
  const size_t bytes = size_t{kPitch} * kH + kPitch;
  std::vector<uint8_t> a(bytes), b(bytes), d(bytes);
  zr::test::Rng r(0x1A26E);
  r.Fill(a.data(), bytes);
  r.Fill(b.data(), bytes);
  const struct {
    zrfxEffectFn* effect;
    uint32_t crc;
  } kCases[] = {{zrfxSMPTE_TopRight, 0x9238499B},
                {zrfxSMPTE_Vertical, 0x37206295},
                {zrfxSMPTE_Rectangle, 0xF8CD27B1},
                {zrfxSLIDE_Basic, 0xD5E6DF91}};
  for (const auto& [effect, crc] : kCases) {
    r.Fill(d.data(), bytes);
    const uint32_t pitch = effect == zrfxSLIDE_Basic ? kW * 4 : kPitch;
    const zr::fx::FxCall c{
        a.data(), pitch, b.data(), pitch, d.data(), pitch,  effect == zrfxSLIDE_Basic ? 501u : 0u,
        1,        kW,    kH,       0,     0,        0,      0,
        0,        0,     65536,    23456, 3,        kW - 5, 1,
        kH};
    effect(ZRFX_CALL_VALUES(c));
    EXPECT_EQ(zr::test::Crc32(d.data(), bytes), crc);
  }
}

}  // namespace
