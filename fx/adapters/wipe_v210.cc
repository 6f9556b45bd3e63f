// ZrDraw_DisplayWipeV210: any transition on 10-bit v210 pictures, by way of
// 8-bit 4:4:4 planes and the wipe front door. The two low bits of every
// sample are lost on the way.
#include "fx/adapters/adapter_scratch.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/v210_pitch.h"
#include "fx/adapters/v210_rows.h"
#include "fx/dissolve/fx_source_rows.h"
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

  const ZrHandle self = zrOSGetCurrentThread();
  const int priority = zrOSGetThreadPriority(self);
  zrOSSetThreadPriority(self, kZrfxAdapterPriority);

  void* block;
  try {
    block = zrfxAllocScratch(width, height);
  } catch (...) {
    // Nothing logged and the thread left at priority 15, as in the 4:2:2
    // adapter; keep it.
    return 0xFFFFFFFFu;
  }
  if (!block) {
    ErrOut("%s", kZrfxNoMemoryText);
    zrOSSetThreadPriority(self, priority);
    return 0xFFFFFFFFu;
  }
  const zrfxScratchPlanes planes = zrfxLayScratch(block, width, height);
  const uint32_t planePitch = width * 3;
  const zrfxWipeArgs wipe{
      wipeCode,      width,       height,  {fxReserved0, fxReserved1, fxReserved2, fxReserved3, fxReserved4},
      progressStart, progressEnd, progress};

  // Plane A whole, then plane B.
  const AdapterRowForm& rows = PickV210Rows();
  for (uint32_t y = 0; y < height; ++y)
    rows.expand(zrfxRow(srcA, pitchA, y), planes.planeA + size_t{y} * planePitch, width);
  for (uint32_t y = 0; y < height; ++y)
    rows.expand(zrfxRow(srcB, pitchB, y), planes.planeB + size_t{y} * planePitch, width);

  // No guard here, unlike the 4:2:2 adapter: an exception from the wipe goes
  // to the caller with the block held and the priority still raised. Hosts
  // have always seen it so; keep it.
  const bool workersThrough = zrfxWipePlanes(planes, wipe);

  for (uint32_t y = 0; y < height; ++y)
    rows.pack(planes.planeOut + size_t{y} * planePitch, zrfxRow(dst, dstPitch, y), width);

  // Late workers keep the block: freeing it under them would be worse than
  // leaving it.
  if (workersThrough) ZrFree(block);
  zrOSSetThreadPriority(self, priority);
  return 0;
}
