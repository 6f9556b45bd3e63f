// ZrPixel's colour slots: the packed words of the byte-ordered RGB layouts
// and the YCbCr entry points that the YCbCr backends replace.
#include <cstdint>

#include "canvas/channel_order.h"
#include "canvas/convert.h"
#include "zrpixel.h"

int ZrPixel::GetColorRGBA(double& r, double& g, double& b, double& a, bool foreground) {
  const uint32_t word = foreground ? mForeColor : mBackColor;
  const zr::ChannelOrder o = zr::ChannelOrderOf(mPixelType);
  r = ((word >> (8 * o.r)) & 0xFF) / 255.0;
  g = ((word >> (8 * o.g)) & 0xFF) / 255.0;
  b = ((word >> (8 * o.b)) & 0xFF) / 255.0;
  a = o.a < 0 ? 1.0 : ((word >> (8 * o.a)) & 0xFF) / 255.0;
  return 0;
}

int ZrPixel::SetColorRGBA(double r, double g, double b, double a, bool foreground) {
  // No clamp: a component beyond 1 wraps within its byte.
  const zr::ChannelOrder o = zr::ChannelOrderOf(mPixelType);
  uint32_t word = uint32_t{zr::TruncToByte(r * 255.0)} << (8 * o.r);
  word |= uint32_t{zr::TruncToByte(g * 255.0)} << (8 * o.g);
  word |= uint32_t{zr::TruncToByte(b * 255.0)} << (8 * o.b);
  if (o.a >= 0) word |= uint32_t{zr::TruncToByte(a * 255.0)} << (8 * o.a);
  (foreground ? mForeColor : mBackColor) = word;
  return 0;
}

int ZrPixel::GetColorYCbCr(double&, double&, double&, double&, bool) { return 0; }

int ZrPixel::SetColorYCbCr(double, double, double, double, bool) { return 0; }

int ZrPixel::SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int a,
                             bool foreground) {
  return SetColorYCbCr(y / 1023.0, cb / 1023.0, cr / 1023.0, a / 1023.0, foreground);
}

int ZrPixel::SetColorYCbCr8(unsigned char y, unsigned char cb, unsigned char cr, unsigned char a,
                            bool foreground) {
  return SetColorYCbCr(y / 255.0, cb / 255.0, cr / 255.0, a / 255.0, foreground);
}
