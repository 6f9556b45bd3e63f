// The dissolve over one band of a picture, shared by both dissolve effects.
#ifndef ZR_FX_DISSOLVE_DISSOLVE_BAND_H
#define ZR_FX_DISSOLVE_DISSOLVE_BAND_H

#include "fx/fx_call.h"
#include "fx/fx_format.h"

namespace zr::fx {

// Mixes every sample of the call's band from `incoming` and `outgoing` into
// dst, whose rows are pitchB apart. `format` must be in a group. An empty
// band writes nothing.
void DissolveBand(const FxFormatInfo& format, const FxCall& c);

}  // namespace zr::fx

#endif
