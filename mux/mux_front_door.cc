// ZrDraw_DisplayMuxRGBA: settles the roles of the sources, flips them in
// place, runs one mode and draws the grid overlay.
#include "mux/grid_overlay.h"
#include "mux/mux_modes.h"
#include "platform/pixform.h"
#include "zrmux.h"

using zr::mux::MuxCall;

int32_t ZrDraw_DisplayMuxRGBA(uint32_t* frameA, uint32_t sizeA, uint32_t* frameB, uint32_t sizeB,
                              uint32_t* frameOut, uint32_t /*sizeOut: never read*/, uint32_t muxFlags,
                              uint32_t wipeCode, uint32_t mixPosition, uint32_t mixLevel, uint32_t splitX,
                              uint32_t splitY, uint32_t gridMode, uint32_t gridStepX, uint32_t gridStepY,
                              uint32_t width, uint32_t height, uint32_t pitch) {
  const bool swap = (muxFlags & MUXF_SWAP) != 0;
  MuxCall call{};
  call.a = reinterpret_cast<uint8_t*>(swap ? frameB : frameA);
  call.b = reinterpret_cast<uint8_t*>(swap ? frameA : frameB);
  call.out = reinterpret_cast<uint8_t*>(frameOut);
  call.sizeA = sizeA;
  call.sizeB = sizeB;
  call.flags = muxFlags;
  call.wipeCode = wipeCode;
  call.mixPosition = mixPosition;
  call.mixLevel = mixLevel;
  call.splitX = splitX;
  call.splitY = splitY;
  call.width = width;
  call.height = height;
  call.pitch = pitch;

  // Flips speak of the roles, in this order, and are never undone: the
  // sources stay flipped when the call returns.
  const int w = static_cast<int>(width);
  const int h = static_cast<int>(height);
  const int p = static_cast<int>(pitch);
  if (call.Has(MUXF_FLIP_V_B)) pfmt_flip_vert(call.b, call.b, w, h, p);
  if (call.Has(MUXF_FLIP_V_A)) pfmt_flip_vert(call.a, call.a, w, h, p);
  if (call.Has(MUXF_FLIP_H_B)) pfmt_flip_horz(call.b, call.b, w, h, p, 0xFFFFFFFF);
  if (call.Has(MUXF_FLIP_H_A)) pfmt_flip_horz(call.a, call.a, w, h, p, 0xFFFFFFFF);

  zr::mux::FindMuxMode(muxFlags & MUX_MODE_MASK)(call);

  if (call.Has(MUXF_GRID) || gridMode != 0)
    zr::mux::DrawGridOverlay(call.out, gridMode, gridStepX, gridStepY, width, height, pitch);
  return 0;
}
