// SetCanvas of the YCbCr canvases whose row is a whole number of bytes a
// pixel (packed 4:2:2 and the component-word canvases).
#ifndef ZR_BACKENDS_RAW_GEOMETRY_H
#define ZR_BACKENDS_RAW_GEOMETRY_H

#include "zrpixel.h"

namespace zr::backends {

inline int SetRawCanvas(ZrPixel& c, char* buffer, int height, int width, int pitch, unsigned int pixelBytes) {
  c.ZrPixel::SetCanvas(buffer, height, width, pitch);
  // The raw arguments replace what ZrPixel made of them: a negative height
  // or width stays a huge unsigned number, and rows are never bottom-up.
  // Hosts rely on it; keep.
  c.mpCanvas = buffer;
  c.mHeight = static_cast<unsigned int>(height);
  c.mWidth = static_cast<unsigned int>(width);
  c.mPitch = static_cast<unsigned int>(pitch);
  c.mbBottomUp = false;
  const unsigned int row = pixelBytes * c.mWidth;
  if (row > c.mPitch) c.mPitch = row;
  // Over 720 pixels a 709 matrix is kept or chosen, else a 601 one.
  const int mode = c.mYCbCrMode;
  if (width > 720) {
    if (mode != ZrPixel::cmYCbCr709Studio && mode != ZrPixel::cmYCbCr709Full)
      c.mYCbCrMode = ZrPixel::cmYCbCr709Studio;
  } else if (mode != ZrPixel::cmYCbCr601Studio && mode != ZrPixel::cmYCbCr601Full) {
    c.mYCbCrMode = ZrPixel::cmYCbCr601Studio;
  }
  return 0;
}

}  // namespace zr::backends

#endif
