// ZrPixel: the shared state of every canvas (geometry of the caller's
// memory, the two colour slots, transparency, reference count, lock and
// change event) and the default pixel access of the byte-ordered 32-bit and
// 24-bit RGB layouts. C++ only.
#ifndef ZRPIXEL_H
#define ZRPIXEL_H

#include <cstdint>

#include "zrdraw_export.h"
#include "zrplatform.h"
#include "zrtypes.h"

class ZR_EXPORT ZrPixel {
 public:
  // The YCbCr matrix of the colour arithmetic. 0 behaves as 1 and 7 as 6;
  // a value of 1000 or more runs the arithmetic of the value 1000 lower
  // without the final clamp.
  enum cmYCbCr : int {
    cmYCbCr601Studio = 1,
    cmYCbCr601Full = 2,
    cmYCbCr709Studio = 3,
    cmYCbCr709Full = 4,
    cmYCbCr2020Studio = 5,
    cmYCbCr2020Full = 6,
    cmYCbCr2020Constant = 8,
    cmYCbCr601StudioUnclamped = 1001,
    cmYCbCr601FullUnclamped = 1002,
    cmYCbCr709StudioUnclamped = 1003,
    cmYCbCr709FullUnclamped = 1004,
    cmYCbCr2020StudioUnclamped = 1005,
    cmYCbCr2020FullUnclamped = 1006,
    cmYCbCr2020ConstantUnclamped = 1008
  };

  ZrPixel();
  ZrPixel(const ZrPixel&) = delete;
  ZrPixel& operator=(const ZrPixel&) = delete;
  virtual ~ZrPixel();

  // Virtual operations, in the order of their slots.
  virtual int SetCanvas(char* buffer, int height, int width, int pitch);
  virtual int GetPitch();
  virtual int YCbCrToRGB(double y, double cb, double cr, double a, double& r, double& g, double& b,
                         double& alpha);
  virtual int RGBToYCbCr(double r, double g, double b, double a, double& y, double& cb, double& cr,
                         double& alpha);
  virtual int RGBToYCbCr10(double r, double g, double b, double a, double& y, double& cb, double& cr,
                           double& alpha);
  virtual int RGBToHSV(double r, double g, double b, double a, double& h, double& s, double& v,
                       double& alpha);
  virtual int YCbCrToHSV(double y, double cb, double cr, double a, double& h, double& s, double& v,
                         double& alpha);
  virtual void BlendPixel(double& c0, double& c1, double& c2, double n0, double n1, double n2, int percent);
  virtual unsigned char* GetPixel(int x, int y);
  virtual int PutPixel(int x, int y, bool foreground);
  virtual int IsRgbType();
  virtual void SetTransparency(bool on);
  virtual bool GetTransparency();
  virtual void SetAlphaAdditive(bool on);
  virtual bool GetAlphaAdditive();
  virtual int SetPixel(int x, int y, double c0, double c1, double c2, double c3, bool foreground);
  virtual int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a);
  virtual int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a);
  virtual int GetPixelYCbCr8(int x, int y, unsigned char& yOut, unsigned char& cb, unsigned char& cr,
                             unsigned char& a);
  virtual int GetPixelYCbCr10(int x, int y, unsigned int& yOut, unsigned int& cb, unsigned int& cr,
                              unsigned int& a);
  virtual int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a);
  virtual double GetLuma(int x, int y);
  virtual int GetColorYCbCr(double& y, double& cb, double& cr, double& a, bool foreground);
  virtual int SetColorYCbCr(double y, double cb, double cr, double a, bool foreground);
  virtual int SetColorYCbCr10(unsigned int y, unsigned int cb, unsigned int cr, unsigned int a,
                              bool foreground);
  virtual int GetColorRGBA(double& r, double& g, double& b, double& a, bool foreground);
  virtual int SetColorRGBA(double r, double g, double b, double a, bool foreground);
  virtual int SetTransparency(double opacity, bool foreground);
  virtual int PercentX(double fraction);
  virtual int PercentY(double fraction);
  virtual int SetYCbCrMode(cmYCbCr mode);
  virtual int GetYCbCrMode(cmYCbCr& mode);

  // Not virtual.
  int SetChangeEvent();
  unsigned int WaitForChangeEvent(unsigned int timeout);
  int Lock(unsigned int count);
  int TryLock();
  int Unlock();
  int SetColorYCbCr8(unsigned char y, unsigned char cb, unsigned char cr, unsigned char a, bool foreground);

  pixelType mPixelType;
  cmYCbCr mYCbCrMode;
  unsigned int mWidth;
  unsigned int mHeight;
  unsigned int mPitch;
  bool mbBottomUp;
  unsigned int mForeColor;
  double mForeOpacity;
  unsigned int mBackColor;
  double mBackOpacity;
  bool mbTransparency;
  bool mbAlphaAdditive;
  unsigned int mLastChange;
  bool mbLineSmoothing;
  bool mbSpareFlag;
  int64_t mRefCount;
  ZrHandle mChangeEvent;
  ZrCriticalSection mLock;
  char* mpCanvas;
};

#endif
