// ZrDraw_DisplayWipeYCbCr: any transition on 8-bit packed 4:2:2 pictures, by
// way of 4:4:4 planes and the wipe front door.
#include "fx/adapters/adapter_call.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "fx/source_rows.h"
#include "platform/zrutil.h"
#include "zrfx.h"

using namespace zr::fx;

// `format` is not read: the planes go to the wipe as format 33. The three
// pitches are the caller's own, each for its picture.
uint32_t ZrDraw_DisplayWipeYCbCr(ZRFX_FRONT_DOOR_ARGS) {
  (void)format;
  zrfxAdapterCall call;
  if (!zrfxBeginAdapter(width, height, call)) return 0xFFFFFFFFu;
  const zrfxScratchPlanes& planes = call.planes;
  const uint32_t planePitch = width * 3;
  const zrfxWipeArgs wipe{
      wipeCode,      width,       height,  {fxReserved0, fxReserved1, fxReserved2, fxReserved3, fxReserved4},
      progressStart, progressEnd, progress};

  // Both planes a row at a time.
  const AdapterRowForm& rows = PickYCbCr422Rows();
  for (uint32_t y = 0; y < height; ++y) {
    rows.expand(FxRow(srcA, y, pitchA), planes.planeA + size_t{y} * planePitch, width);
    rows.expand(FxRow(srcB, y, pitchB), planes.planeB + size_t{y} * planePitch, width);
  }
  try {
    zrfxWipePlanes(planes, wipe, call.scratch);
  } catch (...) {
    // dst keeps its former picture and the caller sees success.
    ErrOut("%s", kZrfxWipeExceptionText);
    zrfxEndAdapter(call);
    return 0;
  }
  for (uint32_t y = 0; y < height; ++y)
    rows.pack(planes.planeOut + size_t{y} * planePitch, FxRow(dst, y, dstPitch), width);

  zrfxEndAdapter(call);
  return 0;
}
