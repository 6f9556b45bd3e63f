// Label text kept inside a frame. A canvas writes wherever it is told: the
// coordinate guard of PutPixel is y >= 0 on some layouts and none on others,
// and a magnified Label on the 32-bit RGB types is a plain memory fill. So
// the text is cut, whole characters at a time, before it reaches an edge.
#ifndef ZRFX_FRAME_LABEL_H
#define ZRFX_FRAME_LABEL_H

#include <zrdraw.h>

#include <cstdint>
#include <string>

namespace zrfx {

// Rows of a line of Label text at `scale`: the font is 8 by 10.
constexpr uint64_t LabelLineHeight(uint32_t scale) { return 10ull * scale; }

// How many characters of a text of `length` Label draws whole inside a frame
// of `width` by `height` from its top left (x, y): each cell, 8 by 10 font
// pixels of `scale` by `scale`, with one column to spare after it, where a
// magnified foreground bit also lands on most layouts. 0 when the line has
// no room below y or (x, y) is outside the frame.
size_t LabelCharactersInFrame(int64_t x, int64_t y, size_t length, uint32_t scale, uint32_t width,
                              uint32_t height);

// Draws as much of `text` (printable ASCII) as fits, as above, with Label at
// `scale` in the canvas's foreground colour, ink only. Returns the number of
// characters drawn.
size_t LabelInFrame(ZrDraw* canvas, int x, int y, const std::string& text, uint32_t scale, uint32_t width,
                    uint32_t height);

}  // namespace zrfx

#endif
