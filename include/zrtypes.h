/* Plain records and codes shared by the canvas interface: points,
   rectangles, the bitmap description record and the pixel layout numbers.
   Valid C and C++. */
#ifndef ZRTYPES_H
#define ZRTYPES_H

#include <stddef.h>
#include <stdint.h>

/* A point: two signed 32-bit coordinates. */
typedef struct _POINT {
  int32_t x;
  int32_t y;
} _POINT;
typedef _POINT POINT;

/* A rectangle: left, top, right, bottom, signed 32-bit each. */
typedef struct RECT {
  int32_t left;
  int32_t top;
  int32_t right;
  int32_t bottom;
} RECT;

/* The standard bitmap record: a 40-byte info header followed by the
   colour table. For compression code 3 the first entry of the colour
   table holds the red channel mask. */
typedef struct tagBITMAPINFOHEADER {
  uint32_t biSize;
  int32_t biWidth;
  int32_t biHeight;
  uint16_t biPlanes;
  uint16_t biBitCount;
  uint32_t biCompression;
  uint32_t biSizeImage;
  int32_t biXPelsPerMeter;
  int32_t biYPelsPerMeter;
  uint32_t biClrUsed;
  uint32_t biClrImportant;
} BITMAPINFOHEADER;

typedef struct tagRGBQUAD {
  uint8_t rgbBlue;
  uint8_t rgbGreen;
  uint8_t rgbRed;
  uint8_t rgbReserved;
} RGBQUAD;

typedef struct tagBITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
} BITMAPINFO;
#ifndef __cplusplus
typedef struct tagBITMAPINFO tagBITMAPINFO;
#endif

#ifdef __cplusplus
#define ZR_TYPES_STATIC_ASSERT(cond, msg) static_assert(cond, msg)
#else
#define ZR_TYPES_STATIC_ASSERT(cond, msg) _Static_assert(cond, msg)
#endif
ZR_TYPES_STATIC_ASSERT(sizeof(_POINT) == 8, "_POINT is two 32-bit integers");
ZR_TYPES_STATIC_ASSERT(sizeof(RECT) == 16, "RECT is four 32-bit integers");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFOHEADER, biWidth) == 4, "biWidth at 4");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFOHEADER, biHeight) == 8, "biHeight at 8");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFOHEADER, biBitCount) == 14, "biBitCount at 14");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFOHEADER, biCompression) == 16, "biCompression at 16");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFOHEADER, biSizeImage) == 20, "biSizeImage at 20");
ZR_TYPES_STATIC_ASSERT(sizeof(BITMAPINFOHEADER) == 40, "the info header is 40 bytes");
ZR_TYPES_STATIC_ASSERT(offsetof(BITMAPINFO, bmiColors) == 40, "bmiColors at 40");
#undef ZR_TYPES_STATIC_ASSERT

/* The memory layout of a canvas, and the format code of an effect. Values
   not named here (0, 7 to 9, 15 to 19, 29, 30, 33 to 36) are reserved or
   effect codes: GetDraw builds nothing for them. */
#ifdef __cplusplus
enum pixelType : int {
#else
enum pixelType {
#endif
  pixelNone = -1,
  pixelRGBA32 = 1,
  pixelARGB32 = 2,
  pixelBGRA32 = 3,
  pixelABGR32 = 4,
  pixelRGB24 = 5,
  pixelBGR24 = 6,
  pixelYUYV = 10,
  pixelUYVY = 11,
  pixelYVYU = 12,
  pixelVYUY = 13,
  pixelV210 = 14,
  pixelRGB30DPX = 20,
  pixelBayerBGGR = 21,
  pixelBayerRGGB = 22,
  pixelBayerGBRG = 23,
  pixelBayerGRBG = 24,
  pixelBayerBGGR2 = 25,
  pixelBayerRGGB2 = 26,
  pixelBayerGBRG2 = 27,
  pixelBayerGRBG2 = 28,
  pixelRGB48 = 31,
  pixelARGB64 = 32,
  pixelRGBHalf48 = 37,
  pixelARGBHalf64 = 38,
  pixelUV8 = 10000,
  pixelUV16 = 10001
};
#ifndef __cplusplus
typedef enum pixelType pixelType;
#endif

#endif
