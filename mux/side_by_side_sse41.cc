// MUX_SIDE_BY_SIDE in the SSE build: both pictures squeezed to half width by
// the resize engine, nearest neighbour, rows stepped tightly by 4 times width.
#include "mux/mux_modes.h"
#include "zripp.h"

namespace zr::mux {

// Statuses are not looked at. The size query passes one channel for four-
// channel pixels: nearest neighbour needs the same scratch either way. With
// an odd width each call draws (width + 1) / 2 pixels and B's starts 2 * width
// bytes into the row, mid-pixel, so its last two bytes run into the next row.
void MuxSideBySide(const MuxCall& c) {
  const auto width = static_cast<int32_t>(c.width);
  const auto height = static_cast<int32_t>(c.height);
  const IppiSize size{width, height};
  const IppiRect rect{0, 0, width, height};
  const auto step = static_cast<int32_t>(c.width * 4);

  int32_t scratchSize = 0;
  ippiResizeGetBufSize(rect, rect, 1, ZRIPP_INTER_NN, &scratchSize);
  uint8_t* scratch = ippsMalloc_8u(scratchSize);
  // Without scratch only B's call is made; the engine refuses it at once, so
  // nothing is drawn and the output keeps what it held.
  if (scratch)
    ippiResizeSqrPixel_8u_C4R(c.a, size, step, rect, c.out, step, rect, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_NN,
                              scratch);
  ippiResizeSqrPixel_8u_C4R(c.b, size, step, rect, c.out + size_t{c.width} * 2, step, rect, 0.5, 1.0, 0.0,
                            0.0, ZRIPP_INTER_NN, scratch);
  if (scratch) ippsFree(scratch);
}

}  // namespace zr::mux
