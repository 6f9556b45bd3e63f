// The processor variants of the engine. Each is the same source,
// resize_kernel_variant.cc, built with one level of the x86-64 instruction set:
//   m7  SSE2 (also the level for SSE3)
//   u8  SSSE3
//   y8  SSE4.1 and SSE4.2
//   e9  AVX
// Each has the four public routines under its prefix and its kernel set.
#ifndef ZR_RESIZE_RESIZE_VARIANTS_H
#define ZR_RESIZE_RESIZE_VARIANTS_H

#include <cstdint>

#include "resize/resize_row.h"
#include "zripp.h"

#define OWN_DECLARE_RESIZE_VARIANT(v)                                                                       \
  extern "C" {                                                                                              \
  IppStatus v##_ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel,                    \
                                     int32_t interpolation, int32_t* pBufferSize);                          \
  IppStatus v##_ippiResizeSqrPixel_8u_C4R(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep,           \
                                          IppiRect srcRoi, uint8_t* pDst, int32_t dstStep, IppiRect dstRoi, \
                                          double xFactor, double yFactor, double xShift, double yShift,     \
                                          int32_t interpolation, uint8_t* pBuffer);                         \
  uint8_t* v##_ippsMalloc_8u(int32_t len);                                                                  \
  void v##_ippsFree(void* ptr);                                                                             \
  }                                                                                                         \
  extern const ownResizeKernels v##_ownResizeKernels;

OWN_DECLARE_RESIZE_VARIANT(m7)
OWN_DECLARE_RESIZE_VARIANT(u8)
OWN_DECLARE_RESIZE_VARIANT(y8)
OWN_DECLARE_RESIZE_VARIANT(e9)

#endif
