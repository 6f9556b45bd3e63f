// DrawText: one line of the built-in font inside a caller's rectangle, scaled
// in whole steps from the rectangle's height. No wrap, no clipping: the cells
// run on past the rectangle. Row 0 of a cell is at the rectangle's bottom.
#include <cstdint>
#include <cstring>

#include "zrdrawobject.h"

namespace {

inline int Int(uint32_t v) { return static_cast<int>(v); }

}  // namespace

int ZrDraw::DrawText(const char* text, int count, RECT* rect, unsigned int flags) {
  const uint32_t h = static_cast<uint32_t>(rect->bottom) - static_cast<uint32_t>(rect->top);
  const uint32_t ah = static_cast<int32_t>(h) < 0 ? 0u - h : h;
  const uint32_t s = ah >= 10 ? ah / 10 : 1;
  const uint32_t full = s * 10;
  const uint32_t advance = static_cast<uint32_t>(count) * s * 8;

  // Placement. Centring reckons a character as wide as it is high (10 s,
  // not its advance of 8 s), so centred text sits right of true centre; and
  // it moves the top only: the text stands on the bottom edge. Keep both.
  if (flags & ZR_TEXT_CENTER) {
    if (h > full) rect->top = Int(static_cast<uint32_t>(rect->top) + (h - full) / 2);
    const int32_t half = Int(static_cast<uint32_t>(rect->right) - static_cast<uint32_t>(rect->left)) / 2;
    const uint64_t t = (uint64_t{std::strlen(text)} * full) >> 1;
    if (t < static_cast<uint64_t>(int64_t{half}))
      rect->left =
          Int(static_cast<uint32_t>(rect->left) + static_cast<uint32_t>(half) - static_cast<uint32_t>(t));
  } else if (flags & ZR_TEXT_RIGHT) {
    rect->left = Int(static_cast<uint32_t>(rect->right) - advance);
  } else if (!(flags & ZR_TEXT_BOTTOM)) {
    rect->bottom = Int(static_cast<uint32_t>(rect->top) + full);
  }

  // `count` measures; the string itself, to its zero, is what is drawn.
  const uint32_t left = static_cast<uint32_t>(rect->left), bottom = static_cast<uint32_t>(rect->bottom);
  for (uint32_t i = 0; i < std::strlen(text); ++i) {
    // A byte of 0x80 or more would index before the table: such text is
    // 7-bit only, and its cell is left untouched.
    const int code = static_cast<signed char>(text[i]);
    if (code < 0) continue;
    const unsigned char* glyph = gFont8x10 + code * 10;
    const uint32_t cell = left + i * 8 * s;
    // The byte moves on after every row whose number is a multiple of s,
    // row 0 included: byte 0 is one row high, bytes 1 to 9 are s rows each,
    // and the last s - 1 rows show byte 0 of the next glyph. Keep it.
    uint32_t byte = 0;
    for (uint32_t row = 0; row < full; ++row) {
      const unsigned bits = glyph[byte];
      for (uint32_t b = 0; b < 8; ++b) {
        const bool set = (bits & (0x80u >> b)) != 0;
        if (!set && mbTextTransparent) continue;
        for (uint32_t k = 0; k < s; ++k) PutPixel(Int(cell + b * s + k), Int(bottom - row), set);
      }
      if (row % s == 0) ++byte;
    }
    // One more row of paper above the cell, 10 s + 1 rows in all.
    if (!mbTextTransparent)
      for (uint32_t col = 0; col < 8 * s; ++col) PutPixel(Int(cell + col), Int(bottom - full), false);
  }

  if (flags & ZR_TEXT_CALCRECT) {
    rect->right = Int(static_cast<uint32_t>(rect->left) + advance);
    rect->bottom = Int(static_cast<uint32_t>(rect->top) + full);
  }
  return 0;
}

int ZrDraw::ZrDrawText(const char* text, int count, RECT* rect, unsigned int flags) {
  DrawText(text, count, rect, flags);
  return 0;
}
