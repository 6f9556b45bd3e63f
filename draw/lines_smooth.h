// The sub-pixel smoothing branch of ZrDraw::Line.
#ifndef ZR_DRAW_LINES_SMOOTH_H
#define ZR_DRAW_LINES_SMOOTH_H

#include <cstdint>

#include "zrdrawobject.h"

namespace zr::lines {

// Draws the line from (xa, ya) to (xb, yb), ends ordered so that y rises,
// with dx = xb - xa, dy = yb - ya and adx = |dx| (all wrapped 32-bit). The
// caller sends only lines that are neither vertical, horizontal nor an exact
// diagonal. Leaves the foreground colour altered. Returns 0.
int SmoothLine(ZrDraw& canvas, int32_t xa, int32_t ya, int32_t xb, int32_t yb, int32_t dx, int32_t dy,
               int32_t adx);

}  // namespace zr::lines

#endif
