// The plain-function interface. A handle is the ZrDraw* of the object; the
// conversion to ZrDraw& and ZrPixel& goes through the virtual-base offset.
#include "zrfactory.h"
#include "zrqt.h"

unsigned int qtGetDrawSizeBMI(tagBITMAPINFO*, unsigned int*) { return 0; }

unsigned int qtGetDrawSize(unsigned int, int, int, int) { return 0; }

ZrDraw* qtGetDrawBMI(tagBITMAPINFO* format, char* buffer) {
  ZrDraw* canvas = nullptr;
  return GetDraw(format, buffer, canvas) == 0 ? canvas : nullptr;
}

// The handle starts null, so the re-pointing road of GetDraw is closed here.
ZrDraw* qtGetDraw(unsigned int type, int width, int height, int pitch, char* buffer) {
  ZrDraw* canvas = nullptr;
  return GetDraw(type, width, height, pitch, buffer, canvas) == 0 ? canvas : nullptr;
}

int qtAddRefDraw(ZrDraw* canvas) { return AddRefDraw(canvas); }

// Releases through a copy: the caller's variable is never cleared.
int qtReleaseDraw(ZrDraw* canvas) { return ReleaseDraw(canvas); }

int qtSetFont(ZrDraw*, char*) { return 0; }

int qtUseDefaultFont(ZrDraw* canvas, bool) {
  canvas->mbUseBuiltInFont = true;
  return 0;
}

int qtZrPixelLock(ZrDraw* canvas, unsigned int count) {
  if (!canvas) return -1;
  return static_cast<ZrPixel*>(canvas)->Lock(count);
}

int qtZrPixelTryLock(ZrDraw* canvas) {
  if (!canvas) return -1;
  return static_cast<ZrPixel*>(canvas)->TryLock();
}

int qtZrPixelUnlock(ZrDraw* canvas) {
  if (!canvas) return -1;
  return static_cast<ZrPixel*>(canvas)->Unlock();
}

unsigned int qtZrPixelWaitForChangeEvent(ZrDraw* canvas, unsigned int timeout) {
  if (!canvas) return 0xFFFFFFFF;
  return static_cast<ZrPixel*>(canvas)->WaitForChangeEvent(timeout);
}

void qtZrPixelSetChangeEvent(ZrDraw* canvas) {
  if (!canvas) return;
  static_cast<ZrPixel*>(canvas)->SetChangeEvent();
}

int qtZrPixelLastChange(ZrDraw* canvas, int stamp) {
  if (!canvas) return -1;
  ZrPixel* pixel = canvas;
  if (stamp != -1) pixel->mLastChange = static_cast<unsigned int>(stamp);
  return static_cast<int>(pixel->mLastChange);
}

int qtZrPixelSetCanvas(ZrDraw* canvas, char* buffer, int height, int width, int pitch) {
  if (!canvas) return -1;
  return static_cast<ZrPixel*>(canvas)->SetCanvas(buffer, height, width, pitch);
}
