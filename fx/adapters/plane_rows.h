// The two row loops of an adapter call over whole pictures: both sources into
// planes A and B, and plane out into dst, on two threads where the picture
// is tall enough (see row_split.h).
#ifndef ZR_FX_ADAPTERS_PLANE_ROWS_H
#define ZR_FX_ADAPTERS_PLANE_ROWS_H

#include <cstdint>

#include "fx/adapters/adapter_row_form.h"
#include "fx/adapters/adapter_scratch.h"
#include "fx/fx_call.h"

namespace zr::fx {

// Each row of srcA and srcB, read at its own pitch, into its plane row.
void ExpandPlanes(const FxCall& call, const ScratchPlanes& planes, ExpandRowFn expand);

// Each plane out row into dst at dstPitch, where packing writes `rowBytes` a
// row. Rows that overlap in dst are packed top to bottom on the calling
// thread, so that the lower row's bytes stand, as they always have.
void PackPlane(const FxCall& call, const ScratchPlanes& planes, PackRowFn pack, uint64_t rowBytes);

}  // namespace zr::fx

#endif
