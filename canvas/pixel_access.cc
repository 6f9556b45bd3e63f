// ZrPixel's own pixel access, written for the byte-ordered 32-bit and 24-bit
// RGB layouts: addressing, the guarded write with its blend and additive
// roads, and the read-backs.
#include <cstdint>
#include <cstring>

#include "canvas/channel_order.h"
#include "canvas/convert.h"
#include "canvas/hsv.h"
#include "zrpixel.h"

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "colour words are stored in memory order");

namespace {

bool IsRgb24(int type) { return type == pixelRGB24 || type == pixelBGR24; }

// The 32-bit cell of (x, y): the row offset is an unsigned 32-bit product
// with its two low bits cleared, so that a 32-bit canvas stays word-aligned
// whatever its pitch; x is signed.
unsigned char* WordCell(char* canvas, unsigned int pitch, int x, int y) {
  const uint32_t row = (static_cast<uint32_t>(y) * pitch) & ~3u;
  return reinterpret_cast<unsigned char*>(canvas) + (int64_t{row} + int64_t{4} * x);
}

// The 3-byte cell of (x, y) on types 5 and 6, with an unrounded row offset.
unsigned char* TripleCell(char* canvas, unsigned int pitch, int x, int y) {
  const uint32_t row = static_cast<uint32_t>(y) * pitch;
  return reinterpret_cast<unsigned char*>(canvas) + (int64_t{row} + int64_t{3} * x);
}

uint32_t LoadWord(const unsigned char* p) {
  uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}

void StoreWord(unsigned char* p, uint32_t w) { std::memcpy(p, &w, 4); }

// The slot colour mixed into the cell as one whole 32-bit number, not
// channel by channel: hosts rely on this exact blend, on every type.
uint32_t BlendWord(uint32_t colour, uint32_t old, double t) {
  return zr::TruncToU32(static_cast<double>(colour) * t + (1.0 - t) * static_cast<double>(old));
}

}  // namespace

unsigned char* ZrPixel::GetPixel(int x, int y) {
  if (IsRgb24(mPixelType)) return TripleCell(mpCanvas, mPitch, x, y);
  return WordCell(mpCanvas, mPitch, x, y);
}

int ZrPixel::PutPixel(int x, int y, bool foreground) {
  // The one coordinate guard of the library: x and the height are not checked.
  if (y < 0 || mpCanvas == nullptr) return -1;
  unsigned char* p = WordCell(mpCanvas, mPitch, x, y);
  if (foreground) {
    if (mbAlphaAdditive) {
      // Each sum keeps only its low 8 bits: it wraps rather than saturates.
      const double a = static_cast<double>(mForeColor >> 24) / 255.0;
      for (int k = 0; k < 3; ++k) {
        const double c = static_cast<double>((mForeColor >> (8 * k)) & 0xFF);
        p[k] = static_cast<unsigned char>(zr::TruncToI32(p[k] + a * c));
      }
      p[3] = 255;
      return 0;
    }
    if (mbTransparency && mForeOpacity > 0.0) {
      StoreWord(p, BlendWord(mForeColor, LoadWord(p), mForeOpacity));
      return 0;
    }
    if (IsRgb24(mPixelType)) {
      unsigned char* q = TripleCell(mpCanvas, mPitch, x, y);
      for (int k = 0; k < 3; ++k) q[k] = static_cast<unsigned char>(mForeColor >> (8 * k));
      return 0;
    }
    StoreWord(p, mForeColor);
    return 0;
  }
  if (mbTransparency && mBackOpacity > 0.0) {
    StoreWord(p, BlendWord(mBackColor, LoadWord(p), mBackOpacity));
    return 0;
  }
  // A whole word at 4 x even on the 24-bit types, unlike the foreground
  // write; hosts rely on this asymmetry, keep it.
  StoreWord(p, mBackColor);
  return 0;
}

int ZrPixel::SetPixel(int x, int y, double c0, double c1, double c2, double c3, bool foreground) {
  if (IsRgbType() == 1)
    SetColorRGBA(c0, c1, c2, c3, foreground);
  else
    SetColorYCbCr(c0, c1, c2, c3, foreground);
  return PutPixel(x, y, foreground);
}

int ZrPixel::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) {
  const unsigned char* p = GetPixel(x, y);
  const zr::ChannelOrder o = zr::ChannelOrderOf(mPixelType);
  r = p[o.r] / 255.0;
  g = p[o.g] / 255.0;
  b = p[o.b] / 255.0;
  a = o.a < 0 ? 1.0 : p[o.a] / 255.0;
  return 0;
}

int ZrPixel::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  GetPixelRGBA(x, y, r, g, b, a);
  RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

int ZrPixel::GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                            unsigned char& a) {
  double y0 = 0.0, cb0 = 0.0, cr0 = 0.0, a0 = 0.0;
  GetPixelYCbCr(x, y, y0, cb0, cr0, a0);
  yOut = zr::TruncToByte(y0 * 255.0);
  cb = zr::TruncToByte(cb0 * 255.0);
  cr = zr::TruncToByte(cr0 * 255.0);
  a = zr::TruncToByte(a0 * 255.0);
  return 0;
}

int ZrPixel::GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                             unsigned int& a) {
  double y0 = 0.0, cb0 = 0.0, cr0 = 0.0, a0 = 0.0;
  GetPixelYCbCr(x, y, y0, cb0, cr0, a0);
  yOut = zr::TruncToU32(y0 * 1023.0);
  cb = zr::TruncToU32(cb0 * 1023.0);
  cr = zr::TruncToU32(cr0 * 1023.0);
  a = zr::TruncToU32(a0 * 1023.0);
  return 0;
}

int ZrPixel::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  GetPixelRGBA(x, y, r, g, b, a);
  // A colourless pixel gets hue 0.0 here, where the backends report -1.0.
  zr::HsvFromRgb(r, g, b, 0.0, h, s, v);
  return 0;
}

namespace {

struct LumaWeights {
  double kr, kg, kb;
};

// By mYCbCrMode 0 to 8 (1000 to 1008 alike). This pairing of modes and
// weights is the luma readout's own and differs from the colour matrices;
// hosts rely on it, keep it.
constexpr LumaWeights kLumaWeights[] = {
    {0.299, 0.587, 0.114},   {0.299, 0.587, 0.114},   {0.257, 0.504, 0.098},
    {0.213, 0.715, 0.072},   {0.183, 0.614, 0.062},   {0.2627, 0.678, 0.0593},
    {0.2627, 0.678, 0.0593}, {0.2627, 0.678, 0.0593}, {0.2627, 0.678, 0.0593},
};

}  // namespace

double ZrPixel::GetLuma(int x, int y) {
  int mode = mYCbCrMode;
  if (mode >= 1000 && mode <= 1008) mode -= 1000;
  const LumaWeights& w = kLumaWeights[mode >= 0 && mode <= 8 ? mode : 1];
  const unsigned char* p = GetPixel(x, y);
  const zr::ChannelOrder o = zr::ChannelOrderOf(mPixelType);
  // Divided by 256, not 255: keep.
  return (w.kr * p[o.r] + w.kg * p[o.g] + w.kb * p[o.b]) * 0.00390625;
}
