// The wipe of an adapter call, on planes shared with the driver's workers.
#include "fx/adapters/adapter_wipe.h"

#include "fx/run_bands.h"

namespace zr::fx {

void zrfxWipePlanes(const zrfxScratchPlanes& planes, const zrfxWipeArgs& a, SharedScratch* scratch) {
  const uint32_t pitch = a.width * 3;
  DisplayWipe(planes.planeA, pitch, planes.planeB, pitch, planes.planeOut, pitch, a.wipeCode,
              kZrfxPlaneFormat, a.width, a.height, a.fxReserved[0], a.fxReserved[1], a.fxReserved[2],
              a.fxReserved[3], a.fxReserved[4], a.progressStart, a.progressEnd, a.progress, scratch);
}

}  // namespace zr::fx
