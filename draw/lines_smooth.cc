// The smoothing branch of Line. Hosts never reach it through GetDraw (no
// operation sets mbLineSmoothing); it runs for derived classes and callers
// that set the flag themselves, and its colour arithmetic is kept exactly as
// they know it: components that GetColorRGBA and GetPixelRGBA give in 0 to 1
// are divided by 255.0 again, and the foreground is re-read at every step
// and left altered at the end.
#include "draw/lines_smooth.h"

#include <cstdint>

#include "draw/lines_fixed.h"

namespace zr::lines {

namespace {

struct Rgba {
  double c[4];
};

Rgba ReadForeground(ZrDraw& canvas) {
  Rgba f;
  canvas.GetColorRGBA(f.c[0], f.c[1], f.c[2], f.c[3], true);
  return f;
}

void SetForegroundOver255(ZrDraw& canvas, const Rgba& f) {
  canvas.SetColorRGBA(f.c[0] / 255.0, f.c[1] / 255.0, f.c[2] / 255.0, f.c[3] / 255.0, true);
}

// One inner position: the near pixel in the mix weighted by bits 8 to 15 of
// the accumulator, the far pixel in the opposite mix, both against the near
// pixel's colour. Returns the foreground it read.
Rgba PlotPair(ZrDraw& canvas, int32_t nearX, int32_t nearY, int32_t farX, int32_t farY, uint32_t acc) {
  Rgba p;
  canvas.GetPixelRGBA(nearX, nearY, p.c[0], p.c[1], p.c[2], p.c[3]);
  const Rgba fg = ReadForeground(canvas);
  const double t = static_cast<double>((acc >> 8) & 0xFF) / 255.0;
  const double u = 1.0 - t;
  Rgba mix;
  for (int k = 0; k < 4; ++k) mix.c[k] = p.c[k] * t + fg.c[k] * u;
  SetForegroundOver255(canvas, mix);
  canvas.PutPixel(nearX, nearY, true);
  for (int k = 0; k < 4; ++k) mix.c[k] = p.c[k] * u + fg.c[k] * t;
  SetForegroundOver255(canvas, mix);
  canvas.PutPixel(farX, farY, true);
  SetForegroundOver255(canvas, fg);
  return fg;
}

}  // namespace

int SmoothLine(ZrDraw& canvas, int32_t xa, int32_t ya, int32_t xb, int32_t yb, int32_t dx, int32_t dy,
               int32_t adx) {
  Rgba fg = ReadForeground(canvas);
  SetForegroundOver255(canvas, fg);
  canvas.PutPixel(xa, ya, true);
  canvas.PutPixel(xb, yb, true);
  const int32_t step = dx < 0 ? -1 : 1;
  uint32_t acc = 0;
  if (dy <= adx) {
    // Stepped along x; the far pixel is the next row down. adx is not 0.
    const uint32_t slope = (static_cast<uint32_t>(dy) << 16) / static_cast<uint32_t>(adx);
    int32_t x = xa;
    for (uint32_t i = 1; i < static_cast<uint32_t>(adx); ++i) {
      x = Add(x, step);
      acc += slope;
      const int32_t y = Add(ya, static_cast<int32_t>(acc >> 16));
      fg = PlotPair(canvas, x, y, x, Add(y, 1), acc);
    }
  } else {
    // Stepped along y; the far pixel is the next column on the side of step.
    const uint32_t slope = (static_cast<uint32_t>(adx) << 16) / static_cast<uint32_t>(dy);
    int32_t y = ya;
    for (uint32_t i = 1; i < static_cast<uint32_t>(dy); ++i) {
      y = Add(y, 1);
      acc += slope;
      const int32_t offset = static_cast<int32_t>(acc >> 16);
      const int32_t x = dx < 0 ? Sub(xa, offset) : Add(xa, offset);
      fg = PlotPair(canvas, x, y, Add(x, step), y, acc);
    }
  }
  SetForegroundOver255(canvas, fg);
  return 0;
}

}  // namespace zr::lines
