#include "resize/resize_setup.h"

#include <cmath>

namespace {

constexpr uint32_t kInterFlags = 0xE0000000u;
// The interpolation numbers the check accepts: 1, 2, 4 to 8 and 16.
constexpr uint32_t kAcceptedNumbers =
    1u << 1 | 1u << 2 | 1u << 4 | 1u << 5 | 1u << 6 | 1u << 7 | 1u << 8 | 1u << 16;

bool ownRectInRange(const IppiRect& r) { return r.x >= 0 && r.y >= 0 && r.width > 0 && r.height > 0; }

// Destination bounds become pixels through a saturating conversion, so that
// a shift or factor that throws the picture beyond the 32-bit range leaves
// nothing to draw instead of a wrapped block of pixels.
int32_t ownBoundToPixel(double v) {
  if (v >= 2147483647.0) return INT32_MAX;
  if (v <= -2147483648.0) return INT32_MIN;
  return static_cast<int32_t>(v);
}

// One axis of the setup: the destination span that the scaled source
// rectangle covers inside the destination rectangle.
struct ownAxis {
  double lo;
  double hi;
};

ownAxis ownScaledSpan(int32_t srcPos, int32_t srcLen, int32_t srcImageLen, int32_t dstPos, int32_t dstLen,
                      double factor, double shift) {
  // srcRoi may reach past the image; it is cut to it.
  const int32_t avail = srcImageLen - srcPos;
  const int32_t len = srcLen < avail ? srcLen : avail;
  const double a = static_cast<double>(srcPos) * factor + shift;
  const double b = static_cast<double>(srcPos + len) * factor + shift;
  const double dLo = static_cast<double>(dstPos);
  const double dHi = static_cast<double>(dstPos) + static_cast<double>(dstLen);
  // A NaN stays NaN here and is refused by the caller.
  return {a < dLo ? dLo : a, b > dHi ? dHi : b};
}

}  // namespace

IppStatus ownpiCheckInterpolation(int32_t interpolation) {
  const uint32_t code = static_cast<uint32_t>(interpolation);
  const uint32_t flags = code & kInterFlags;
  const uint32_t number = code & ~kInterFlags;
  if (number >= 32 || ((kAcceptedNumbers >> number) & 1u) == 0) return ZRIPP_INTERPOLATION_ERR;
  if ((flags & (flags - 1)) != 0) return ZRIPP_INTERPOLATION_ERR;
  return ZRIPP_OK;
}

bool ownpiIsNearestNeighbour(int32_t interpolation) {
  const uint32_t code = static_cast<uint32_t>(interpolation);
  return (code & ~static_cast<uint32_t>(ZRIPP_INTER_ANTIALIAS)) == ZRIPP_INTER_NN;
}

IppStatus ownpi_ResizeGetBufSizeSerial(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel,
                                       int32_t interpolation, int32_t* pBufferSize) {
  if (pBufferSize == nullptr) return ZRIPP_NULL_PTR_ERR;
  if (!ownRectInRange(srcRoi) || !ownRectInRange(dstRoi)) return ZRIPP_SIZE_ERR;
  if (nChannel != 1 && nChannel != 3 && nChannel != 4) return ZRIPP_CHANNEL_ERR;
  if (ownpiCheckInterpolation(interpolation) != ZRIPP_OK) return ZRIPP_INTERPOLATION_ERR;
  if (!ownpiIsNearestNeighbour(interpolation)) return ZRIPP_MODE_NOT_BUILT;
  // A column table and a row table of 32-bit entries, each rounded up to 16
  // entries, and 16 bytes to align the first.
  const int64_t size = 64 * ((static_cast<int64_t>(dstRoi.width) + 15) / 16 +
                             (static_cast<int64_t>(dstRoi.height) + 15) / 16) +
                       16;
  if (size >= (int64_t{1} << 31)) {
    *pBufferSize = 0;
    return ZRIPP_SIZE_ERR;
  }
  *pBufferSize = static_cast<int32_t>(size);
  return ZRIPP_OK;
}

IppStatus ownpiPreludeToResize(const uint8_t* pSrc, IppiSize srcSize, IppiRect srcRoi, const uint8_t* pDst,
                               IppiRect dstRoi, double xFactor, double yFactor, double xShift, double yShift,
                               int32_t interpolation, const uint8_t* pBuffer, ownResizeTask* task) {
  if (pSrc == nullptr || pDst == nullptr || pBuffer == nullptr) return ZRIPP_NULL_PTR_ERR;
  if (srcSize.width <= 0 || srcSize.height <= 0 || !ownRectInRange(srcRoi) || !ownRectInRange(dstRoi))
    return ZRIPP_SIZE_ERR;
  // Written as "not above 0" so that a NaN factor is refused too.
  if (!(xFactor > 0.0) || !(yFactor > 0.0)) return ZRIPP_FACTOR_ERR;
  if (ownpiCheckInterpolation(interpolation) != ZRIPP_OK) return ZRIPP_INTERPOLATION_ERR;
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ZRIPP_ROI_OUTSIDE_SOURCE;

  const ownAxis x =
      ownScaledSpan(srcRoi.x, srcRoi.width, srcSize.width, dstRoi.x, dstRoi.width, xFactor, xShift);
  const ownAxis y =
      ownScaledSpan(srcRoi.y, srcRoi.height, srcSize.height, dstRoi.y, dstRoi.height, yFactor, yShift);
  // A NaN shift places the picture nowhere.
  if (std::isnan(x.lo) || std::isnan(x.hi) || std::isnan(y.lo) || std::isnan(y.hi)) return ZRIPP_NO_OUTPUT;

  task->firstCol = ownBoundToPixel(x.lo + 0.4999999999);
  task->firstRow = ownBoundToPixel(y.lo + 0.4999999999);
  task->endCol = ownBoundToPixel(x.hi + 0.5000000001);
  task->endRow = ownBoundToPixel(y.hi + 0.5000000001);
  if (task->firstCol >= task->endCol || task->firstRow >= task->endRow) return ZRIPP_NO_OUTPUT;

  task->invX = 1.0 / xFactor;
  task->invY = 1.0 / yFactor;
  task->offX = 0.0 - xShift / xFactor;
  task->offY = 0.0 - yShift / yFactor;
  return ZRIPP_OK;
}
