// The scalar kernel set: the reference that every variant must match byte
// for byte.
#include "resize/resize_row.h"

namespace {

void ownRowCopy_C(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  ownRowCopyRef(srcRow, col, dst, 0, n);
}

void ownRowHalf_C(const uint8_t* srcRow, const int32_t* col, uint8_t* dst, int32_t n) {
  ownRowHalfRef(srcRow, col, dst, 0, n);
}

}  // namespace

const ownResizeKernels ownResizeKernels_C = {ownFillTableRef, ownRowGatherRef, ownRowCopy_C, ownRowHalf_C,
                                             ownRowHalf_C};
