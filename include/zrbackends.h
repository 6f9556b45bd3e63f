// The canvas classes of the pixel layouts. Each derives virtually from
// ZrDraw and overrides only ZrPixel operations, so every shape of ZrDraw
// works on every layout through PutPixel. C++ only.
#ifndef ZRBACKENDS_H
#define ZRBACKENDS_H

#include <cstdint>

#include "zrdraw_export.h"
#include "zrdrawobject.h"

#define ZR_HIDDEN __attribute__((visibility("hidden")))

// Layouts 1 to 4: one 32-bit word a pixel, bytes R G B A, A R G B, B G R A
// or A B G R. Built only by GetDraw, which writes mPixelType.
class ZR_EXPORT CDrawRGBA32 : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawRGBA32();
  ~CDrawRGBA32() override;

  int GetPitch() override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
};

// Layouts 5 and 6: three bytes a pixel, R G B or B G R. Built only by
// GetDraw, which writes mPixelType.
class ZR_EXPORT CDrawRGB24 : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawRGB24();
  ~CDrawRGB24() override;

  int GetPitch() override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
};

// Layout 20: 10-bit R, G, B in a big-endian 32-bit word. The colour slots
// hold the word already byte-swapped, so ZrPixel's PutPixel stores it as it
// is. Built only by GetDraw.
class ZR_EXPORT CDrawRGB30DPX : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawRGB30DPX();
  ~CDrawRGB30DPX() override;

  int GetPitch() override;
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
  double GetLuma(int x, int y) override;
  int GetColorRGBA(double& r, double& g, double& b, double& a, bool foreground) override;
  int SetColorRGBA(double r, double g, double b, double a, bool foreground) override;
};

// Layouts 21 to 28: a 2 by 2 sensor mosaic of packed 12-bit samples, two
// samples in three bytes; the type picks the phase. Built only by GetDraw.
class ZR_EXPORT CDrawBayer : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawBayer();
  ~CDrawBayer() override;

  int GetPitch() override;
  unsigned char* GetPixel(int x, int y) override;
  int PutPixel(int x, int y, bool foreground) override;
  int SetColorRGBA(double r, double g, double b, double a, bool foreground) override;
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
  double GetLuma(int x, int y) override;

  unsigned char mForeBytes[4];  // R, G, B, A
  unsigned char mBackBytes[4];
};

// Layout 14 (and 15, 16 from the constructor): v210, six 10-bit 4:2:2
// pixels in a 16-byte group, rows padded to 48 pixels.
class ZR_EXPORT CDrawYCbCr10 : public virtual ZrDraw {
 public:
  // Keeps 15 and 16; any other value becomes 14.
  explicit CDrawYCbCr10(pixelType type);
  ~CDrawYCbCr10() override;

  int SetCanvas(char* buffer, int height, int width, int pitch) override;
  int GetPitch() override;
  unsigned char* GetPixel(int x, int y) override;
  int PutPixel(int x, int y, bool foreground) override;
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                     unsigned char& a) override;
  int GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                      unsigned int& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
  double GetLuma(int x, int y) override;
  int SetColorYCbCr(double y, double cb, double cr, double a, bool foreground) override;
  int SetColorRGBA(double r, double g, double b, double a, bool foreground) override;
  int SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int a,
                      bool foreground) override;

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint64_t mForeWord;  // Y in bits 0 to 9, Cb in 10 to 19, Cr in 20 to 29
  uint64_t mBackWord;
  uint64_t mReserved;
};

// Layouts 10 to 13: packed 8-bit 4:2:2, two pixels in a 4-byte group in one
// of four byte orders. The colours are kept as whole group words.
class ZR_EXPORT CDrawYCbCrYUYV : public virtual ZrDraw {
 public:
  // Keeps 10 to 13; any other value becomes 11, with the words of 11.
  explicit CDrawYCbCrYUYV(pixelType type);
  ~CDrawYCbCrYUYV() override;

  int SetCanvas(char* buffer, int height, int width, int pitch) override;
  int GetPitch() override;
  unsigned char* GetPixel(int x, int y) override;
  int PutPixel(int x, int y, bool foreground) override;
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                     unsigned char& a) override;
  int GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                      unsigned int& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
  double GetLuma(int x, int y) override;
  int SetColorYCbCr(double y, double cb, double cr, double a, bool foreground) override;
  int SetColorRGBA(double r, double g, double b, double a, bool foreground) override;
  int SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int a,
                      bool foreground) override;
  // A virtual operation of this class; ZrPixel's of the same name is not.
  virtual int SetColorYCbCr8(unsigned char y, unsigned char cb, unsigned char cr, unsigned char a,
                             bool foreground);

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint32_t mForeWord;  // a whole group, stored little-endian
  uint32_t mBackWord;
  uint64_t mReserved;
};

// The four canvases of separate component words: 16-bit Y Cb Cr, 16-bit
// Y Cb Cr A, and the 8-bit and 16-bit Cb Cr planes.
#define ZR_COMPONENT_CANVAS_OPERATIONS                                                            \
  int SetCanvas(char* buffer, int height, int width, int pitch) override;                         \
  int GetPitch() override;                                                                        \
  unsigned char* GetPixel(int x, int y) override;                                                 \
  int PutPixel(int x, int y, bool foreground) override;                                           \
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;            \
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;      \
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;            \
  double GetLuma(int x, int y) override;                                                          \
  int SetColorYCbCr(double y, double cb, double cr, double a, bool foreground) override;          \
  int SetColorRGBA(double r, double g, double b, double a, bool foreground) override;

// 4:4:4, three 16-bit words a pixel. No GetDraw type; the constructor
// ignores its argument and mPixelType stays 1.
class ZR_EXPORT CDrawYCbCrYCbCr16 : public virtual ZrDraw {
 public:
  explicit CDrawYCbCrYCbCr16(pixelType type);
  ~CDrawYCbCrYCbCr16() override;
  ZR_COMPONENT_CANVAS_OPERATIONS

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint32_t mForeY, mForeCr, mForeCb;
  uint32_t mBackY, mBackCr, mBackCb;
};

// 4:4:4 with alpha, four 16-bit words a pixel. No GetDraw type; the
// constructor ignores its argument and mPixelType stays 1.
class ZR_EXPORT CDrawYCbCrYCbCrA16 : public virtual ZrDraw {
 public:
  explicit CDrawYCbCrYCbCrA16(pixelType type);
  ~CDrawYCbCrYCbCrA16() override;
  ZR_COMPONENT_CANVAS_OPERATIONS

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint32_t mForeY, mForeCr, mForeCb, mForeA;
  uint32_t mBackY, mBackCr, mBackCb, mBackA;
};

// Layout 10000: a chroma plane of 8-bit Cb Cr pairs.
class ZR_EXPORT CDrawUV8 : public virtual ZrDraw {
 public:
  explicit CDrawUV8(pixelType type);
  ~CDrawUV8() override;
  ZR_COMPONENT_CANVAS_OPERATIONS

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint32_t mForeY, mForeCr, mForeCb;
  uint32_t mBackY, mBackCr, mBackCb;
};

// Layout 10001: a chroma plane of 16-bit Cb Cr pairs.
class ZR_EXPORT CDrawUV16 : public virtual ZrDraw {
 public:
  explicit CDrawUV16(pixelType type);
  ~CDrawUV16() override;
  ZR_COMPONENT_CANVAS_OPERATIONS

  double mYBase, mYRange, mCbBase, mCbRange, mCrBase, mCrRange;
  uint32_t mForeY, mForeCr, mForeCb;
  uint32_t mBackY, mBackCr, mBackCb;
};

#undef ZR_COMPONENT_CANVAS_OPERATIONS

// The three canvases of 16-bit RGB words, drawn with the words of their own
// channel members (which no setter changes). Built only by GetDraw.
#define ZR_DEEP_RGB_OPERATIONS                                                                \
  int GetPitch() override;                                                                    \
  unsigned char* GetPixel(int x, int y) override;                                             \
  int PutPixel(int x, int y, bool foreground) override;                                       \
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override;        \
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;  \
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;        \
  double GetLuma(int x, int y) override;

// Layout 31: R G B, 16-bit words.
class ZR_EXPORT CDrawRGB48 : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawRGB48();
  ~CDrawRGB48() override;
  ZR_DEEP_RGB_OPERATIONS

  uint32_t mForeChannel[3];
  uint32_t mBackChannel[3];
};

// Layout 37: three 16-bit words read and written as plain integers, exactly
// as CDrawRGB48 does; no half-float conversion.
class ZR_EXPORT CDrawRGBHalf48 : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawRGBHalf48();
  ~CDrawRGBHalf48() override;
  ZR_DEEP_RGB_OPERATIONS

  uint32_t mForeChannel[3];
  uint32_t mBackChannel[3];
};

// Layouts 32 and 38: A R G B, 16-bit words.
class ZR_EXPORT CDrawARGB64 : public virtual ZrDraw {
 public:
  ZR_HIDDEN CDrawARGB64();
  ~CDrawARGB64() override;
  ZR_DEEP_RGB_OPERATIONS

  uint32_t mForeChannel[4];
  uint32_t mBackChannel[4];
};

#undef ZR_DEEP_RGB_OPERATIONS
#undef ZR_HIDDEN

#endif
