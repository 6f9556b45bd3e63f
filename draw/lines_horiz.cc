// LineHoriz, the primitive under every filled span. Its two roads end
// differently and hosts rely on both: the word fill of the 32-bit RGB types
// stops before x2, the PutPixel road includes it.
#include <cstdint>

#include "draw/fill_road.h"
#include "platform/zrutil.h"
#include "zrdrawobject.h"

int ZrDraw::LineHoriz(int x1, int y, int x2) {
  if (zr::TakesFillRoad(mPixelType)) {
    // No test of y, of the canvas pointer or of the order of the ends: a
    // reversed span is a byte count that wrapped. The row offset is the
    // unsigned 32-bit product with its two low bits cleared, as PutPixel's.
    const uint32_t row = (static_cast<uint32_t>(y) * mPitch) & ~3u;
    const uint32_t bytes = (static_cast<uint32_t>(x2) - static_cast<uint32_t>(x1)) * 4u;
    const uintptr_t start =
        reinterpret_cast<uintptr_t>(mpCanvas) + row + static_cast<uintptr_t>(int64_t{4} * x1);
    SetMemoryFast(reinterpret_cast<void*>(start), mForeColor, bytes);
    return 0;
  }
  if (x2 < x1) return 0;
  for (int x = x1;; ++x) {
    PutPixel(x, y, true);
    if (x == x2) break;
  }
  return 0;
}
