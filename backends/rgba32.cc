// CDrawRGBA32: one 32-bit word a pixel, in one of four byte orders. All
// pixel access is ZrPixel's own.
#include "canvas/channel_order.h"
#include "canvas/hsv.h"
#include "zrbackends.h"

CDrawRGBA32::CDrawRGBA32() = default;

CDrawRGBA32::~CDrawRGBA32() = default;

int CDrawRGBA32::GetPitch() { return static_cast<int>(4 * mWidth); }

int CDrawRGBA32::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  const unsigned char* p = GetPixel(x, y);
  // Types other than 2, 3 and 4 read as type 1.
  const zr::ChannelOrder o =
      zr::ChannelOrderOf(mPixelType >= pixelARGB32 && mPixelType <= pixelABGR32 ? mPixelType : pixelRGBA32);
  const double r = p[o.r] / 255.0;
  const double g = p[o.g] / 255.0;
  const double b = p[o.b] / 255.0;
  a = p[o.a] / 255.0;
  RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

int CDrawRGBA32::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  GetPixelRGBA(x, y, r, g, b, a);
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  return 0;
}
