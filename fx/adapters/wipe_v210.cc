// ZrDraw_DisplayWipeV210: any transition on 10-bit v210 pictures, by way of
// 8-bit 4:4:4 planes and the wipe front door. The two low bits of every
// sample are lost on the way.
#include "fx/adapters/adapter_call.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/v210_pitch.h"
#include "fx/adapters/v210_rows.h"
#include "fx/source_rows.h"
#include "platform/zrutil.h"
#include "zrfx.h"

using namespace zr::fx;

// `format` is not read: the planes go to the wipe as format 33. Each of the
// caller's pitches is raised to the smallest v210 row where it falls short.
uint32_t ZrDraw_DisplayWipeV210(ZRFX_FRONT_DOOR_ARGS) {
  (void)format;
  pitchA = zrfxV210Pitch(pitchA, width);
  pitchB = zrfxV210Pitch(pitchB, width);
  dstPitch = zrfxV210Pitch(dstPitch, width);

  zrfxAdapterCall call;
  if (!zrfxBeginAdapter(width, height, call)) return 0xFFFFFFFFu;
  const zrfxScratchPlanes& planes = call.planes;
  const uint32_t planePitch = width * 3;
  const zrfxWipeArgs wipe{
      wipeCode,      width,       height,  {fxReserved0, fxReserved1, fxReserved2, fxReserved3, fxReserved4},
      progressStart, progressEnd, progress};

  // Plane A whole, then plane B.
  const AdapterRowForm& rows = PickV210Rows();
  for (uint32_t y = 0; y < height; ++y)
    rows.expand(FxRow(srcA, y, pitchA), planes.planeA + size_t{y} * planePitch, width);
  for (uint32_t y = 0; y < height; ++y)
    rows.expand(FxRow(srcB, y, pitchB), planes.planeB + size_t{y} * planePitch, width);

  // No guard here, unlike the 4:2:2 adapter: an exception from the wipe goes
  // to the caller with the block held and the priority still raised. Hosts
  // have always seen it so; keep it.
  zrfxWipePlanes(planes, wipe, call.scratch);

  for (uint32_t y = 0; y < height; ++y)
    rows.pack(planes.planeOut + size_t{y} * planePitch, FxRow(dst, y, dstPitch), width);

  zrfxEndAdapter(call);
  return 0;
}
