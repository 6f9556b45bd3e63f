// ZrDraw_DisplayWipeYCbCr: any transition on 8-bit packed 4:2:2 pictures, by
// way of 4:4:4 planes and the wipe front door.
#include "fx/adapters/adapter_call.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/plane_rows.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "fx/fx_call.h"
#include "fx/run_bands.h"
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
  const AdapterRowForm& rows = PickYCbCr422Rows();
  ExpandPlanes(call, planes, rows.expand);
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
  PackPlane(call, planes, rows.pack, YCbCr422RowBytes(call.width));

  EndAdapter(adapter);
  return 0;
}
