// The sections of the gallery. Each renders its pictures into the sheet.
#ifndef ZRFX_GALLERY_H
#define ZRFX_GALLERY_H

#include "zrfx/contact_sheet.h"
#include "zrfx/frame.h"

namespace zrfx {

// The two sources, every wipe family at 25, 50 and 75 percent on 8-bit
// RGBA, and the 4:2:2 and v210 adapters.
void AddWipeGallery(ContactSheet& sheet, const Frame& a, const Frame& b);

// Every mux mode with the flags that change it, and the grid overlay in
// both of its step modes. `changed` is A with a few small changes, for the
// comparing modes.
void AddMuxGallery(ContactSheet& sheet, const Frame& a, const Frame& b, const Frame& changed);

// Lines and shapes drawn through canvases of several pixel types.
void AddCanvasGallery(ContactSheet& sheet, uint32_t width, uint32_t height);

// Circles, ellipses, arcs, pies, Bezier curves, rounded rectangles and
// text at several sizes, on one pixel type of each family.
void AddCurvesGallery(ContactSheet& sheet, uint32_t width, uint32_t height);

}  // namespace zrfx

#endif
