// zrfxDISSOLVE and zrfxDISSOLVE2: the cross-fade. Both mix every sample of
// the band in double precision; they differ only in which formats they take.
#include "fx/dissolve/dissolve_band.h"
#include "fx/fx_format.h"
#include "fx/source_rows.h"
#include "zrfx.h"

namespace {

using namespace zr::fx;

// `dst` rows are `pitchB` apart: dstPitch is carried and never read.
void Dissolve(const FxFormatInfo& format, uint8_t* srcA, uint32_t pitchA, uint8_t* srcB, uint32_t pitchB,
              uint8_t* dst, uint32_t wipeCode, uint32_t progressStart, uint32_t progressEnd,
              uint32_t progress, const zrfxBand& band) {
  zrfxDissolveBand(format, zrfxPickRoles(srcA, pitchA, srcB, pitchB, wipeCode), dst, pitchB, progressStart,
                   progressEnd, progress, band);
}

}  // namespace

uint32_t zrfxDISSOLVE2(ZRFX_EFFECT_ARGS) {
  (void)dstPitch, (void)width, (void)height;
  (void)fxReserved0, (void)fxReserved1, (void)fxReserved2, (void)fxReserved3, (void)fxReserved4;
  const FxFormatInfo info = FxFormatOf(format);
  if (info.group == FxFormatGroup::kNone) return 0;
  Dissolve(info, srcA, pitchA, srcB, pitchB, dst, wipeCode, progressStart, progressEnd, progress,
           {bandLeft, bandRight, bandTop, bandBottom});
  return 0;
}

uint32_t zrfxDISSOLVE(ZRFX_EFFECT_ARGS) {
  // The integer formats are passed on whole; the float ones are mixed here,
  // by the same loop. Every other format writes nothing.
  if ((format >= 1 && format <= 6) || (format >= 31 && format <= 36)) {
    zrfxDISSOLVE2(srcA, pitchA, srcB, pitchB, dst, dstPitch, wipeCode, format, width, height, fxReserved0,
                  fxReserved1, fxReserved2, fxReserved3, fxReserved4, progressStart, progressEnd, progress,
                  bandLeft, bandRight, bandTop, bandBottom);
    return 0;
  }
  if (format == 29 || format == 30)
    Dissolve(FxFormatOf(format), srcA, pitchA, srcB, pitchB, dst, wipeCode, progressStart, progressEnd,
             progress, {bandLeft, bandRight, bandTop, bandBottom});
  return 0;
}
