// The dissolve over one band of a picture, shared by both dissolve effects.
#ifndef ZR_FX_DISSOLVE_DISSOLVE_BAND_H
#define ZR_FX_DISSOLVE_DISSOLVE_BAND_H

#include <cstdint>

#include "fx/fx_format.h"
#include "fx/source_rows.h"

namespace zr::fx {

// Columns [left, right) and rows [top, bottom) of the picture.
struct zrfxBand {
  uint32_t left, right, top, bottom;
};

// Mixes every sample of the band from `incoming` and `outgoing` into `dst`,
// whose rows are `dstPitch` apart. `format` must be in a group. An empty band
// writes nothing.
void zrfxDissolveBand(const FxFormatInfo& format, const zrfxSourceRoles& roles, uint8_t* dst,
                      uint32_t dstPitch, uint32_t progressStart, uint32_t progressEnd, uint32_t progress,
                      const zrfxBand& band);

}  // namespace zr::fx

#endif
