#include "resize/resize_dispatch.h"

#include "resize/resize_variants.h"

std::atomic<int32_t> ippJumpIndexForMergedLibs{0};
std::atomic<int32_t> ippJumpIndexForMergedLibsLP{0};

constexpr ownResizeGetBufSizeFn ippiResizeGetBufSize_arraddr[kOwnJumpSlots] = {
    m7_ippiResizeGetBufSize, m7_ippiResizeGetBufSize, u8_ippiResizeGetBufSize, y8_ippiResizeGetBufSize,
    e9_ippiResizeGetBufSize};
constexpr ownResizeSqrPixelFn ippiResizeSqrPixel_8u_C4R_arraddr[kOwnJumpSlots] = {
    m7_ippiResizeSqrPixel_8u_C4R, m7_ippiResizeSqrPixel_8u_C4R, u8_ippiResizeSqrPixel_8u_C4R,
    y8_ippiResizeSqrPixel_8u_C4R, e9_ippiResizeSqrPixel_8u_C4R};
constexpr ownsMallocFn ippsMalloc_8u_arraddr[kOwnJumpSlots] = {
    m7_ippsMalloc_8u, m7_ippsMalloc_8u, u8_ippsMalloc_8u, y8_ippsMalloc_8u, e9_ippsMalloc_8u};
constexpr ownsFreeFn ippsFree_arraddr[kOwnJumpSlots] = {m7_ippsFree, m7_ippsFree, u8_ippsFree, y8_ippsFree,
                                                        e9_ippsFree};

namespace {

int32_t ownJumpIndex() { return ippJumpIndexForMergedLibs.load(std::memory_order_relaxed); }

}  // namespace

// The public names: each passes its arguments unchanged to the routine in
// the current slot of its table (a tail jump once optimised).
IppStatus ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel, int32_t interpolation,
                               int32_t* pBufferSize) {
  return ippiResizeGetBufSize_arraddr[ownJumpIndex()](srcRoi, dstRoi, nChannel, interpolation, pBufferSize);
}

IppStatus ippiResizeSqrPixel_8u_C4R(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep, IppiRect srcRoi,
                                    uint8_t* pDst, int32_t dstStep, IppiRect dstRoi, double xFactor,
                                    double yFactor, double xShift, double yShift, int32_t interpolation,
                                    uint8_t* pBuffer) {
  return ippiResizeSqrPixel_8u_C4R_arraddr[ownJumpIndex()](pSrc, srcSize, srcStep, srcRoi, pDst, dstStep,
                                                           dstRoi, xFactor, yFactor, xShift, yShift,
                                                           interpolation, pBuffer);
}

uint8_t* ippsMalloc_8u(int32_t len) { return ippsMalloc_8u_arraddr[ownJumpIndex()](len); }

void ippsFree(void* ptr) { ippsFree_arraddr[ownJumpIndex()](ptr); }
