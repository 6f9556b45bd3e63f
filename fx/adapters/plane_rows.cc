#include "fx/adapters/plane_rows.h"

#include "fx/adapters/row_split.h"
#include "fx/source_rows.h"

namespace zr::fx {

void ExpandPlanes(const FxCall& call, const ScratchPlanes& planes, ExpandRowFn expand) {
  const size_t planePitch = size_t{call.width} * 3;
  SplitRows(call.height, [&](uint32_t first, uint32_t last) {
    for (uint32_t y = first; y < last; ++y) {
      expand(FxRow(call.srcA, y, call.pitchA), planes.planeA + y * planePitch, call.width);
      expand(FxRow(call.srcB, y, call.pitchB), planes.planeB + y * planePitch, call.width);
    }
  });
}

void PackPlane(const FxCall& call, const ScratchPlanes& planes, PackRowFn pack, uint64_t rowBytes) {
  const size_t planePitch = size_t{call.width} * 3;
  const auto rows = [&](uint32_t first, uint32_t last) {
    for (uint32_t y = first; y < last; ++y)
      pack(planes.planeOut + y * planePitch, FxRow(call.dst, y, call.dstPitch), call.width);
  };
  if (RowsApart(call.dstPitch, rowBytes, call.height))
    SplitRows(call.height, rows);
  else
    rows(0, call.height);
}

}  // namespace zr::fx
