// ZrDraw: the drawing layer of every canvas. Every shape ends in PutPixel of
// the ZrPixel side, or in a memory fill on the four 32-bit RGB layouts; the
// pen is the foreground colour plus the current position. C++ only.
#ifndef ZRDRAWOBJECT_H
#define ZRDRAWOBJECT_H

#include "zrdraw_export.h"
#include "zrpixel.h"
#include "zrtypes.h"

// The built-in font: 256 glyphs of 8 by 10 pixels in code page 437 order,
// glyph c at byte 10 c, byte 0 the bottom row, bit 0x80 the leftmost pixel.
extern ZR_EXPORT const unsigned char gFont8x10[2560];
// Digits 0 to 9 as 8 by 8 bitmaps (top row first), then six solid entries.
// Offered to callers; the library does not read it.
extern ZR_EXPORT const unsigned char fontmap[128];

// The first and last points of the latest Arc, shared by every canvas of the
// process: Arc writes them and Pie draws its spokes from them, so neither is
// re-entrant across canvases or threads.
extern ZR_EXPORT int xStartArc;
extern ZR_EXPORT int yStartArc;
extern ZR_EXPORT int xEndArc;
extern ZR_EXPORT int yEndArc;

// What ExtractBMPData read last, shared by every canvas of the process and
// not re-entrant: the bitmap info header without its size word (the last
// field holds no file data), and the raw pixel bytes as the file holds them.
struct ZrBitmapHeader {
  int32_t width;
  int32_t height;
  uint16_t planes;
  uint16_t bitCount;
  uint32_t compression;
  uint32_t sizeImage;
  int32_t xPelsPerMeter;
  int32_t yPelsPerMeter;
  uint32_t clrUsed;
  uint32_t clrImportant;
};
static_assert(sizeof(ZrBitmapHeader) == 36, "the bitmap header record is 36 bytes");
extern ZR_EXPORT ZrBitmapHeader pImgHdr;
extern ZR_EXPORT unsigned char data[0x100000];
// Exported for hosts that link against them; the library never uses them.
extern ZR_EXPORT unsigned char fp[12];
extern ZR_EXPORT void* mpEdgeBuffer;

// Argument types of the empty operations Filter and Scale: no value of
// theirs has an effect.
enum zrFilterType : int {};
enum zrScaleType : int {};

// Flags of DrawText.
inline constexpr unsigned int ZR_TEXT_CENTER = 0x0001;
inline constexpr unsigned int ZR_TEXT_RIGHT = 0x0002;
inline constexpr unsigned int ZR_TEXT_BOTTOM = 0x0008;
inline constexpr unsigned int ZR_TEXT_CALCRECT = 0x0400;

class ZR_EXPORT ZrDraw : public virtual ZrPixel {
 public:
  // The type is the backend's business (GetDraw writes mPixelType); this
  // layer only sets its own defaults.
  explicit ZrDraw(pixelType type = pixelRGBA32);
  ~ZrDraw() override;

  // Virtual operations, in the order of their slots.
  virtual int SetBrush(unsigned char* pattern, int width, int height);
  virtual int Point(int x, int y, bool foreground);
  virtual int MoveTo(int x, int y);
  virtual int MoveTo(int x, int y, _POINT* previous);
  virtual int LineTo(int x, int y);
  virtual int Line(_POINT& from, _POINT& to);
  virtual int Line(int x1, int y1, int x2, int y2);
  virtual int LineVert(int x, int y1, int y2);
  virtual int LineHoriz(int x1, int y, int x2);
  virtual int Dash(int x1, int y1, int x2, int y2, int on, int off);
  virtual int Circle(int x, int y, int radius);
  virtual int Ellipse(int x, int y, int radiusX, int radiusY);
  virtual int Arc(int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd);
  // The fifth and sixth arguments are y then x, the reverse of Arc.
  virtual int ArcTo(int left, int top, int right, int bottom, int yStart, int xStart, int xEnd, int yEnd);
  virtual int AngleArc(int x, int y, unsigned int radius, float start, float end);
  virtual int AngleArcTo(int x, int y, int radiusX, int radiusY, float start, float end);
  virtual int Bezier(int x0, int y0, int x1, int y1, int x2, int y2, int x3, int y3);
  virtual int PolyBezier(const _POINT* points, unsigned int count);
  virtual int PolyBezierTo(const _POINT* points, unsigned int count);
  virtual int Polyline(const _POINT* points, unsigned int count);
  virtual int PolylineTo(const _POINT* points, unsigned int count);
  virtual int FillRect(const RECT* rect);
  virtual int Rectangle(int left, int top, int right, int bottom);
  virtual int RoundRect(int left, int top, int right, int bottom, int width, int height);
  // The fifth and sixth arguments are y then x, as in ArcTo.
  virtual int Pie(int left, int top, int right, int bottom, int yStart, int xStart, int xEnd, int yEnd);
  virtual int EraseCanvas(bool background);
  virtual int Fill(int x, int y, double tolerance);
  virtual int GradientRect(int left, int top, int right, int bottom, int mode);
  virtual int SymGradientRect(int left, int top, int right, int bottom, int mode);
  virtual int CornerGradientRect(int left, int top, int right, int bottom, int mode);
  virtual int CenterGradientRect(int left, int top, int right, int bottom);
  virtual int RadialGradientFill(int left, int top, int right, int bottom, int x, int y);
  virtual int PatternFill(int left, int top, int right, int bottom, int width, int height,
                          unsigned char* pattern);
  virtual int RoundRectButton(int left, int top, int right, int bottom, int width, int height);
  virtual int CopyRect(RECT* target, const RECT* source, ZrDraw* from);
  virtual int LabelFont(unsigned int font, int scale);
  virtual int LabelFont(const char* name, unsigned int size);
  virtual int LabelGetFontWidth();
  virtual int LabelGetFontHeight();
  virtual int Label(int x, int y, const char* text, bool inverse, bool opaque);
  virtual int Filter(zrFilterType type, int left, int top, int right, int bottom);
  virtual int Scale(zrScaleType type, ZrDraw* target, RECT* targetRect, ZrDraw* source, RECT* sourceRect);
  virtual int EMFOpen(const char* path);
  virtual int EMFGetSize(int& width, int& height);
  virtual int EMFDraw(int left, int top, int right, int bottom, bool stretch);
  virtual int EMFClose();
  virtual int Arrow(int x1, int y1, int x2, int y2, bool head);

  // Not virtual.
  int ZrDrawText(const char* text, int count, RECT* rect, unsigned int flags);
  int DrawText(const char* text, int count, RECT* rect, unsigned int flags);
  int TextOut(int x, int y, const char* text, int count);
  int ExtractBMPData(const char* path);
  int ExtractPNGData(const char* path);
  int UseDefaultFont(bool builtIn);
  int SetFont(char* name);
  int HaveFont();

  int mEmfFile;
  void* mReserved0;
  void* mpMetaHeader;
  void* mpPlaceableHeader;
  int mCurrentX;
  int mCurrentY;
  void* mReserved1;
  void* mReserved2;
  double mColorA[4];
  double mColorB[4];
  double mColorC[4];
  double mColorD[4];
  bool mbTextTransparent;
  const unsigned char* mpLabelFont;
  unsigned int mLabelWidth;
  unsigned int mLabelHeight;
  unsigned int mLabelScale;
  bool mbUseBuiltInFont;
};

#endif

// complete: declarations
