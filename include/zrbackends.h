// The canvas classes of the pixel layouts. Each derives virtually from
// ZrDraw and overrides only ZrPixel operations. C++ only.
#ifndef ZRBACKENDS_H
#define ZRBACKENDS_H

#include "zrdraw_export.h"
#include "zrdrawobject.h"

// Layouts 1 to 4: one 32-bit word a pixel, bytes R G B A, A R G B, B G R A
// or A B G R. Built only by GetDraw, which writes mPixelType.
class ZR_EXPORT CDrawRGBA32 : public virtual ZrDraw {
 public:
  __attribute__((visibility("hidden"))) CDrawRGBA32();
  ~CDrawRGBA32() override;

  int GetPitch() override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
};

// Layouts 5 and 6: three bytes a pixel, R G B or B G R. Built only by
// GetDraw, which writes mPixelType.
class ZR_EXPORT CDrawRGB24 : public virtual ZrDraw {
 public:
  __attribute__((visibility("hidden"))) CDrawRGB24();
  ~CDrawRGB24() override;

  int GetPitch() override;
  int GetPixelYCbCr(int x, int y, double& yOut, double& cb, double& cr, double& a) override;
  int GetPixelHSV(int x, int y, double& h, double& s, double& v, double& a) override;
};

#endif
