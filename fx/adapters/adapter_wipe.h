// The wipe of an adapter call, run on its scratch planes.
#ifndef ZR_FX_ADAPTERS_ADAPTER_WIPE_H
#define ZR_FX_ADAPTERS_ADAPTER_WIPE_H

#include "fx/adapters/adapter_scratch.h"
#include "fx/fx_call.h"

namespace zr::fx {

// The caller's call with planes A, B and out in place of its pictures, as
// format 33 with all three pitches width * 3. Everything else goes to the
// wipe unchanged.
inline FxCall OnPlanes(FxCall call, const ScratchPlanes& planes) {
  const uint32_t pitch = call.width * 3;
  call.srcA = planes.planeA;
  call.pitchA = pitch;
  call.srcB = planes.planeB;
  call.pitchB = pitch;
  call.dst = planes.planeOut;
  call.dstPitch = pitch;
  call.format = kPlaneFormat;
  return call;
}

}  // namespace zr::fx

#endif
