// EraseCanvas: the whole canvas in the foreground colour.
#include <cstdint>

#include "draw/fill_road.h"
#include "platform/zrutil.h"
#include "zrdrawobject.h"

// The flag is ignored and the colour is the foreground, not the background:
// hosts rely on this, keep it.
int ZrDraw::EraseCanvas(bool) {
  if (zr::TakesFillRoad(mPixelType)) {
    // One run of width x height words from the first byte: the pitch is not
    // consulted, so padded rows shift the fill.
    const uint32_t bytes = mWidth * mHeight * 4;
    SetMemoryFast(mpCanvas, mForeColor, bytes);
    return 0;
  }
  // LineHoriz plots one pixel past the last column on these types.
  for (unsigned int y = 0; y < mHeight; ++y) LineHoriz(0, static_cast<int>(y), static_cast<int>(mWidth));
  return 0;
}
