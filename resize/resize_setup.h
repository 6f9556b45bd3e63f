// The resize contract: argument checks, scratch size and the common setup
// that turns the arguments into a block of destination pixels and the
// inverse mapping. Shared by every variant.
#ifndef ZR_RESIZE_RESIZE_SETUP_H
#define ZR_RESIZE_RESIZE_SETUP_H

#include <cstdint>

#include "zripp.h"

// What the setup hands to the kernel: destination columns [firstCol, endCol)
// and rows [firstRow, endRow), and source = (dest + 0.5) * inv + off.
struct ownResizeTask {
  int32_t firstCol;
  int32_t firstRow;
  int32_t endCol;
  int32_t endRow;
  double invX;
  double invY;
  double offX;
  double offY;
};

// 0 when the interpolation number is one the engine accepts and at most one
// of the three flags is set, otherwise ZRIPP_INTERPOLATION_ERR.
IppStatus ownpiCheckInterpolation(int32_t interpolation);

// True for the one resampling this engine carries: nearest neighbour, with
// no flag or the antialiasing flag (which nearest neighbour ignores).
bool ownpiIsNearestNeighbour(int32_t interpolation);

IppStatus ownpi_ResizeGetBufSizeSerial(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel,
                                       int32_t interpolation, int32_t* pBufferSize);

// Checks the arguments in the order their statuses take and fills `task`. Anything
// but 0 is the call's status and no pixel may change.
IppStatus ownpiPreludeToResize(const uint8_t* pSrc, IppiSize srcSize, IppiRect srcRoi, const uint8_t* pDst,
                               IppiRect dstRoi, double xFactor, double yFactor, double xShift, double yShift,
                               int32_t interpolation, const uint8_t* pBuffer, ownResizeTask* task);

#endif
