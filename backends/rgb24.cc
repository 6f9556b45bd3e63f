// CDrawRGB24: three bytes a pixel, R G B or B G R. All pixel access is
// ZrPixel's own, whose background and blended writes store a whole word.
#include "canvas/hsv.h"
#include "zrbackends.h"

CDrawRGB24::CDrawRGB24() = default;

CDrawRGB24::~CDrawRGB24() = default;

int CDrawRGB24::GetPitch() { return static_cast<int>(3 * mWidth); }

int CDrawRGB24::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  const unsigned char* p = GetPixel(x, y);
  const bool bgr = mPixelType == pixelBGR24;
  const double r = p[bgr ? 2 : 0] / 255.0;
  const double g = p[1] / 255.0;
  const double b = p[bgr ? 0 : 2] / 255.0;
  a = 1.0;
  RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

int CDrawRGB24::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  GetPixelRGBA(x, y, r, g, b, a);
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  return 0;
}
