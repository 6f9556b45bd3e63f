// CDrawBayer: a 2 by 2 sensor mosaic of packed 12-bit samples, two samples
// A (even column) and B (odd column) in three bytes: A's top 8 bits in byte
// 0, A's low nibble and B's top nibble in byte 1, B's low byte in byte 2.
// Only the top 8 bits of a sample are drawn and read. The type picks the
// phase; 25 to 28 act as 21 to 24, and unknown types as 21.
#include <cstdint>

#include "canvas/convert.h"
#include "canvas/hsv.h"
#include "zrbackends.h"

namespace {

enum Channel { R, G, B };

// By phase: the channels of the even and odd columns of an even row, then
// of an odd row.
constexpr Channel kMosaic[4][2][2] = {
    {{B, G}, {G, R}},  // 21, 25 and any other type
    {{R, G}, {G, B}},  // 22, 26
    {{G, B}, {R, G}},  // 23, 27
    {{G, R}, {B, G}},  // 24, 28
};

int PhaseOf(int type) {
  if (type == pixelBayerRGGB || type == pixelBayerRGGB2) return 1;
  if (type == pixelBayerGBRG || type == pixelBayerGBRG2) return 2;
  if (type == pixelBayerGRBG || type == pixelBayerGRBG2) return 3;
  return 0;
}

// The top 8 bits of the odd sample of the pair whose byte 1 is at p.
unsigned int OddSample(const unsigned char* p) { return (p[0] << 4 & 0xFF) | p[1] >> 4; }

}  // namespace

CDrawBayer::CDrawBayer() : mForeBytes{255, 255, 255, 255}, mBackBytes{0, 0, 0, 0} {}

CDrawBayer::~CDrawBayer() = default;

int CDrawBayer::GetPitch() { return static_cast<int>(3 * mWidth / 2); }

// Byte 0 of the pair for an even x, byte 1 for an odd one.
unsigned char* CDrawBayer::GetPixel(int x, int y) {
  const uint32_t row = static_cast<uint32_t>(y) * mPitch;
  return reinterpret_cast<unsigned char*>(mpCanvas) + (int64_t{row} + int64_t{3} * x / 2);
}

int CDrawBayer::SetColorRGBA(double r, double g, double b, double a, bool foreground) {
  unsigned char* bytes = foreground ? mForeBytes : mBackBytes;
  bytes[0] = zr::TruncToByte(r * 255.0);
  bytes[1] = zr::TruncToByte(g * 255.0);
  bytes[2] = zr::TruncToByte(b * 255.0);
  bytes[3] = zr::TruncToByte(a * 255.0);
  return 0;
}

// No bound, null, transparency or additive handling.
int CDrawBayer::PutPixel(int x, int y, bool foreground) {
  unsigned char* p = GetPixel(x, y);
  const unsigned char* bytes = foreground ? mForeBytes : mBackBytes;
  const Channel* row = kMosaic[PhaseOf(mPixelType)][y & 1];
  const unsigned char first = bytes[row[0]];
  const unsigned char second = bytes[row[1]];
  if ((x & 1) == 0) {
    p[0] = first;
    return 0;
  }
  // The odd sample takes its top nibble from its own channel and the next
  // from the low nibble of the even column's, and A's low nibble is
  // cleared. Hosts rely on this mixed store; keep it.
  p[0] = second >> 4;
  p[1] = static_cast<unsigned char>(first << 4);
  return 0;
}

// One colour for the whole 2 by 2 block, with the first row's green.
int CDrawBayer::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) {
  const unsigned char* p = GetPixel(x & ~1, y & ~1);
  const unsigned char* q = p + mPitch;
  const double s0 = p[0] / 255.0;
  const double s1 = OddSample(p + 1) / 255.0;
  const double s2 = q[0] / 255.0;
  const double s3 = OddSample(q + 1) / 255.0;
  switch (PhaseOf(mPixelType)) {
    case 1:
      r = s0, g = s1, b = s3;
      break;
    case 2:
      r = s2, g = s0, b = s1;
      break;
    case 3:
      r = s1, g = s0, b = s2;
      break;
    default:
      r = s3, g = s1, b = s0;
      break;
  }
  a = 1.0;
  return 0;
}

int CDrawBayer::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  CDrawBayer::GetPixelRGBA(x, y, r, g, b, a);
  RGBToYCbCr(r, g, b, a, yOut, cb, cr, a);
  return 0;
}

int CDrawBayer::GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) {
  double r = 0.0, g = 0.0, b = 0.0;
  CDrawBayer::GetPixelRGBA(x, y, r, g, b, a);
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  return 0;
}

// The mean of three raw bytes of the packed rows, not of samples (the byte
// after p holds parts of two). A cheap brightness figure that hosts rely
// on in this form; keep it.
double CDrawBayer::GetLuma(int x, int y) {
  const unsigned char* p = GetPixel(x & ~1, y);
  const unsigned char* q = p + mPitch;
  const int phase = PhaseOf(mPixelType);
  const unsigned char third = phase == 2 || phase == 3 ? q[0] : q[1];
  return (p[0] / 255.0 + p[1] / 255.0 + third / 255.0) / 3.0;
}
