// ZrDraw_DisplayWipeV210: any transition on 10-bit v210 pictures, by way of
// 8-bit 4:4:4 planes and the wipe front door. The two low bits of every
// sample are lost on the way.
#include "fx/adapters/adapter_call.h"
#include "fx/adapters/adapter_wipe.h"
#include "fx/adapters/plane_rows.h"
#include "fx/adapters/v210_pitch.h"
#include "fx/adapters/v210_rows.h"
#include "fx/fx_call.h"
#include "fx/run_bands.h"
#include "platform/zrutil.h"
#include "zrfx.h"

using namespace zr::fx;

// `format` is not read: the planes go to the wipe as format 33. Each of the
// caller's pitches is raised to the smallest v210 row where it falls short.
uint32_t ZrDraw_DisplayWipeV210(ZRFX_FRONT_DOOR_ARGS) {
  FxCall call = ZRFX_FRONT_DOOR_RECORD;
  call.pitchA = V210Pitch(call.pitchA, call.width);
  call.pitchB = V210Pitch(call.pitchB, call.width);
  call.dstPitch = V210Pitch(call.dstPitch, call.width);

  AdapterCall adapter;
  if (!BeginAdapter(call.width, call.height, adapter)) return 0xFFFFFFFFu;
  const ScratchPlanes& planes = adapter.planes;
  const AdapterRowForm& rows = PickV210Rows();
  ExpandPlanes(call, planes, rows.expand);

  // No guard here, unlike the 4:2:2 adapter: an exception from the wipe goes
  // to the caller with the block held and the priority still raised. Hosts
  // have always seen it so; keep it. The driver's workers share the block
  // that holds the planes, so a late one keeps it alive until it is through.
  DisplayWipe(OnPlanes(call, planes), adapter.scratch);

  PackPlane(call, planes, rows.pack, V210RowBytes(call.width));

  EndAdapter(adapter);
  return 0;
}
