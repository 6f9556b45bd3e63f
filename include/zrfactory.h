// The canvas factory and reference count. C++ only; the plain-function
// forms are in zrqt.h.
#ifndef ZRFACTORY_H
#define ZRFACTORY_H

#include "zrdraw_export.h"
#include "zrdrawobject.h"
#include "zrtypes.h"

// Builds the canvas class of `type` over `buffer` (pitch 0: the layout's
// own) and stores it in `canvas`. For a type without a class an existing
// `canvas` is re-pointed at the memory instead. Returns 0, 0xFFFFFFFF for
// type -1, or 0xFFFFFFFE when there is nothing to build or re-point.
ZR_EXPORT int GetDraw(unsigned int type, int width, int height, int pitch, char* buffer, ZrDraw*& canvas);
// Builds a canvas from a bitmap record; see GetDrawSize. Returns 0 or
// 0xFFFFFFFF (and a null `canvas`).
ZR_EXPORT int GetDraw(tagBITMAPINFO* format, char* buffer, ZrDraw*& canvas);
ZR_EXPORT int AddRefDraw(ZrDraw*& canvas);
// Drops one reference; `canvas` becomes null when the object is deleted.
ZR_EXPORT int ReleaseDraw(ZrDraw*& canvas);
// Sets mbUseBuiltInFont, whatever the flag. Returns 0.
ZR_EXPORT int UseDefaultFont(ZrDraw*& canvas, bool builtIn);
// Does nothing. Returns 0.
ZR_EXPORT int SetFont(ZrDraw*& canvas, char* name);

// The pixel type and frame size of a bitmap record. Writes *type (when
// `type` is not null and the compression code decides one), and may write
// biBitCount and biSizeImage of the record.
ZR_EXPORT unsigned int GetDrawSize(tagBITMAPINFO* format, unsigned int* type);
// Empty: returns 0.
ZR_EXPORT unsigned int GetDrawSize(unsigned int type, int width, int height, int pitch);

#endif
