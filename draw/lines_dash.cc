// Dash: a line of `on` plotted and `off` skipped major-axis steps. Unlike
// Line it keeps the ends in the order given, so the pattern starts at
// (x1, y1).
#include <cstdint>

#include "draw/lines_fixed.h"
#include "zrdrawobject.h"

using zr::lines::Add;
using zr::lines::Sar16;
using zr::lines::Shl16;
using zr::lines::Sub;

int ZrDraw::Dash(int x1, int y1, int x2, int y2, int on, int off) {
  const int32_t dx = Sub(x2, x1);
  const int32_t dy = Sub(y2, y1);
  const bool yMajor = zr::lines::UnsignedAbs(dy) > zr::lines::UnsignedAbs(dx);
  const int32_t major = yMajor ? dy : dx;
  const int32_t minor = yMajor ? dx : dy;
  const int32_t slope = major == 0 ? 0 : zr::lines::Divide(Shl16(minor), major);
  int32_t acc = Shl16(yMajor ? x1 : y1) | 0x8000;
  const int32_t end = yMajor ? y2 : x2;
  const int32_t dir = major > 0 ? 1 : -1;
  int onLeft = on;
  int offLeft = off;
  for (int32_t pos = yMajor ? y1 : x1;; pos = Add(pos, dir)) {
    if (onLeft > 0) {
      if (yMajor)
        PutPixel(Sar16(acc), pos, true);
      else
        PutPixel(pos, Sar16(acc), true);
      --onLeft;
    }
    if (offLeft == 0) {
      onLeft = on;
      offLeft = off;
    }
    acc = major > 0 ? Add(acc, slope) : Sub(acc, slope);
    // The step that uses up `on` already counts toward `off`.
    if (onLeft == 0 && offLeft > 0) --offLeft;
    if (pos == end) break;
  }
  return 0;
}
