// CDrawYCbCrYUYV: packed 8-bit 4:2:2, two pixels in a 4-byte group in one of
// four byte orders. The colours are whole group words, and a write merges the
// word into the group already there, keeping one old byte.
#include <cstdint>

#include "backends/group_words.h"
#include "backends/raw_geometry.h"
#include "canvas/convert.h"
#include "platform/int_divide.h"
#include "zrbackends.h"

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "group words are stored in memory order");

namespace {

using zr::backends::LoadWord;
using zr::backends::StoreWord;

// Where the components stand in a group (byte indexes), and which old byte a
// write keeps by the parity of its x argument.
struct GroupLayout {
  int y0, cb, y1, cr;
  int keptEven, keptOdd;
};

constexpr GroupLayout kLayouts[] = {
    {0, 1, 2, 3, 0, 2},  // pixelYUYV: Y0 Cb Y1 Cr
    {1, 0, 3, 2, 3, 1},  // pixelUYVY: Cb Y0 Cr Y1
    {0, 3, 2, 1, 0, 2},  // pixelYVYU: Y0 Cr Y1 Cb
    {1, 2, 3, 0, 3, 1},  // pixelVYUY: Cr Y0 Cb Y1
};

// Every type outside 10 to 13 has the layout of 11.
const GroupLayout& LayoutOf(int type) {
  return kLayouts[type >= pixelYUYV && type <= pixelVYUY ? type - pixelYUYV : pixelUYVY - pixelYUYV];
}

// The word is a sum, so a component past 255 carries into the next byte.
uint32_t GroupWord(const GroupLayout& l, uint32_t y, uint32_t cb, uint32_t cr) {
  return y * ((1u << 8 * l.y0) + (1u << 8 * l.y1)) + cb * (1u << 8 * l.cb) + cr * (1u << 8 * l.cr);
}

// num mod den, unsigned; a zero den divides by zero as the build's processor
// does (on aarch64 the quotient is 0, which leaves num).
[[gnu::noinline, gnu::cold]] uint32_t Remainder(uint32_t num, uint32_t den) {
  return num - zr::platform::DivideOrFault(num, den) * den;
}

// The usual case, a coordinate in range, needs no division.
uint32_t Wrap(uint32_t num, uint32_t den) { return num < den ? num : Remainder(num, den); }

// GetPixelRGBA in 8-bit code values, with t = yScale (Y - yOffset):
// R = t + rCr (Cr - c), G = t - gCr (Cr - c) - gCb (Cb - c) (the Cb term first
// when cbFirst), B = t + bCb (Cb - c), with c = chromaOffset; each × scale.
struct GroupMatrix {
  double yOffset, yScale, chromaOffset, rCr, gCr, gCb, bCb;
  bool cbFirst;
  double scale;
};

constexpr double kBy256 = 0.00390625;
constexpr double kBy65536 = 1.0 / 65536.0;
constexpr GroupMatrix k601Studio = {16, 1.164, 128, 1.596, 0.813, 0.391, 2.017, false, kBy256};
constexpr GroupMatrix k601Full = {0, 256, 128, 350.976, 178.688, 86.016, 443.392, false, kBy65536};
// Mode 4 reads with the studio matrix of mode 3, scaled; hosts rely on it, keep.
constexpr GroupMatrix k709Full = {16,        299.246592, 128,   460.734464, 136.957696,
                                  54.804992, 542.887168, false, kBy65536};
constexpr GroupMatrix k2020Studio = {16, 1.164, 128, 1.6786, 0.6504, 0.1873, 2.1417, false, kBy256};
constexpr GroupMatrix k2020Full = {0, 256, 128, 377.4976, 146.2784, 42.1376, 481.664, false, kBy65536};
// Uncentred chroma and coefficients of its own; hosts rely on them, keep.
constexpr GroupMatrix k2020Constant = {
    0, 256, 0, 377.49760000000003, 146.2664004719764, 42.12560047197639, 481.6384, true, kBy65536};

// By mYCbCrMode. A null matrix hands the scaled bytes to YCbCrToRGB; a mode
// not listed computes nothing.
struct ModeMatrix {
  int mode;
  const GroupMatrix* matrix;
};
constexpr ModeMatrix kModeMatrices[] = {
    {0, &k601Studio},       {1, &k601Studio},       {1000, &k601Studio}, {1001, &k601Studio},
    {2, &k601Full},         {1002, &k601Full},      {3, nullptr},        {1003, nullptr},
    {4, &k709Full},         {1004, &k709Full},      {5, &k2020Studio},   {1005, &k2020Studio},
    {6, &k2020Full},        {7, &k2020Full},        {1006, &k2020Full},  {8, &k2020Constant},
    {1007, &k2020Constant}, {1008, &k2020Constant},
};

void Apply(const GroupMatrix& m, int y, int cb, int cr, double& r, double& g, double& b) {
  const double t = m.yScale * (y - m.yOffset);
  const double cbTerm = cb - m.chromaOffset;
  const double crTerm = cr - m.chromaOffset;
  r = (t + m.rCr * crTerm) * m.scale;
  g = (m.cbFirst ? t - m.gCb * cbTerm - m.gCr * crTerm : t - m.gCr * crTerm - m.gCb * cbTerm) * m.scale;
  b = (t + m.bCb * cbTerm) * m.scale;
}

}  // namespace

CDrawYCbCrYUYV::CDrawYCbCrYUYV(pixelType type)
    : mYBase(16.0),
      mYRange(235.0),
      mCbBase(19.0),
      mCbRange(219.0),
      mCrBase(18.0),
      mCrRange(219.0),
      mReserved(0) {
  mPixelType = type >= pixelYUYV && type <= pixelVYUY ? type : pixelUYVY;
  mYCbCrMode = cmYCbCr709Studio;
  // Luma 128 with chroma 235 or 16: luma and chroma in each other's places.
  // Hosts get these until they set a colour; keep them.
  const GroupLayout& l = LayoutOf(mPixelType);
  mForeWord = GroupWord(l, 128, 235, 235);
  mBackWord = GroupWord(l, 128, 16, 16);
}

CDrawYCbCrYUYV::~CDrawYCbCrYUYV() = default;

int CDrawYCbCrYUYV::SetCanvas(char* buffer, int height, int width, int pitch) {
  return zr::backends::SetRawCanvas(*this, buffer, height, width, pitch, 2);
}

int CDrawYCbCrYUYV::GetPitch() { return static_cast<int>(2 * mWidth); }

unsigned char* CDrawYCbCrYUYV::GetPixel(int x, int y) {
  if (mpCanvas == nullptr) return nullptr;
  const uint32_t row = static_cast<uint32_t>(y) * mPitch;
  return reinterpret_cast<unsigned char*>(mpCanvas) + (int64_t{row} + int64_t{4} * (x / 2));
}

int CDrawYCbCrYUYV::PutPixel(int x, int y, bool foreground) {
  if (mpCanvas == nullptr) return 0;
  const uint32_t word = foreground ? mForeWord : mBackWord;
  const uint32_t row = Wrap(static_cast<uint32_t>(y), mHeight);
  const uint32_t col = Wrap(static_cast<uint32_t>(x), mWidth);
  unsigned char* p =
      reinterpret_cast<unsigned char*>(mpCanvas) + uint64_t{row * mPitch} + uint64_t{2 * (col & ~1u)};
  // The parity of x itself, not of the wrapped column, picks the old byte
  // that stays: on 10 and 12 a write sets its neighbour's luma and keeps its
  // own, on 11 and 13 the reverse. Hosts rely on this; keep it.
  const GroupLayout& l = LayoutOf(mPixelType);
  const uint32_t kept = 0xFFu << 8 * ((x & 1) ? l.keptOdd : l.keptEven);
  StoreWord(p, (word & ~kept) | (LoadWord(p) & kept));
  return 0;
}

// The YCbCr reads take the luma of the group's first pixel, whatever x.
int CDrawYCbCrYUYV::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  const unsigned char* p = GetPixel(x, y);
  if (p == nullptr) {
    yOut = cb = cr = 0.0;
    return 0;
  }
  const GroupLayout& l = LayoutOf(mPixelType);
  a = 1.0;
  yOut = p[l.y0] * kBy256;
  cb = p[l.cb] * kBy256;
  cr = p[l.cr] * kBy256;
  return 0;
}

int CDrawYCbCrYUYV::GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                                   unsigned char& a) {
  const unsigned char* p = GetPixel(x, y);
  const GroupLayout& l = LayoutOf(mPixelType);
  yOut = p ? p[l.y0] : 0;
  cb = p ? p[l.cb] : 0;
  cr = p ? p[l.cr] : 0;
  a = 255;
  return 0;
}

// Bytes × 4, and alpha 255 rather than 1023.
int CDrawYCbCrYUYV::GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                                    unsigned int& a) {
  const unsigned char* p = GetPixel(x, y);
  const GroupLayout& l = LayoutOf(mPixelType);
  yOut = p ? 4u * p[l.y0] : 0;
  cb = p ? 4u * p[l.cb] : 0;
  cr = p ? 4u * p[l.cr] : 0;
  a = 255;
  return 0;
}

int CDrawYCbCrYUYV::GetPixelHSV(int, int, double&, double&, double&, double&) { return -1; }

double CDrawYCbCrYUYV::GetLuma(int x, int y) {
  const unsigned char* p = GetPixel(x, y);
  if (p == nullptr) {
    zr::backends::FaultOnNullCanvas();
    return 0.0;
  }
  return p[LayoutOf(mPixelType).y0] * kBy256;
}

int CDrawYCbCrYUYV::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) {
  const unsigned char* p = GetPixel(x, y);
  if (p == nullptr) {
    r = g = b = 0.5;
  } else {
    const GroupLayout& l = LayoutOf(mPixelType);
    // Type 11 alone reads an odd pixel's own luma.
    const int luma = p[mPixelType == pixelUYVY && (x & 1) ? l.y1 : l.y0];
    for (const ModeMatrix& m : kModeMatrices) {
      if (m.mode != mYCbCrMode) continue;
      if (m.matrix)
        Apply(*m.matrix, luma, p[l.cb], p[l.cr], r, g, b);
      else
        ZrPixel::YCbCrToRGB(luma * kBy256, p[l.cb] * kBy256, p[l.cr] * kBy256, a, r, g, b, a);
      break;
    }
  }
  if (mYCbCrMode <= 999) {
    zr::ClampRgb01(r, g, b);
  }
  // Alpha comes back 0.0 on every path; hosts rely on it, keep it.
  a = 0.0;
  return 0;
}

int CDrawYCbCrYUYV::SetColorYCbCr(double y, double cb, double cr, double, bool foreground) {
  (foreground ? mForeWord : mBackWord) =
      GroupWord(LayoutOf(mPixelType), zr::TruncToU32(y * mYRange + mYBase),
                zr::TruncToU32(cb * mCbRange + mCbBase), zr::TruncToU32(cr * mCrRange + mCrBase));
  return 0;
}

int CDrawYCbCrYUYV::SetColorYCbCr8(unsigned char y, unsigned char cb, unsigned char cr, unsigned char,
                                   bool foreground) {
  (foreground ? mForeWord : mBackWord) = GroupWord(LayoutOf(mPixelType), y, cb, cr);
  return 0;
}

int CDrawYCbCrYUYV::SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int,
                                    bool foreground) {
  (foreground ? mForeWord : mBackWord) =
      GroupWord(LayoutOf(mPixelType), (y >> 2) & 0xFF, (cb >> 2) & 0xFF, (cr >> 2) & 0xFF);
  return 0;
}

int CDrawYCbCrYUYV::SetColorRGBA(double r, double g, double b, double a, bool foreground) {
  // A mode that converts nothing leaves the components at 0.0.
  double yv = 0.0, cb = 0.0, cr = 0.0, alpha = a;
  ZrPixel::RGBToYCbCr(r, g, b, a, yv, cb, cr, alpha);
  SetColorYCbCr(yv, cb, cr, a, foreground);
  return 0;
}
