// The public declarations have the types that a host writes against: a
// mismatch here is a host that does not compile, so it fails the build.
#include <type_traits>

#include "zrdraw.h"

namespace {

template <class T, class U>
constexpr bool kSame = std::is_same_v<T, U>;

// The effect type is a function type, so that hosts hold `zrfxEffectFn*`.
using EffectType = uint32_t(uint8_t*, uint32_t, uint8_t*, uint32_t, uint8_t*, uint32_t, uint32_t, uint32_t,
                            uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                            uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t);
static_assert(std::is_function_v<zrfxEffectFn>);
static_assert(kSame<zrfxEffectFn, EffectType>);

static_assert(kSame<decltype(zrfxSMPTE_Horizontal), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_Vertical), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_BarnDoorVertical), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_BarnDoorHorizontal), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_TopLeft), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_TopRight), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_BottomRight), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_BottomLeft), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_FourCorners), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_FourSquare), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_TopCenter), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_RightCenter), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_BottomCenter), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_LeftCenter), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSMPTE_Rectangle), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxSLIDE_Basic), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxDISSOLVE), zrfxEffectFn>);
static_assert(kSame<decltype(zrfxDISSOLVE2), zrfxEffectFn>);

// The driver: the 22 effect arguments, then a pointer to the effect.
static_assert(kSame<decltype(ZrDraw_FXMultiThread),
                    uint32_t(uint8_t*, uint32_t, uint8_t*, uint32_t, uint8_t*, uint32_t, uint32_t, uint32_t,
                             uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                             uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, zrfxEffectFn*)>);

// The front door and both adapters: the first 18 effect arguments.
using FrontDoorType = uint32_t(uint8_t*, uint32_t, uint8_t*, uint32_t, uint8_t*, uint32_t, uint32_t, uint32_t,
                               uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t,
                               uint32_t, uint32_t);
static_assert(kSame<decltype(ZrDraw_DisplayWipe), FrontDoorType>);
static_assert(kSame<decltype(ZrDraw_DisplayWipeYCbCr), FrontDoorType>);
static_assert(kSame<decltype(ZrDraw_DisplayWipeV210), FrontDoorType>);

// The thread entry takes the documented job record.
static_assert(kSame<decltype(zrfxFXThread), uint32_t(zrfxBandJob*)>);

// A host as written against the interface.
[[maybe_unused]] uint32_t RunOnBands(uint8_t* a, uint8_t* b, uint8_t* d, zrfxEffectFn* effect) {
  return ZrDraw_FXMultiThread(a, 4, b, 4, d, 4, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 100, 50, 0, 0, 0, 0, effect);
}
[[maybe_unused]] zrfxEffectFn* const kChosen = zrfxSMPTE_TopLeft;

}  // namespace
