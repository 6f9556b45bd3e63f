// ZrDraw_DisplayWipeYCbCr: any transition on 8-bit packed 4:2:2 pictures, by
// way of 4:4:4 planes and the wipe front door.
#include "fx/adapters/adapter_call.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "fx/fx_call.h"
#include "fx/run_bands.h"
#include "fx/source_rows.h"
#include "platform/zrutil.h"
#include "zrfx.h"

using namespace zr::fx;

// `format` is not read: the planes go to the wipe as format 33. The three
// pitches are the caller's own, each for its picture.
uint32_t ZrDraw_DisplayWipeYCbCr(ZRFX_FRONT_DOOR_ARGS) {
  const FxCall call = ZRFX_FRONT_DOOR_RECORD;
  AdapterCall adapter;
  if (!BeginAdapter(call.width, call.height, adapter)) return 0xFFFFFFFFu;
  const ScratchPlanes& planes = adapter.planes;
  const uint32_t planePitch = call.width * 3;

  // Both planes a row at a time.
  const AdapterRowForm& rows = PickYCbCr422Rows();
  for (uint32_t y = 0; y < call.height; ++y) {
    rows.expand(FxRow(call.srcA, y, call.pitchA), planes.planeA + size_t{y} * planePitch, call.width);
    rows.expand(FxRow(call.srcB, y, call.pitchB), planes.planeB + size_t{y} * planePitch, call.width);
  }
  try {
    // The driver's workers share the block that holds the planes: one that
    // outlives the driver's bounded wait keeps it alive until it is through.
    DisplayWipe(OnPlanes(call, planes), adapter.scratch);
  } catch (...) {
    // dst keeps its former picture and the caller sees success.
    ErrOut("%s", kWipeExceptionText);
    EndAdapter(adapter);
    return 0;
  }
  for (uint32_t y = 0; y < call.height; ++y)
    rows.pack(planes.planeOut + size_t{y} * planePitch, FxRow(call.dst, y, call.dstPitch), call.width);

  EndAdapter(adapter);
  return 0;
}
