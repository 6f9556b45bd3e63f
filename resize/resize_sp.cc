#include "resize/resize_sp.h"

#include <xmmintrin.h>

#include <cstddef>

namespace {

// Moves the border of a pixel centre to the lower pixel: a centre that maps
// exactly onto a pixel border (every one of them at factor 0.5) must take
// the even pixel, and hosts rely on it.
constexpr double kCentreBias = 1e-10;

// Above this many output bytes the output could only push the source out of
// the caches on its way to memory (a UHD frame's half is 16 MB), so it is
// written around them.
constexpr uint64_t kStreamBytes = uint64_t{8} << 20;

uint8_t* ownAlign16(uint8_t* p) {
  const uintptr_t a = reinterpret_cast<uintptr_t>(p);
  return p + ((16 - a % 16) % 16);
}

// The row routine for this column table: a straight copy or every other
// pixel when the table is such a progression, a gather otherwise. The test
// is exact, so each routine moves the same bytes as the gather would.
ownResizeRowFn ownPickRow(const int32_t* col, int32_t n, const ownResizeKernels& kernels) {
  if (n < 2) return kernels.rowGather;
  const int64_t stride = static_cast<int64_t>(col[1]) - col[0];
  if (stride != 4 && stride != 8) return kernels.rowGather;
  for (int32_t j = 2; j < n; ++j)
    if (col[j] != col[0] + stride * j) return kernels.rowGather;
  return stride == 4 ? kernels.rowCopy : kernels.rowHalf;
}

}  // namespace

int32_t* ownColumnTable(uint8_t* pBuffer) { return reinterpret_cast<int32_t*>(ownAlign16(pBuffer)); }

int32_t* ownRowTable(int32_t* columnTable, int32_t columns) {
  return reinterpret_cast<int32_t*>(ownAlign16(reinterpret_cast<uint8_t*>(columnTable + columns)));
}

void ownpiResizeSP(const ownResizeTask& task, const uint8_t* pSrc, int32_t srcStep, uint8_t* pDst,
                   int32_t dstStep, uint8_t* pBuffer, const ownResizeKernels& kernels) {
  const int32_t width = task.endCol - task.firstCol;
  const int32_t height = task.endRow - task.firstRow;
  int32_t* col = ownColumnTable(pBuffer);
  int32_t* row = ownRowTable(col, width);
  kernels.fillTable(col, task.firstCol, width, task.invX, task.offX - kCentreBias, 4);
  kernels.fillTable(row, task.firstRow, height, task.invY, task.offY - kCentreBias, srcStep);

  ownResizeRowFn rowFn = ownPickRow(col, width, kernels);
  const bool stream = rowFn == kernels.rowHalf && uint64_t{4} * width * height > kStreamBytes;
  if (stream) rowFn = kernels.rowHalfStream;
  uint8_t* dst =
      pDst + static_cast<ptrdiff_t>(task.firstRow) * dstStep + static_cast<ptrdiff_t>(task.firstCol) * 4;
  for (int32_t i = 0; i < height; ++i, dst += dstStep) rowFn(pSrc + row[i], col, dst, width);
  // Streamed stores are weakly ordered: make them visible before returning.
  if (stream) _mm_sfence();
}

IppStatus ownpiResizeSqrPixel_8u_C4R(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep, IppiRect srcRoi,
                                     uint8_t* pDst, int32_t dstStep, IppiRect dstRoi, double xFactor,
                                     double yFactor, double xShift, double yShift, int32_t interpolation,
                                     uint8_t* pBuffer, const ownResizeKernels& kernels) {
  ownResizeTask task;
  const IppStatus status = ownpiPreludeToResize(pSrc, srcSize, srcRoi, pDst, dstRoi, xFactor, yFactor, xShift,
                                                yShift, interpolation, pBuffer, &task);
  if (status != ZRIPP_OK) return status;
  if (!ownpiIsNearestNeighbour(interpolation)) return ZRIPP_MODE_NOT_BUILT;
  ownpiResizeSP(task, pSrc, srcStep, pDst, dstStep, pBuffer, kernels);
  // Nearest neighbour has nothing to smooth: the flag is ignored, and said so.
  if (static_cast<uint32_t>(interpolation) & ZRIPP_INTER_ANTIALIAS) return ZRIPP_ANTIALIAS_IGNORED;
  return ZRIPP_OK;
}
