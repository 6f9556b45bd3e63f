// The canvases of separate component words: CDrawYCbCrYCbCr16 (Y Cb Cr),
// CDrawYCbCrYCbCrA16 (Y Cb Cr A), both 16-bit 4:4:4, and the chroma planes
// CDrawUV8 and CDrawUV16 (Cb Cr, 8-bit and 16-bit), whose luma is the
// constant 0.5. The colours are kept as component words, stored as their
// low bits with no bound, null, transparency or additive handling.
#include <cstdint>
#include <cstring>

#include "backends/raw_geometry.h"
#include "canvas/convert.h"
#include "zrbackends.h"

namespace {

struct Layout {
  unsigned int stride;       // bytes a pixel as read, and a row's bytes a pixel
  unsigned int writeStride;  // bytes from one written pixel to the next
  bool chroma;               // Cb Cr only; luma is the constant 0.5
  bool narrow;               // elements are written as bytes
};

// The Y Cb Cr A canvas writes at 6 bytes a pixel and reads at 8, so a
// pixel reads back where it was written only at x = 0; hosts rely on this
// row, keep it.
template <class Canvas>
constexpr Layout kLayout{};
template <>
constexpr Layout kLayout<CDrawYCbCrYCbCr16>{6, 6, false, false};
template <>
constexpr Layout kLayout<CDrawYCbCrYCbCrA16>{8, 6, false, false};
template <>
constexpr Layout kLayout<CDrawUV8>{2, 2, true, true};
template <>
constexpr Layout kLayout<CDrawUV16>{4, 4, true, false};

constexpr double kPerWord = 1.52587890625e-5;  // 1 / 65536

// The component words of one colour slot; `a` is null where there is none.
struct Slot {
  uint32_t *y, *cb, *cr, *a;
};

template <class Canvas>
Slot SlotOf(Canvas& c, bool foreground) {
  Slot s{foreground ? &c.mForeY : &c.mBackY, foreground ? &c.mForeCb : &c.mBackCb,
         foreground ? &c.mForeCr : &c.mBackCr, nullptr};
  if constexpr (requires { c.mForeA; }) s.a = foreground ? &c.mForeA : &c.mBackA;
  return s;
}

uint16_t Word(const unsigned char* p, int k) {
  uint16_t w;
  std::memcpy(&w, p + 2 * k, 2);
  return w;
}

unsigned char* Cell(ZrPixel& c, int x, int y, unsigned int stride) {
  const uint32_t row = static_cast<uint32_t>(y) * c.mPitch;
  return reinterpret_cast<unsigned char*>(c.mpCanvas) + (int64_t{row} + int64_t{stride} * x);
}

template <class Canvas>
int Put(Canvas& c, int x, int y, bool foreground) {
  constexpr Layout kL = kLayout<Canvas>;
  const Slot s = SlotOf(c, foreground);
  const uint32_t* elements[] = {s.y, s.cb, s.cr, s.a};
  unsigned char* p = Cell(c, x, y, kL.writeStride);
  for (int k = kL.chroma ? 1 : 0, i = 0; k < 4 && elements[k]; ++k, ++i) {
    if (kL.narrow) {
      p[i] = static_cast<unsigned char>(*elements[k]);
    } else {
      const uint16_t w = static_cast<uint16_t>(*elements[k]);
      std::memcpy(p + 2 * i, &w, 2);
    }
  }
  return 0;
}

// Reads are of 16-bit words on every canvas. On the 8-bit plane word 0 is
// the pixel's two bytes and word 1 the next pixel's: hosts rely on these
// values, keep them.
template <class Canvas>
int ReadYCbCr(Canvas& c, int x, int y, double& yOut, double& cb, double& cr, double& a) {
  const unsigned char* p = Cell(c, x, y, kLayout<Canvas>.stride);
  if (kLayout<Canvas>.chroma) {
    yOut = 0.5;
    cb = Word(p, 0) * kPerWord;
    cr = Word(p, 1) * kPerWord;
    return 0;
  }
  yOut = Word(p, 0) * kPerWord;
  cb = Word(p, 1) * kPerWord;
  cr = Word(p, 2) * kPerWord;
  if constexpr (requires { c.mForeA; }) a = Word(p, 3) * kPerWord;
  return 0;
}

// The caller's alpha is left as it was.
template <class Canvas>
int ReadRgba(Canvas& c, int x, int y, double& r, double& g, double& b) {
  double luma = 0.0, cb = 0.0, cr = 0.0, a = 0.0, alpha = 0.0;
  c.GetPixelYCbCr(x, y, luma, cb, cr, a);
  c.ZrPixel::YCbCrToRGB(luma, cb, cr, a, r, g, b, alpha);
  return 0;
}

template <class Canvas>
double Luma(Canvas& c, int x, int y) {
  if (kLayout<Canvas>.chroma) return 0.5;
  return Word(Cell(c, x, y, kLayout<Canvas>.stride), 0) * kPerWord;
}

// Every component × 65536 with no clamp, so 1.0 stores as 0, also on the
// 8-bit plane, whose byte keeps the low 8 bits of that product. Alpha
// follows Cr and the argument is ignored; hosts rely on both, keep them.
template <class Canvas>
int SetYCbCr(Canvas& c, double y, double cb, double cr, bool foreground) {
  const Slot s = SlotOf(c, foreground);
  *s.y = zr::TruncToU32(y * 65536.0);
  *s.cb = zr::TruncToU32(cb * 65536.0);
  *s.cr = zr::TruncToU32(cr * 65536.0);
  if (s.a) *s.a = *s.cr;
  return 0;
}

template <class Canvas>
int SetRgba(Canvas& c, double r, double g, double b, double a, bool foreground) {
  double y = 0.0, cb = 0.0, cr = 0.0, alpha = 0.0;
  c.ZrPixel::RGBToYCbCr(r, g, b, a, y, cb, cr, alpha);
  c.SetColorYCbCr(y, cb, cr, a, foreground);
  return 0;
}

}  // namespace

// The 4:4:4 canvases have no pixel type of their own: mPixelType stays 1,
// so SetPixel sends its components to SetColorRGBA.
CDrawYCbCrYCbCr16::CDrawYCbCrYCbCr16(pixelType)
    : mYBase(4096.0),
      mYRange(60160.0),
      mCbBase(4864.0),
      mCbRange(56064.0),
      mCrBase(4608.0),
      mCrRange(56064.0),
      mForeY(60160),
      mForeCr(32768),
      mForeCb(32768),
      mBackY(4096),
      mBackCr(32768),
      mBackCb(32768) {
  mYCbCrMode = cmYCbCr709Studio;
}

// The foreground alpha is over 16 bits: 2294 is stored until a setter runs.
CDrawYCbCrYCbCrA16::CDrawYCbCrYCbCrA16(pixelType)
    : mYBase(4096.0),
      mYRange(62275.0),
      mCbBase(4864.0),
      mCbRange(56064.0),
      mCrBase(4608.0),
      mCrRange(56064.0),
      mForeY(60160),
      mForeCr(32768),
      mForeCb(32768),
      mForeA(67830),
      mBackY(4096),
      mBackCr(32768),
      mBackCb(32768),
      mBackA(0) {
  mYCbCrMode = cmYCbCr709Studio;
}

// The defaults are on the 8-bit scale, unlike what the setters store.
CDrawUV8::CDrawUV8(pixelType type)
    : mYBase(16.0),
      mYRange(235.0),
      mCbBase(19.0),
      mCbRange(219.0),
      mCrBase(18.0),
      mCrRange(219.0),
      mForeY(235),
      mForeCr(128),
      mForeCb(128),
      mBackY(16),
      mBackCr(128),
      mBackCb(128) {
  mPixelType = type;
  mYCbCrMode = cmYCbCr709Studio;
}

CDrawUV16::CDrawUV16(pixelType type)
    : mYBase(4096.0),
      mYRange(60160.0),
      mCbBase(4736.0),
      mCbRange(56064.0),
      mCrBase(4736.0),
      mCrRange(56064.0),
      mForeY(60160),
      mForeCr(32768),
      mForeCb(32768),
      mBackY(4096),
      mBackCr(32768),
      mBackCb(32768) {
  mPixelType = type;
  mYCbCrMode = cmYCbCr709Studio;
}

#define ZR_COMPONENT_CANVAS(Canvas)                                                                   \
  Canvas::~Canvas() = default;                                                                        \
  int Canvas::SetCanvas(char* buffer, int height, int width, int pitch) {                             \
    return zr::backends::SetRawCanvas(*this, buffer, height, width, pitch, kLayout<Canvas>.stride);   \
  }                                                                                                   \
  /* Only the pitch-0 value that SetCanvas corrects: less than a row. */                              \
  int Canvas::GetPitch() { return static_cast<int>(2 * mWidth); }                                     \
  unsigned char* Canvas::GetPixel(int x, int y) { return Cell(*this, x, y, kLayout<Canvas>.stride); } \
  int Canvas::PutPixel(int x, int y, bool foreground) { return Put(*this, x, y, foreground); }        \
  int Canvas::GetPixelRGBA(int x, int y, double& r, double& g, double& b, double&) {                  \
    return ReadRgba(*this, x, y, r, g, b);                                                            \
  }                                                                                                   \
  int Canvas::GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) {          \
    return ReadYCbCr(*this, x, y, yOut, cb, cr, a);                                                   \
  }                                                                                                   \
  /* Empty on these canvases: writes nothing. */                                                      \
  int Canvas::GetPixelHSV(int, int, double&, double&, double&, double&) { return -1; }                \
  double Canvas::GetLuma(int x, int y) { return Luma(*this, x, y); }                                  \
  int Canvas::SetColorYCbCr(double y, double cb, double cr, double, bool foreground) {                \
    return SetYCbCr(*this, y, cb, cr, foreground);                                                    \
  }                                                                                                   \
  int Canvas::SetColorRGBA(double r, double g, double b, double a, bool foreground) {                 \
    return SetRgba(*this, r, g, b, a, foreground);                                                    \
  }

ZR_COMPONENT_CANVAS(CDrawYCbCrYCbCr16)
ZR_COMPONENT_CANVAS(CDrawYCbCrYCbCrA16)
ZR_COMPONENT_CANVAS(CDrawUV8)
ZR_COMPONENT_CANVAS(CDrawUV16)

#undef ZR_COMPONENT_CANVAS
