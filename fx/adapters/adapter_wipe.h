// The wipe of an adapter call, run on its scratch planes.
#ifndef ZR_FX_ADAPTERS_ADAPTER_WIPE_H
#define ZR_FX_ADAPTERS_ADAPTER_WIPE_H

#include <cstdint>

#include "fx/adapters/adapter_scratch.h"
#include "fx/shared_scratch.h"

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

// Runs the wipe front door from planes A and B into plane out, as format 33
// with pitches of width * 3. The driver's workers share `scratch`, the block
// that holds the planes: one that outlives the driver's bounded wait keeps
// the block alive until it is through.
void zrfxWipePlanes(const zrfxScratchPlanes& planes, const zrfxWipeArgs& args, SharedScratch* scratch);

}  // namespace zr::fx

#endif
