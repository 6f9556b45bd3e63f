// The overlay of `zrfx draw`: a grid, a filled rectangle, a rectangle
// outline and the burn-in (safe areas, caption, timecode) in one colour,
// drawn through a canvas in the frame's own layout.
#ifndef ZRFX_OVERLAY_H
#define ZRFX_OVERLAY_H

#include <zrdraw.h>

#include <cstdint>
#include <optional>

#include "zrfx/args.h"
#include "zrfx/burn_in.h"
#include "zrfx/canvas_handle.h"

namespace zrfx {

struct Overlay {
  uint32_t rgba = 0xFFFFFFFFu;  // byte 0 (the low byte) is red; opaque
  uint32_t gridStep = 0;        // 0: no grid
  // Rectangles with all four edges included, inside the frame.
  std::optional<RECT> fill, outline;
  BurnIn burnIn;
};

// --colour, --grid, --fill, --rect and the burn-in options for frames of
// this size. Throws UsageError for a malformed value or a rectangle or text
// place outside the frame.
Overlay ParseOverlay(const Args& args, uint32_t width, uint32_t height);

// Draws the grid, the filled rectangle, the outline, then the burn-in with
// the timecode of frame `frame` (0 the first), in the colour that the
// canvas holds.
void DrawOverlay(CanvasHandle& canvas, unsigned int type, const Overlay& overlay, uint32_t width,
                 uint32_t height, uint64_t frame);

}  // namespace zrfx

#endif
