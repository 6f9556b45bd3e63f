// The wipe of an adapter call, run on its scratch planes.
#ifndef ZR_FX_ADAPTERS_ADAPTER_WIPE_H
#define ZR_FX_ADAPTERS_ADAPTER_WIPE_H

#include <cstdint>

#include "fx/adapters/adapter_scratch.h"

namespace zr::fx {

// The caller's wipe arguments that go to the front door unchanged.
struct zrfxWipeArgs {
  uint32_t wipeCode;
  uint32_t width;
  uint32_t height;
  uint32_t fxReserved[5];
  uint32_t progressStart;
  uint32_t progressEnd;
  uint32_t progress;
};

// Runs ZrDraw_DisplayWipe from planes A and B into plane out, as format 33
// with pitches of width * 3. Returns false when the driver may have given up
// waiting for its workers (it stops after 100 ms in all): they may still be
// reading and writing the planes, so the block must not be freed under them.
bool zrfxWipePlanes(const zrfxScratchPlanes& planes, const zrfxWipeArgs& args);

}  // namespace zr::fx

#endif
