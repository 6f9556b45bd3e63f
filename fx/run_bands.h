// The front door and the four-band driver as the library calls them from
// inside: the exported entry points, plus scratch memory that the workers
// keep alive until the last of them is through.
#ifndef ZR_FX_RUN_BANDS_H
#define ZR_FX_RUN_BANDS_H

#include "fx/shared_scratch.h"
#include "zrfx.h"

namespace zr::fx {

// ZrDraw_FXMultiThread; `shared`, when set, gets one reference per started
// worker, each let go as that worker finishes.
uint32_t RunBands(ZRFX_EFFECT_ARGS, zrfxEffectFn* effect, SharedScratch* shared);

// ZrDraw_DisplayWipe, with `shared` passed on to the driver.
uint32_t DisplayWipe(ZRFX_FRONT_DOOR_ARGS, SharedScratch* shared);

}  // namespace zr::fx

#endif
