// The front door and the four-band driver as the library calls them from
// inside: on an effect record, with scratch memory that the workers keep
// alive until the last of them is through.
#ifndef ZR_FX_RUN_BANDS_H
#define ZR_FX_RUN_BANDS_H

#include "fx/fx_call.h"
#include "fx/shared_scratch.h"
#include "zrfx.h"

namespace zr::fx {

// ZrDraw_FXMultiThread; the band of `call` is not read. `shared`, when set,
// gets one reference per started worker, each let go as that worker finishes.
uint32_t RunBands(const FxCall& call, zrfxEffectFn* effect, SharedScratch* shared);

// ZrDraw_DisplayWipe, with `shared` passed on to the driver.
uint32_t DisplayWipe(const FxCall& call, SharedScratch* shared);

}  // namespace zr::fx

#endif
