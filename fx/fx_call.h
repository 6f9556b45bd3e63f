// One effect call as a record: the 22 arguments of zrfxEffectFn, with the
// arithmetic that every wipe and the slide share.
#ifndef ZR_FX_FX_CALL_H
#define ZR_FX_FX_CALL_H

#include <cstdint>

#include "fx/source_rows.h"
#include "platform/int_divide.h"
#include "zrfx.h"

namespace zr::fx {

struct FxCall {
  uint8_t* srcA;
  uint32_t pitchA;
  uint8_t* srcB;
  uint32_t pitchB;
  uint8_t* dst;
  uint32_t dstPitch;
  uint32_t wipeCode;
  uint32_t format;
  uint32_t width;
  uint32_t height;
  uint32_t fxReserved0;
  uint32_t fxReserved1;
  uint32_t fxReserved2;
  uint32_t fxReserved3;
  uint32_t fxReserved4;
  uint32_t progressStart;
  uint32_t progressEnd;
  uint32_t progress;
  uint32_t bandLeft;
  uint32_t bandRight;
  uint32_t bandTop;
  uint32_t bandBottom;

  // (n * progress) / (progressEnd - progressStart): the product wraps at 2^32,
  // the quotient truncates, and progressStart counts only through the span.
  // Hosts rely on all three; keep them. A zero span divides by zero.
  uint32_t Scaled(uint32_t n) const {
    return platform::DivideOrFault(n * progress, progressEnd - progressStart);
  }

  // Bit 31 of wipeCode exchanges the two pictures: then srcA comes in.
  bool Reversed() const { return (wipeCode >> 31) != 0; }
  bool BandEmpty() const { return bandTop >= bandBottom || bandLeft >= bandRight; }
};

// The two pictures of a transition, each with its own pitch, and the output,
// whose rows are pitchB apart (dstPitch is carried, never read).
struct FxPictures {
  uint8_t* in;
  uint32_t inPitch;
  uint8_t* out;
  uint32_t outPitch;
  uint8_t* dst;
  uint32_t dstPitch;

  explicit FxPictures(const FxCall& c)
      : in(c.Reversed() ? c.srcA : c.srcB),
        inPitch(c.Reversed() ? c.pitchA : c.pitchB),
        out(c.Reversed() ? c.srcB : c.srcA),
        outPitch(c.Reversed() ? c.pitchB : c.pitchA),
        dst(c.dst),
        dstPitch(c.pitchB) {}
};

}  // namespace zr::fx

// Inside a function with the effect arguments: those arguments as an FxCall.
#define ZRFX_CALL_RECORD                                                                          \
  (zr::fx::FxCall{srcA,        pitchA,      srcB,        pitchB,        dst,         dstPitch,    \
                  wipeCode,    format,      width,       height,        fxReserved0, fxReserved1, \
                  fxReserved2, fxReserved3, fxReserved4, progressStart, progressEnd, progress,    \
                  bandLeft,    bandRight,   bandTop,     bandBottom})

// The front door's 18 arguments, in order.
#define ZRFX_FRONT_DOOR_VALUES                                                                          \
  srcA, pitchA, srcB, pitchB, dst, dstPitch, wipeCode, format, width, height, fxReserved0, fxReserved1, \
      fxReserved2, fxReserved3, fxReserved4, progressStart, progressEnd, progress

// Inside a function with the front door's arguments: those arguments as an
// FxCall. The band is left empty; the driver gives each worker its own.
#define ZRFX_FRONT_DOOR_RECORD (zr::fx::FxCall{ZRFX_FRONT_DOOR_VALUES, 0, 0, 0, 0})

// The 22 effect arguments held by an FxCall, in order.
#define ZRFX_CALL_VALUES(c)                                                                               \
  (c).srcA, (c).pitchA, (c).srcB, (c).pitchB, (c).dst, (c).dstPitch, (c).wipeCode, (c).format, (c).width, \
      (c).height, (c).fxReserved0, (c).fxReserved1, (c).fxReserved2, (c).fxReserved3, (c).fxReserved4,    \
      (c).progressStart, (c).progressEnd, (c).progress, (c).bandLeft, (c).bandRight, (c).bandTop,         \
      (c).bandBottom

#endif
