// CDrawRGB30DPX: 10-bit R, G, B in a big-endian 32-bit word (R in bits 22
// to 31, G in 12 to 21, B in 2 to 11). The colour slots hold the word
// byte-swapped, so ZrPixel's PutPixel, with its blend and additive roads on
// that swapped word, stores it as it stands.
#include <cstdint>
#include <cstring>

#include "canvas/convert.h"
#include "canvas/hsv.h"
#include "zrbackends.h"

namespace {

struct Rgb10 {
  uint32_t r, g, b;
};

// The fields of a slot or pixel word as it lies in memory.
Rgb10 Unpack(uint32_t stored) {
  const uint32_t w = __builtin_bswap32(stored);
  return {w >> 22, (w >> 12) & 0x3FF, (w >> 2) & 0x3FF};
}

uint32_t LoadWord(const unsigned char* p) {
  uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}

// A slot or pixel as colour doubles; there is no alpha field, so it reads 1.
int ToDoubles(uint32_t stored, double& r, double& g, double& b, double& a) {
  const Rgb10 c = Unpack(stored);
  r = c.r / 1023.0;
  g = c.g / 1023.0;
  b = c.b / 1023.0;
  a = 1.0;
  return 0;
}

}  // namespace

CDrawRGB30DPX::CDrawRGB30DPX() = default;

CDrawRGB30DPX::~CDrawRGB30DPX() = default;

int CDrawRGB30DPX::GetPitch() { return static_cast<int>(4 * mWidth); }

int CDrawRGB30DPX::SetColorRGBA(double r, double g, double b, double, bool foreground) {
  // No clamp: a component above 1 spills into the field on its left.
  const uint32_t w =
      zr::TruncToU32(r * 1023.0) << 22 | zr::TruncToU32(g * 1023.0) << 12 | zr::TruncToU32(b * 1023.0) << 2;
  (foreground ? mForeColor : mBackColor) = __builtin_bswap32(w);
  return 0;
}

int CDrawRGB30DPX::GetColorRGBA(double& r, double& g, double& b, double& a, bool foreground) {
  return ToDoubles(foreground ? mForeColor : mBackColor, r, g, b, a);
}

// ZrPixel's addressing: 4 bytes a pixel, the row offset rounded down to 4.
int CDrawRGB30DPX::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) {
  return ToDoubles(LoadWord(GetPixel(x, y)), r, g, b, a);
}

int CDrawRGB30DPX::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  CDrawRGB30DPX::GetPixelRGBA(x, y, r, g, b, a);
  RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

int CDrawRGB30DPX::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  CDrawRGB30DPX::GetPixelRGBA(x, y, r, g, b, a);
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  return 0;
}

double CDrawRGB30DPX::GetLuma(int x, int y) {
  // Weights of its own by matrix, over 1024; 1000 and up take the last row.
  double kr = 0.299, kg = 0.587, kb = 0.114;
  if (mYCbCrMode == cmYCbCr601Full)
    kr = 0.257, kg = 0.504, kb = 0.098;
  else if (mYCbCrMode == cmYCbCr709Studio)
    kr = 0.213, kg = 0.715, kb = 0.072;
  else if (mYCbCrMode == cmYCbCr709Full)
    kr = 0.183, kg = 0.614, kb = 0.062;
  const Rgb10 c = Unpack(LoadWord(GetPixel(x, y)));
  return (kr * c.r + kg * c.g + kb * c.b) * 0.0009765625;
}
