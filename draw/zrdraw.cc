// ZrDraw: construction, the current position and the single point.
#include "zrdrawobject.h"

ZrDraw::ZrDraw(pixelType)
    : mEmfFile(0),
      mReserved0(nullptr),
      mpMetaHeader(nullptr),
      mpPlaceableHeader(nullptr),
      mCurrentX(0),
      mCurrentY(0),
      mReserved1(nullptr),
      mReserved2(nullptr),
      mColorA{1.0, 1.0, 1.0, 1.0},
      mColorB{0.6, 0.6, 0.6, 0.6},
      mColorC{1.0, 1.0, 1.0, 1.0},
      mColorD{0.6, 0.6, 0.6, 0.6},
      mbTextTransparent(true),
      mpLabelFont(gFont8x10),
      mLabelWidth(8),
      mLabelHeight(10),
      mLabelScale(1),
      mbUseBuiltInFont(false) {
  // Two flags of the ZrPixel side that its own constructor leaves alone.
  mbLineSmoothing = false;
  mbSpareFlag = false;
}

// A metafile left open stays open: the descriptor is the caller's to close.
ZrDraw::~ZrDraw() = default;

int ZrDraw::Point(int x, int y, bool foreground) {
  // The position moves even when PutPixel refuses the pixel.
  mCurrentX = x;
  mCurrentY = y;
  return PutPixel(x, y, foreground);
}

int ZrDraw::MoveTo(int x, int y) {
  mCurrentX = x;
  mCurrentY = y;
  return 0;
}

int ZrDraw::MoveTo(int x, int y, _POINT* previous) {
  if (previous) {
    previous->x = mCurrentX;
    previous->y = mCurrentY;
  }
  mCurrentX = x;
  mCurrentY = y;
  return 0;
}
