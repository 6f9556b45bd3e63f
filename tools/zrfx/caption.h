// Text burned into RGBA frames with the library's built-in 8 by 10 font,
// gFont8x10, drawn point by point through an RGBA canvas over the frame,
// the way a host burns in a caption.
#ifndef ZRFX_CAPTION_H
#define ZRFX_CAPTION_H

#include <zrdraw.h>

#include <cstdint>
#include <string>

#include "zrfx/frame.h"

namespace zrfx {

// Width and height in pixels of `text` at `scale`.
int TextWidth(const std::string& text, int scale);
int TextHeight(int scale);

// Draws `text` with the top left of its first cell at (x, y), each font
// pixel a `scale` by `scale` square of `rgba` (byte 0 the low byte). Pixels
// outside the frame are skipped: the canvas itself does not clip.
void DrawText(Frame& frame, int x, int y, const std::string& text, int scale, uint32_t rgba);

// The same on any canvas of `width` by `height` pixels, in its foreground
// colour: one Point call for each pixel of ink.
void DrawCanvasText(ZrDraw* canvas, uint32_t width, uint32_t height, int x, int y, const std::string& text,
                    int scale);

// Darkens a band along the bottom edge and writes `text` in white on it.
void DrawCaptionBar(Frame& frame, const std::string& text, int scale);

}  // namespace zrfx

#endif
