// CDrawRGB48, CDrawRGBHalf48 and CDrawARGB64: three (R G B) or four
// (A R G B) unsigned 16-bit words a pixel in the machine's byte order.
// RGBHalf48 reads and writes plain integers too, with no half-float
// conversion. The three draw with the words of their channel members, which
// no setter changes: SetColorRGBA writes ZrPixel's slots, unread here. Hosts
// rely on drawing with the constructor's words; keep it.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "canvas/hsv.h"
#include "zrbackends.h"

namespace {

// Words a pixel, and the word that holds R (the ones before it are alpha).
template <class Canvas>
constexpr int kWords = sizeof(Canvas::mForeChannel) / sizeof(uint32_t);
template <class Canvas>
constexpr int kRed = kWords<Canvas> - 3;

constexpr double kPerWord = 1.52587890625e-5;  // 1 / 65536

uint16_t Word(const unsigned char* p, int k) {
  uint16_t w;
  std::memcpy(&w, p + 2 * k, 2);
  return w;
}

template <class Canvas>
unsigned char* Cell(Canvas& c, int x, int y) {
  const uint32_t row = static_cast<uint32_t>(y) * c.mPitch;
  return reinterpret_cast<unsigned char*>(c.mpCanvas) + (int64_t{row} + int64_t{2 * kWords<Canvas>} * x);
}

// No bound, null, transparency or additive handling.
template <class Canvas>
int Put(Canvas& c, int x, int y, bool foreground) {
  unsigned char* p = c.Canvas::GetPixel(x, y);
  const uint32_t* words = foreground ? c.mForeChannel : c.mBackChannel;
  for (int k = 0; k < kWords<Canvas>; ++k) {
    const uint16_t w = static_cast<uint16_t>(words[k]);
    std::memcpy(p + 2 * k, &w, 2);
  }
  return 0;
}

// Alpha is written only where the pixel has it; otherwise it keeps the
// caller's value.
template <class Canvas>
int ReadRgba(Canvas& c, int x, int y, double& r, double& g, double& b, double& a) {
  const unsigned char* p = c.Canvas::GetPixel(x, y);
  r = Word(p, kRed<Canvas>) * kPerWord;
  g = Word(p, kRed<Canvas> + 1) * kPerWord;
  b = Word(p, kRed<Canvas> + 2) * kPerWord;
  if constexpr (kRed<Canvas> == 1) a = Word(p, 0) * kPerWord;
  return 0;
}

template <class Canvas>
int ReadYCbCr(Canvas& c, int x, int y, double& yOut, double& cb, double& cr, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  c.Canvas::GetPixelRGBA(x, y, r, g, b, a);
  c.RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

template <class Canvas>
int ReadHsv(Canvas& c, int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  c.Canvas::GetPixelRGBA(x, y, r, g, b, a);
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  return 0;
}

// The plain mean of the three colour words, with no matrix.
template <class Canvas>
double Luma(Canvas& c, int x, int y) {
  const unsigned char* p = c.Canvas::GetPixel(x, y);
  const int sum = Word(p, kRed<Canvas>) + Word(p, kRed<Canvas> + 1) + Word(p, kRed<Canvas> + 2);
  return sum / 196608.0;
}

}  // namespace

#define ZR_DEEP_RGB_CANVAS(Canvas)                                                             \
  Canvas::Canvas() {                                                                           \
    std::fill(std::begin(mForeChannel), std::end(mForeChannel), 255u);                         \
    std::fill(std::begin(mBackChannel), std::end(mBackChannel), 0u);                           \
  }                                                                                            \
  Canvas::~Canvas() = default;                                                                 \
  int Canvas::GetPitch() { return static_cast<int>(2 * kWords<Canvas> * mWidth); }             \
  unsigned char* Canvas::GetPixel(int x, int y) { return Cell(*this, x, y); }                  \
  int Canvas::PutPixel(int x, int y, bool foreground) { return Put(*this, x, y, foreground); } \
  int Canvas::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) {         \
    return ReadRgba(*this, x, y, r, g, b, a);                                                  \
  }                                                                                            \
  int Canvas::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {   \
    return ReadYCbCr(*this, x, y, yOut, cb, cr, a);                                            \
  }                                                                                            \
  int Canvas::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {          \
    return ReadHsv(*this, x, y, h, s, v, a);                                                   \
  }                                                                                            \
  double Canvas::GetLuma(int x, int y) { return Luma(*this, x, y); }

ZR_DEEP_RGB_CANVAS(CDrawRGB48)
ZR_DEEP_RGB_CANVAS(CDrawRGBHalf48)
ZR_DEEP_RGB_CANVAS(CDrawARGB64)

#undef ZR_DEEP_RGB_CANVAS
