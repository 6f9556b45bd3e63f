// Label: a string in the built-in font at the canvas's label scale. Set bits
// are ink, clear bits paper; `inverse` swaps the two colour slots and
// `opaque` decides whether paper is drawn. At a scale above 1 the two inks
// take different roads, hosts rely on it; keep it: ink cells go through
// LineHoriz (a fill exactly `scale` wide on the 32-bit RGB types, scale + 1
// pixels elsewhere), paper cells through Point, `scale` pixels.
#include <cstdint>
#include <cstring>

#include "zrdrawobject.h"

int ZrDraw::Label(int x, int y, const char* text, bool inverse, bool opaque) {
  // The length is measured afresh before every character.
  for (uint32_t i = 0; i < std::strlen(text); ++i) {
    const uint32_t height = mLabelHeight, scale = mLabelScale;
    // A zero scale, or a cell that wraps the 32-bit row number, draws nothing.
    const uint32_t end = static_cast<uint32_t>(y) + scale * height;
    if (end <= static_cast<uint32_t>(y)) continue;
    // A byte of 0x80 or more indexes before the glyph table as a signed
    // char: such text is 7-bit only, and the cell is left untouched rather
    // than read from memory the table does not own.
    const int code = static_cast<signed char>(text[i]);
    if (code < 0) continue;
    const unsigned char* glyph = mpLabelFont + static_cast<uint32_t>(code) * height;
    // Rows from the glyph's last byte (its top row) down to byte 0.
    uint32_t py = static_cast<uint32_t>(y);
    for (uint32_t row = height; row-- > 0 && py < end;) {
      for (uint32_t pass = 0; pass < scale; ++pass, ++py) {
        uint32_t px = static_cast<uint32_t>(x) + scale * i * mLabelWidth;
        for (unsigned mask = 0x80; mask != 0; mask >>= 1, px += scale) {
          const bool set = (glyph[row] & mask) != 0;
          if (!set && !opaque) continue;
          const bool foreground = set != inverse;
          if (scale == 1) {
            Point(static_cast<int>(px), static_cast<int>(py), foreground);
          } else if (foreground) {
            LineHoriz(static_cast<int>(px), static_cast<int>(py), static_cast<int>(px + scale));
          } else {
            for (uint32_t k = 0; k < scale; ++k) Point(static_cast<int>(px + k), static_cast<int>(py), false);
          }
        }
      }
    }
  }
  return 0;
}
