// The wipe numbers of the front door and the effect that plays each.
#ifndef ZR_FX_WIPE_TABLE_H
#define ZR_FX_WIPE_TABLE_H

#include <cstdint>

#include "zrfx.h"

namespace zr::fx {

// The effect for a wipe code; bit 31 (the reverse flag) plays no part here.
// Every number without an entry, 0 included, plays as the dissolve.
zrfxEffectFn* WipeEffectFor(uint32_t wipeCode);

}  // namespace zr::fx

#endif
