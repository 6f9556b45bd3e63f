// ZrDraw_DisplayWipe: a wipe number to an effect, run on the four-band
// driver. Nothing is checked here: not the format, the pointers or the span.
#include "fx/fx_call.h"
#include "fx/run_bands.h"
#include "fx/wipe_table.h"
#include "zrfx.h"

uint32_t zr::fx::DisplayWipe(const FxCall& call, SharedScratch* shared) {
  RunBands(call, WipeEffectFor(call.wipeCode), shared);
  return 0;
}

uint32_t ZrDraw_DisplayWipe(ZRFX_FRONT_DOOR_ARGS) {
  return zr::fx::DisplayWipe(ZRFX_FRONT_DOOR_RECORD, nullptr);
}
