// zrfxDISSOLVE and zrfxDISSOLVE2: the cross-fade. Both mix every sample of
// the band in double precision; they differ only in which formats they take.
#include "fx/dissolve/dissolve_band.h"
#include "fx/fx_call.h"
#include "fx/fx_format.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

uint32_t Dissolve2(const FxCall& c) {
  const FxFormatInfo info = FxFormatOf(c.format);
  if (info.group == FxFormatGroup::kNone) return 0;
  DissolveBand(info, c);
  return 0;
}

// The integer formats are passed on whole; the float ones are mixed here, by
// the same loop. Every other format writes nothing.
uint32_t Dissolve(const FxCall& c) {
  if ((c.format >= 1 && c.format <= 6) || (c.format >= 31 && c.format <= 36)) {
    Dissolve2(c);
    return 0;
  }
  if (c.format == 29 || c.format == 30) DissolveBand(FxFormatOf(c.format), c);
  return 0;
}

}  // namespace
}  // namespace zr::fx

uint32_t zrfxDISSOLVE2(ZRFX_EFFECT_ARGS) { return zr::fx::Dissolve2(ZRFX_CALL_RECORD); }
uint32_t zrfxDISSOLVE(ZRFX_EFFECT_ARGS) { return zr::fx::Dissolve(ZRFX_CALL_RECORD); }
