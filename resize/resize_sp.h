// The nearest-neighbour resize once the setup has passed: the two offset
// tables in the caller's scratch, then one table-driven copy per row.
#ifndef ZR_RESIZE_RESIZE_SP_H
#define ZR_RESIZE_RESIZE_SP_H

#include <cstdint>

#include "resize/resize_row.h"
#include "resize/resize_setup.h"
#include "zripp.h"

// Where the tables lie in the scratch: the column table at the first 16-byte
// aligned address, the row table at the first 16-byte aligned address
// behind its `columns` entries.
int32_t* ownColumnTable(uint8_t* pBuffer);
int32_t* ownRowTable(int32_t* columnTable, int32_t columns);

void ownpiResizeSP(const ownResizeTask& task, const uint8_t* pSrc, int32_t srcStep, uint8_t* pDst,
                   int32_t dstStep, uint8_t* pBuffer, const ownResizeKernels& kernels);

// The whole of ippiResizeSqrPixel_8u_C4R, on the given variant's kernels.
IppStatus ownpiResizeSqrPixel_8u_C4R(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep, IppiRect srcRoi,
                                     uint8_t* pDst, int32_t dstStep, IppiRect dstRoi, double xFactor,
                                     double yFactor, double xShift, double yShift, int32_t interpolation,
                                     uint8_t* pBuffer, const ownResizeKernels& kernels);

#endif
