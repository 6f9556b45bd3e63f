/* The plain-function interface of the canvas: factory, reference count,
   lock, change event and re-pointing. A canvas is the opaque ZrDraw*
   returned by qtGetDraw or qtGetDrawBMI. Valid C and C++. */
#ifndef ZRQT_H
#define ZRQT_H

#include "zrdraw_export.h"
#include "zrtypes.h"

#ifdef __cplusplus
class ZrDraw;
#else
#include <stdbool.h>
typedef struct ZrDraw ZrDraw;
#endif

ZR_EXTERN_C_BEGIN

/* Empty: both return 0 and write nothing. */
ZR_EXPORT unsigned int qtGetDrawSizeBMI(tagBITMAPINFO* format, unsigned int* type);
ZR_EXPORT unsigned int qtGetDrawSize(unsigned int type, int width, int height, int pitch);

/* A new canvas with reference count 1, or null. */
ZR_EXPORT ZrDraw* qtGetDrawBMI(tagBITMAPINFO* format, char* buffer);
ZR_EXPORT ZrDraw* qtGetDraw(unsigned int type, int width, int height, int pitch, char* buffer);
ZR_EXPORT int qtAddRefDraw(ZrDraw* canvas);
/* The caller's pointer is left as it is, even when the object is deleted. */
ZR_EXPORT int qtReleaseDraw(ZrDraw* canvas);
ZR_EXPORT int qtSetFont(ZrDraw* canvas, char* name);
ZR_EXPORT int qtUseDefaultFont(ZrDraw* canvas, bool builtIn);

/* These return 0xFFFFFFFF for a null canvas. qtZrPixelLock with a count of
   0 or 0xFFFFFFFF blocks and returns 0; any other count polls for that many
   milliseconds and returns 128 when the lock is held, 0 when it gave up. */
ZR_EXPORT int qtZrPixelLock(ZrDraw* canvas, unsigned int count);
ZR_EXPORT int qtZrPixelTryLock(ZrDraw* canvas);
ZR_EXPORT int qtZrPixelUnlock(ZrDraw* canvas);
ZR_EXPORT unsigned int qtZrPixelWaitForChangeEvent(ZrDraw* canvas, unsigned int timeout);
ZR_EXPORT void qtZrPixelSetChangeEvent(ZrDraw* canvas);
/* Stores `stamp` unless it is -1; returns the stamp now stored. */
ZR_EXPORT int qtZrPixelLastChange(ZrDraw* canvas, int stamp);
ZR_EXPORT int qtZrPixelSetCanvas(ZrDraw* canvas, char* buffer, int height, int width, int pitch);

ZR_EXTERN_C_END

#endif
