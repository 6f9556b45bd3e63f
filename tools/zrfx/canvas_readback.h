// Canvases of the gallery: memory for one, and its pixels as the canvas
// itself reads them back, for viewing.
#ifndef ZRFX_CANVAS_READBACK_H
#define ZRFX_CANVAS_READBACK_H

#include <cstddef>
#include <cstdint>

#include "zrfx/canvas_handle.h"
#include "zrfx/frame.h"

namespace zrfx {

// Bytes enough for a canvas of any layout of this size, with the spare
// memory that the read-backs and LineHoriz reach past the frame.
size_t CanvasBufferBytes(uint32_t width, uint32_t height);

// The canvas's pixels through GetPixelRGBA, opaque: several layouts report
// alpha 0 or leave it as the caller had it.
Frame ReadBack(CanvasHandle& canvas, uint32_t width, uint32_t height);

}  // namespace zrfx

#endif
