// The hue, saturation and value of an RGB colour, as every GetPixelHSV
// computes them.
#ifndef ZR_CANVAS_HSV_H
#define ZR_CANVAS_HSV_H

namespace zr {

// A colourless pixel (v or delta 0) gets saturation 0 and `greyHue`: 0.0 in
// ZrPixel's own GetPixelHSV, -1.0 in the backends'. Ties go red, then green.
inline void HsvFromRgb(double r, double g, double b, double greyHue, double& h, double& s, double& v) {
  double greatest = r > g ? r : g;
  greatest = greatest > b ? greatest : b;
  double least = r < g ? r : g;
  least = least < b ? least : b;
  const double delta = greatest - least;
  v = greatest;
  if (greatest == 0.0 || delta == 0.0) {
    s = 0.0;
    h = greyHue;
    return;
  }
  s = delta / greatest;
  double hue;
  if (r == greatest)
    hue = (g - b) / delta;
  else if (g == greatest)
    hue = (b - r) / delta + 2.0;
  else
    hue = (r - g) / delta + 4.0;
  hue *= 60.0;
  if (hue < 0.0) hue += 360.0;
  h = hue;
}

}  // namespace zr

#endif
