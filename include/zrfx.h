/* Transitions: the effect signature, the wipe front door, the four-band
   driver, the effects themselves and the 4:2:2 and v210 adapters. */
#ifndef ZRFX_H
#define ZRFX_H

#include <stdint.h>

#include "zrdraw_export.h"

ZR_EXTERN_C_BEGIN

/* The 22 arguments of every effect, in order. */
#define ZRFX_EFFECT_ARGS                                                                           \
  uint8_t *srcA, uint32_t pitchA, uint8_t *srcB, uint32_t pitchB, uint8_t *dst, uint32_t dstPitch, \
      uint32_t wipeCode, uint32_t format, uint32_t width, uint32_t height, uint32_t fxReserved0,   \
      uint32_t fxReserved1, uint32_t fxReserved2, uint32_t fxReserved3, uint32_t fxReserved4,      \
      uint32_t progressStart, uint32_t progressEnd, uint32_t progress, uint32_t bandLeft,          \
      uint32_t bandRight, uint32_t bandTop, uint32_t bandBottom

/* Every effect: two sources, one output, a progress value and the band of
   the picture that this call writes. Returns 0.
   Bits 0 to 30 of wipeCode hold the wipe number; bit 31 makes srcA the
   incoming picture instead of srcB. Rows of dst are pitchB apart: dstPitch
   is carried through and never read. Lengths on the picture are
   (size * progress) / (progressEnd - progressStart) in unsigned 32-bit
   arithmetic; progressEnd equal to progressStart is a division by zero. */
typedef uint32_t zrfxEffectFn(ZRFX_EFFECT_ARGS);

/* The front door: the first 18 effect arguments. ZrDraw_DisplayWipe plays
   the wipe number on four worker threads and returns when they are done
   (or after 100 ms); unassigned numbers play as the dissolve. */
#define ZRFX_FRONT_DOOR_ARGS                                                                       \
  uint8_t *srcA, uint32_t pitchA, uint8_t *srcB, uint32_t pitchB, uint8_t *dst, uint32_t dstPitch, \
      uint32_t wipeCode, uint32_t format, uint32_t width, uint32_t height, uint32_t fxReserved0,   \
      uint32_t fxReserved1, uint32_t fxReserved2, uint32_t fxReserved3, uint32_t fxReserved4,      \
      uint32_t progressStart, uint32_t progressEnd, uint32_t progress

ZR_EXPORT uint32_t ZrDraw_DisplayWipe(ZRFX_FRONT_DOOR_ARGS);
ZR_EXPORT uint32_t ZrDraw_DisplayWipeYCbCr(ZRFX_FRONT_DOOR_ARGS);
ZR_EXPORT uint32_t ZrDraw_DisplayWipeV210(ZRFX_FRONT_DOOR_ARGS);

/* Runs `effect` on four new threads, one per quadrant; the four band
   arguments passed in are not read. */
ZR_EXPORT uint32_t ZrDraw_FXMultiThread(ZRFX_EFFECT_ARGS, zrfxEffectFn* effect);
/* One worker's record: the effect arguments with the worker's own band,
   the effect, the thread and the driver's completion count. */
typedef struct zrfxBandJob zrfxBandJob;
/* Thread entry of one band: runs the job's effect and counts it done. */
ZR_EXPORT uint32_t zrfxFXThread(zrfxBandJob* job);

ZR_EXPORT uint32_t zrfxSMPTE_Horizontal(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_Vertical(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_BarnDoorVertical(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_BarnDoorHorizontal(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_TopLeft(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_TopRight(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_BottomRight(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_BottomLeft(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_FourCorners(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_FourSquare(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_TopCenter(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_RightCenter(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_BottomCenter(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_LeftCenter(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSMPTE_Rectangle(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxSLIDE_Basic(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxDISSOLVE(ZRFX_EFFECT_ARGS);
ZR_EXPORT uint32_t zrfxDISSOLVE2(ZRFX_EFFECT_ARGS);

ZR_EXTERN_C_END

#endif
