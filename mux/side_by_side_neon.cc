// MUX_SIDE_BY_SIDE in the NEON build, which has no resize engine: the even
// columns of each picture, A on the left and B on the right, computed
// directly. Unlike the SSE build it steps all three frames by pitch and does
// nothing below width 2; an odd width leaves the last output column alone.
#include "mux/mux_modes.h"
#include "mux/pixel_runs.h"

namespace zr::mux {

void MuxSideBySide(const MuxCall& c) {
  if (c.width < 2) return;
  const uint32_t half = c.width / 2;
  for (uint64_t r = 0; r < c.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    uint8_t* out = MuxRow(c.out, y, c.pitch);
    DecimatePixels(MuxRow(c.a, y, c.pitch), out, half);
    DecimatePixels(MuxRow(c.b, y, c.pitch), out + size_t{half} * 4, half);
  }
}

}  // namespace zr::mux
