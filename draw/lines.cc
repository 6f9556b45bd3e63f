// Line, LineTo and LineVert: one-pixel strokes through PutPixel, stepped by a
// 16.16 fixed-point accumulator along the major axis.
#include <cstdint>
#include <utility>

#include "draw/lines_fixed.h"
#include "draw/lines_smooth.h"
#include "zrdrawobject.h"

using zr::lines::Add;
using zr::lines::Sar16;
using zr::lines::Shl16;

int ZrDraw::Line(int x1, int y1, int x2, int y2) {
  // Ordered so that y rises: a line and its reverse plot the same pixels.
  if (y1 > y2) {
    std::swap(x1, x2);
    std::swap(y1, y2);
  }
  const int32_t dx = zr::lines::Sub(x2, x1);
  const int32_t dy = zr::lines::Sub(y2, y1);
  const int32_t adx = zr::lines::Abs(dx);
  if (mbLineSmoothing && dx != 0 && dy != 0 && adx != dy)
    return zr::lines::SmoothLine(*this, x1, y1, x2, y2, dx, dy, adx);
  if (dx == 0 && dy == 0) {
    PutPixel(x1, y1, true);
    return 0;
  }
  // The accumulator holds the minor coordinate in its top 16 bits, so minor
  // coordinates outside 16 bits wrap and a minor delta of 32768 or more
  // overflows the slope; both are limits of the format that hosts see.
  // The 0x8000 rounds the minor coordinate to nearest, halves going up.
  if (dy > adx) {
    const int32_t slope = zr::lines::Divide(Shl16(dx), dy);
    int32_t acc = Add(Add(Shl16(x1), slope), 0x8000);
    PutPixel(zr::lines::Low16(x1), y1, true);
    for (int32_t y = y1; y != y2;) {
      y = Add(y, 1);
      PutPixel(Sar16(acc), y, true);
      acc = Add(acc, slope);
    }
    return 0;
  }
  // x-major, the exact diagonal included.
  const int32_t slope = zr::lines::Divide(Shl16(dy), dx);
  PutPixel(x1, zr::lines::Low16(y1), true);
  if (dx > 0) {
    int32_t acc = Add(Add(Shl16(y1), slope), 0x8000);
    for (int32_t x = x1; x != x2;) {
      x = Add(x, 1);
      PutPixel(x, Sar16(acc), true);
      acc = Add(acc, slope);
    }
  } else {
    int32_t acc = Add(zr::lines::Sub(Shl16(y1), slope), 0x8000);
    for (int32_t x = x1; x != x2;) {
      x = zr::lines::Sub(x, 1);
      PutPixel(x, Sar16(acc), true);
      acc = zr::lines::Sub(acc, slope);
    }
  }
  return 0;
}

int ZrDraw::Line(_POINT& from, _POINT& to) { return Line(from.x, from.y, to.x, to.y); }

int ZrDraw::LineTo(int x, int y) {
  const int result = Line(mCurrentX, mCurrentY, x, y);
  mCurrentX = x;
  mCurrentY = y;
  return result;
}

int ZrDraw::LineVert(int x, int y1, int y2) {
  if (y1 > y2) return 0;
  for (int y = y1;; ++y) {
    PutPixel(x, y, true);
    if (y == y2) break;
  }
  return 0;
}
