/* zrdraw: drawing, transitions and the video mux on caller-owned frames.
   The one header a host includes. From C it declares the plain-function
   interface (qt..., ZrDraw_..., zrfx..., ipp...); from C++ also the canvas
   classes and the factory. */
#ifndef ZRDRAW_H
#define ZRDRAW_H

#include "zrdraw_export.h"
#include "zrdraw_version.h"
#include "zrtypes.h"
#include "zrqt.h"
#include "zrfx.h"
#include "zrmux.h"
#include "zripp.h"

#ifdef __cplusplus
#include "zrpixel.h"
#include "zrdrawobject.h"
#include "zrbackends.h"
#include "zrfactory.h"
#endif

#endif
