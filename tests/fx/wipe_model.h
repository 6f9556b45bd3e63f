// An independent model of the wipes and the slide: each member's comparison
// evaluated pixel by pixel, exactly as each member states it, and the
// slide as a per-pixel map. The library's run-based code must agree with it.
#ifndef ZR_TESTS_FX_WIPE_MODEL_H
#define ZR_TESTS_FX_WIPE_MODEL_H

#include <cstdint>

#include "fx/fx_call.h"
#include "zrfx.h"

namespace zr::test {

struct WipeMember {
  const char* name;
  zrfxEffectFn* effect;
};

// The fourteen per-pixel wipes, zrfxSMPTE_Vertical and zrfxSLIDE_Basic.
extern const WipeMember kWipeMembers[16];

// Pixel size of a format, 0 for a code in no group.
uint32_t ModelBytesPerPixel(uint32_t format);

// True when the member puts `incoming` at (x, y). Lengths as in the call;
// a zero span gives lengths of 0 (the arm64 reading).
bool ModelTakesIncoming(zrfxEffectFn* effect, uint32_t x, uint32_t y, const fx::FxCall& c);

// Writes into c.dst what the effect writes, pixel by pixel.
void ModelEffect(zrfxEffectFn* effect, const fx::FxCall& c);

}  // namespace zr::test

#endif
