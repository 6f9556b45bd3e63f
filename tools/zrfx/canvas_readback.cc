#include "zrfx/canvas_readback.h"

namespace zrfx {
namespace {

// A component from 0 to 1 as a byte; anything else, not-a-number included,
// is held to the range.
uint8_t ToByte(double component) {
  const double v = component * 255.0 + 0.5;
  return v >= 255.0 ? 255 : v >= 0.0 ? static_cast<uint8_t>(v) : 0;
}

}  // namespace

// Room for the widest layout (8 bytes a pixel) plus the pixel that
// LineHoriz plots past its end on the PutPixel road, and spare rows for
// the read-backs that look at the next row (Bayer) or the next pixel (UV8).
size_t CanvasBufferBytes(uint32_t width, uint32_t height) {
  return (static_cast<size_t>(width) * 8 + 256) * (height + 2);
}

Frame ReadBack(CanvasHandle& canvas, uint32_t width, uint32_t height) {
  Frame frame(width, height);
  for (uint32_t y = 0; y < height; ++y)
    for (uint32_t x = 0; x < width; ++x) {
      double c[4] = {0.0, 0.0, 0.0, 1.0};
      canvas->GetPixelRGBA(static_cast<int>(x), static_cast<int>(y), c[0], c[1], c[2], c[3]);
      uint8_t* p = frame.Pixel(x, y);
      for (int k = 0; k < 3; ++k) p[k] = ToByte(c[k]);
      p[3] = 255;
    }
  return frame;
}

}  // namespace zrfx
