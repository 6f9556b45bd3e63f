// The canvas factory and the reference count.
#include "platform/zrutil.h"
#include "zrbackends.h"
#include "zrfactory.h"

namespace {

// The classes GetDraw builds with their default constructor: the requested
// type, and the 601 studio matrix.
template <class Backend>
ZrDraw* Make(unsigned int type) {
  ZrDraw* canvas = new Backend();
  canvas->mPixelType = static_cast<pixelType>(type);
  canvas->mYCbCrMode = ZrPixel::cmYCbCr601Studio;
  return canvas;
}

// The classes whose own constructor takes the type and sets the matrix.
template <class Backend>
ZrDraw* MakeTyped(unsigned int type) {
  return new Backend(static_cast<pixelType>(type));
}

// The pixel types that have a class. Every other value, reserved or an
// effect code, takes the re-pointing road.
struct CanvasClass {
  unsigned int type;
  ZrDraw* (*make)(unsigned int type);
};
constexpr CanvasClass kCanvasClasses[] = {
    {pixelRGBA32, Make<CDrawRGBA32>},       {pixelARGB32, Make<CDrawRGBA32>},
    {pixelBGRA32, Make<CDrawRGBA32>},       {pixelABGR32, Make<CDrawRGBA32>},
    {pixelRGB24, Make<CDrawRGB24>},         {pixelBGR24, Make<CDrawRGB24>},
    {pixelYUYV, MakeTyped<CDrawYCbCrYUYV>}, {pixelUYVY, MakeTyped<CDrawYCbCrYUYV>},
    {pixelYVYU, MakeTyped<CDrawYCbCrYUYV>}, {pixelVYUY, MakeTyped<CDrawYCbCrYUYV>},
    {pixelV210, MakeTyped<CDrawYCbCr10>},
};

}  // namespace

int GetDraw(unsigned int type, int width, int height, int pitch, char* buffer, ZrDraw*& canvas) {
  if (type == static_cast<unsigned int>(pixelNone)) return -1;
  const CanvasClass* found = nullptr;
  for (const CanvasClass& c : kCanvasClasses) {
    if (c.type == type) {
      found = &c;
      break;
    }
  }
  if (found) {
    // A live handle passed in is dropped unreleased; callers pass null.
    canvas = found->make(type);
  } else if (canvas == nullptr) {
    return -2;
  }
  canvas->SetCanvas(buffer, height, width, pitch);
  canvas->mbUseBuiltInFont = true;
  return 0;
}

int AddRefDraw(ZrDraw*& canvas) {
  zrOSEnterCriticalSection(&canvas->mLock);
  ++canvas->mRefCount;
  zrOSLeaveCriticalSection(&canvas->mLock);
  return 0;
}

int ReleaseDraw(ZrDraw*& canvas) {
  ZrDraw* held = canvas;
  canvas = nullptr;
  ZrCriticalSection* lock = &held->mLock;
  zrOSEnterCriticalSection(lock);
  zrOSEnterCriticalSection(lock);
  // A count below 1 becomes 0.
  held->mRefCount = held->mRefCount < 2 ? 0 : held->mRefCount - 1;
  zrOSLeaveCriticalSection(lock);
  if (held->mRefCount != 0) {
    canvas = held;
    zrOSLeaveCriticalSection(lock);
    return 0;
  }
  zrOSLeaveCriticalSection(lock);
  delete held;
  return 0;
}

int UseDefaultFont(ZrDraw*& canvas, bool) {
  canvas->mbUseBuiltInFont = true;
  return 0;
}

int SetFont(ZrDraw*&, char*) { return 0; }
