// CDrawYCbCr10: v210, six 10-bit 4:2:2 pixels in a group of four
// little-endian 32-bit words (bits 30 and 31 unused), rows padded to 48
// pixels. A pixel's fields lie across the words, so access goes by x mod 6.
#include <cstdint>

#include "backends/group_words.h"
#include "zrbackends.h"

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "group words are stored in memory order");

namespace {

using zr::backends::LoadWord;
using zr::backends::StoreWord;

// A 10-bit field of a group: its word and its lowest bit.
struct Field {
  int word, shift;
};

constexpr Field kCb0{0, 0}, kY0{0, 10}, kCr0{0, 20};
constexpr Field kY1{1, 0}, kCb1{1, 10}, kY2{1, 20};
constexpr Field kCr1{2, 0}, kY3{2, 10}, kCb2{2, 20};
constexpr Field kY4{3, 0}, kCr2{3, 10}, kY5{3, 20};

// By x mod 6: the fields a write sets, and the luma that a read takes.
struct PixelFields {
  Field y, cb, cr, yRead;
};

// The sixth pixel reads the luma of the third; hosts rely on it, keep it.
constexpr PixelFields kPixels[6] = {
    {kY0, kCb0, kCr0, kY0}, {kY1, kCb0, kCr0, kY1}, {kY2, kCb1, kCr1, kY2},
    {kY3, kCb1, kCr1, kY3}, {kY4, kCb2, kCr2, kY4}, {kY5, kCb2, kCr2, kY2},
};

// The fields of pixel x of a group read by a case on the signed x mod n:
// a negative x matches no case and reads nothing.
const PixelFields* FieldsOf(int x, int n) {
  const int k = x % n;
  return k < 0 ? nullptr : &kPixels[k];
}

uint32_t Get(const unsigned char* group, Field f) { return LoadWord(group + 4 * f.word) >> f.shift & 0x3FF; }

void Set(unsigned char* group, Field f, uint64_t value) {
  const uint32_t mask = 0x3FFu << f.shift;
  const uint32_t old = LoadWord(group + 4 * f.word);
  StoreWord(group + 4 * f.word, (old & ~mask) | (static_cast<uint32_t>(value & 0x3FF) << f.shift));
}

// The group of (x, y): the row offset is an unsigned 32-bit product.
unsigned char* GroupAt(char* canvas, uint32_t pitch, int x, int y) {
  const uint32_t row = static_cast<uint32_t>(y) * pitch;
  return reinterpret_cast<unsigned char*>(canvas) + (int64_t{row} + int64_t{16} * (x / 6));
}

// The row: the width rounded up to 48 pixels, 128 bytes for each 48.
uint32_t RowBytes(uint32_t width) { return (width + 47) / 48 * 48 * 8 / 3; }

// Truncates toward zero into an unsigned 64-bit value as x86-64 code does:
// values of 2^63 and more go through the upper half, and what is out of range
// (NaN included) gives the "integer indefinite" 2^63, or 0 from the upper half.
uint64_t TruncToU64(double v) {
  constexpr double kTwo63 = 9223372036854775808.0;
  constexpr uint64_t kIndefinite = uint64_t{1} << 63;
  if (v >= kTwo63) {
    const double upper = v - kTwo63;
    return upper < kTwo63 ? static_cast<uint64_t>(static_cast<int64_t>(upper)) ^ kIndefinite : 0;
  }
  if (!(v >= -kTwo63)) return kIndefinite;
  return static_cast<uint64_t>(static_cast<int64_t>(v));
}

constexpr double kBy1024 = 0.0009765625;

}  // namespace

CDrawYCbCr10::CDrawYCbCr10(pixelType type)
    : mYBase(64.0),
      mYRange(940.0),
      mCbBase(74.0),
      mCbRange(876.0),
      mCrBase(74.0),
      mCrRange(876.0),
      // Laid out in 12-bit steps, not in the 10-bit fields that PutPixel
      // reads: they draw Y 502, Cb 688, Cr 867 and Y 502, Cb 256, Cr 864
      // until a colour is set. Hosts get these; keep them.
      mForeWord(0x3AC1F63AC1F6),
      mBackWord(0x0401F60401F6),
      mReserved(0) {
  mPixelType = type == 15 || type == 16 ? type : pixelV210;
}

CDrawYCbCr10::~CDrawYCbCr10() = default;

int CDrawYCbCr10::SetCanvas(char* buffer, int height, int width, int pitch) {
  ZrPixel::SetCanvas(buffer, height, width, pitch);
  mbBottomUp = false;
  // The row is compared with the pitch argument as unsigned, not with the
  // pitch just stored, so a negative pitch is never raised.
  const uint32_t row = RowBytes(mWidth);
  if (row > static_cast<uint32_t>(pitch)) mPitch = row;
  // Replaces any mode set before, 601 full and 709 full included.
  mYCbCrMode = width >= 721 ? cmYCbCr709Studio : cmYCbCr601Studio;
  return 0;
}

int CDrawYCbCr10::GetPitch() { return static_cast<int>(RowBytes(mWidth)); }

unsigned char* CDrawYCbCr10::GetPixel(int x, int y) {
  return mpCanvas == nullptr ? nullptr : GroupAt(mpCanvas, mPitch, x, y);
}

int CDrawYCbCr10::PutPixel(int x, int y, bool foreground) {
  if (x < 0 || y < 0) return -1;
  if (mpCanvas == nullptr) {
    zr::backends::FaultOnNullCanvas();
    return 0;
  }
  const uint64_t word = foreground ? mForeWord : mBackWord;
  unsigned char* group = GroupAt(mpCanvas, mPitch, x, y);
  const PixelFields& f = kPixels[x % 6];
  Set(group, f.y, word);
  Set(group, f.cb, word >> 10);
  Set(group, f.cr, word >> 20);
  return 0;
}

int CDrawYCbCr10::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {
  const unsigned char* group = GetPixel(x, y);
  if (group == nullptr) return 0;
  a = 1.0;
  if (const PixelFields* f = FieldsOf(x, 6)) {
    yOut = Get(group, f->yRead) * kBy1024;
    cb = Get(group, f->cb) * kBy1024;
    cr = Get(group, f->cr) * kBy1024;
  }
  return 0;
}

// The top 8 bits of each field, except that the first pixel's Cr is the low
// 8 bits of Cr0; alpha is 1. Hosts rely on both; keep them.
int CDrawYCbCr10::GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                                 unsigned char& a) {
  const unsigned char* group = GetPixel(x, y);
  if (group == nullptr) return 0;
  a = 1;
  if (const PixelFields* f = FieldsOf(x, 6)) {
    yOut = static_cast<unsigned char>(Get(group, f->yRead) >> 2);
    cb = static_cast<unsigned char>(Get(group, f->cb) >> 2);
    cr = static_cast<unsigned char>(f == &kPixels[0] ? LoadWord(group) >> 20 : Get(group, f->cr) >> 2);
  }
  return 0;
}

int CDrawYCbCr10::GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                                  unsigned int& a) {
  const unsigned char* group = GetPixel(x, y);
  if (group == nullptr) return 0;
  a = 1;
  if (const PixelFields* f = FieldsOf(x, 6)) {
    yOut = Get(group, f->yRead);
    cb = Get(group, f->cb);
    cr = Get(group, f->cr);
  }
  return 0;
}

// Alpha is left as the caller had it.
int CDrawYCbCr10::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double&) {
  double yv = 0.0, cb = 0.0, cr = 0.0, alpha = 0.0;
  GetPixelYCbCr(x, y, yv, cb, cr, alpha);
  ZrPixel::YCbCrToRGB(yv, cb, cr, alpha, r, g, b, alpha);
  return 0;
}

int CDrawYCbCr10::GetPixelHSV(int, int, double&, double&, double&, double&) { return -1; }

// The luma of pixel x mod 3, from the first half of the group only: pixels 3
// to 5 read pixels 0 to 2. Hosts rely on it; keep it.
double CDrawYCbCr10::GetLuma(int x, int y) {
  const unsigned char* group = GetPixel(x, y);
  if (group == nullptr) {
    zr::backends::FaultOnNullCanvas();
    return 0.0;
  }
  const PixelFields* f = FieldsOf(x, 3);
  return f ? Get(group, f->y) * kBy1024 : 0.0;
}

// The literal ranges and bases, not the members.
int CDrawYCbCr10::SetColorYCbCr(double y, double cb, double cr, double, bool foreground) {
  (foreground ? mForeWord : mBackWord) = TruncToU64(y * 940.0 + 64.0) + TruncToU64(cb * 876.0 + 74.0) * 1024 +
                                         TruncToU64(cr * 876.0 + 74.0) * 1048576;
  return 0;
}

// 32-bit arithmetic and no masking: a value past 10 bits runs into the next
// field.
int CDrawYCbCr10::SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int,
                                  bool foreground) {
  (foreground ? mForeWord : mBackWord) = y + cb * 1024u + cr * 1048576u;
  return 0;
}

int CDrawYCbCr10::SetColorRGBA(double r, double g, double b, double a, bool foreground) {
  // A mode that converts nothing leaves the components at 0.0.
  double yv = 0.0, cb = 0.0, cr = 0.0, alpha = a;
  ZrPixel::RGBToYCbCr(r, g, b, a, yv, cb, cr, alpha);
  SetColorYCbCr(yv, cb, cr, a, foreground);
  return 0;
}
