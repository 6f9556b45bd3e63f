// The two plain copies and the hand-off to the transition front door.
#include "mux/mux_modes.h"
#include "platform/row_copy.h"
#include "zrfx.h"

namespace zr::mux {

// The copies ignore width, height and pitch: they move sizeA or sizeB bytes,
// the size staying with its argument position whatever the roles. A frame
// larger than the cache goes out with streaming stores.
void MuxCopyA(const MuxCall& call) { platform::RowBatch(call.sizeA).Copy(call.out, call.a, call.sizeA); }

void MuxCopyB(const MuxCall& call) { platform::RowBatch(call.sizeB).Copy(call.out, call.b, call.sizeB); }

// Format 1 (8-bit RGBA), the same pitch for all three frames, reserved values
// 1, 1, 0, 0, 0 and a progress scale of 0 to 65536. Bit 31 of wipeCode is the
// transition's own reverse flag, unrelated to MUXF_SWAP. Its result is not
// looked at.
void MuxWipe(const MuxCall& call) {
  ZrDraw_DisplayWipe(call.a, call.pitch, call.b, call.pitch, call.out, call.pitch, call.wipeCode, 1,
                     call.width, call.height, 1, 1, 0, 0, 0, 0, 65536, call.mixPosition);
}

}  // namespace zr::mux
