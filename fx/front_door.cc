// ZrDraw_DisplayWipe: a wipe number to an effect, run on the four-band
// driver. Nothing is checked here: not the format, the pointers or the span.
#include "fx/run_bands.h"
#include "fx/wipe_table.h"
#include "zrfx.h"

uint32_t zr::fx::DisplayWipe(ZRFX_FRONT_DOOR_ARGS, SharedScratch* shared) {
  // The driver writes each job's band itself; the four passed here are unread.
  RunBands(srcA, pitchA, srcB, pitchB, dst, dstPitch, wipeCode, format, width, height, fxReserved0,
           fxReserved1, fxReserved2, fxReserved3, fxReserved4, progressStart, progressEnd, progress, 0, 0, 0,
           0, WipeEffectFor(wipeCode), shared);
  return 0;
}

uint32_t ZrDraw_DisplayWipe(ZRFX_FRONT_DOOR_ARGS) {
  return zr::fx::DisplayWipe(srcA, pitchA, srcB, pitchB, dst, dstPitch, wipeCode, format, width, height,
                             fxReserved0, fxReserved1, fxReserved2, fxReserved3, fxReserved4, progressStart,
                             progressEnd, progress, nullptr);
}
