/* The image resize engine: a nearest-neighbour scaler for frames of four
   8-bit channels, its 64-byte aligned scratch allocator and its choice of a
   processor variant. It exists in the x86-64 build only; the types and
   constants are declared everywhere, the functions only there. */
#ifndef ZRIPP_H
#define ZRIPP_H

#include <stddef.h>
#include <stdint.h>

#include "zrdraw_export.h"

ZR_EXTERN_C_BEGIN

/* 0 success, above 0 a warning, below 0 an error. */
typedef int32_t IppStatus;

/* A whole image in pixels. */
typedef struct {
  int32_t width;
  int32_t height;
} IppiSize;

/* A part of an image in pixels. */
typedef struct {
  int32_t x;
  int32_t y;
  int32_t width;
  int32_t height;
} IppiRect;

/* Statuses of the resize calls. */
#define ZRIPP_OK 0
#define ZRIPP_NO_OUTPUT 1             /* the rectangles leave no output pixel */
#define ZRIPP_ROI_OUTSIDE_SOURCE 29   /* srcRoi starts outside the source image */
#define ZRIPP_ANTIALIAS_IGNORED 46    /* antialiasing asked of nearest neighbour */
#define ZRIPP_SIZE_ERR (-6)           /* size or rectangle out of range, scratch >= 2 GiB */
#define ZRIPP_NULL_PTR_ERR (-8)       /* a required pointer is null */
#define ZRIPP_INTERPOLATION_ERR (-22) /* interpolation code not accepted */
#define ZRIPP_FACTOR_ERR (-23)        /* a scale factor is not above 0 */
#define ZRIPP_CHANNEL_ERR (-53)       /* channel count is not 1, 3 or 4 */
#define ZRIPP_MODE_NOT_BUILT (-9999)  /* an accepted resampling that this engine does not carry */

/* Statuses of the processor calls. */
#define ZRIPP_OTHER_VENDOR 20      /* the processor is not of the vendor the variants were tuned for */
#define ZRIPP_UNKNOWN_CPU_CODE 21  /* ippInitCpu: the code is not known */
#define ZRIPP_CPU_NOT_SUPPORTED 36 /* the processor features cannot be read or are too low */

/* Interpolation codes: a number in the low 29 bits, at most one flag on top. */
#define ZRIPP_INTER_NN 1
#define ZRIPP_INTER_LINEAR 2
#define ZRIPP_INTER_CUBIC 4 /* 4 to 7: the cubic family */
#define ZRIPP_INTER_SUPER 8
#define ZRIPP_INTER_LANCZOS 16
#define ZRIPP_INTER_ANTIALIAS 0x20000000
#define ZRIPP_INTER_SUBPIXEL_EDGE 0x40000000
#define ZRIPP_INTER_SMOOTH_EDGE ((int32_t)(-2147483647 - 1)) /* 0x80000000 */

/* ippGetCpuFeatures: when the feature word holds this on entry, the cpuid
   leaf and sub-leaf come from registers 0 and 2 of the caller's array. */
#define ZRIPP_CPUID_QUERY 0x616F666E69746567ull

#if defined(__x86_64__)

/* Scratch bytes that ippiResizeSqrPixel_8u_C4R needs for dstRoi. */
ZR_EXPORT IppStatus ippiResizeGetBufSize(IppiRect srcRoi, IppiRect dstRoi, int32_t nChannel,
                                         int32_t interpolation, int32_t* pBufferSize);

/* Resamples srcRoi of the source into dstRoi of the destination: destination
   pixel (x, y) shows source pixel ((x + 0.5 - xShift) / xFactor,
   (y + 0.5 - yShift) / yFactor). Four bytes a pixel. */
ZR_EXPORT IppStatus ippiResizeSqrPixel_8u_C4R(const uint8_t* pSrc, IppiSize srcSize, int32_t srcStep,
                                              IppiRect srcRoi, uint8_t* pDst, int32_t dstStep,
                                              IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                                              double yShift, int32_t interpolation, uint8_t* pBuffer);

/* A block aligned to 64 bytes, or null; ippsFree gives it back. */
ZR_EXPORT uint8_t* ippsMalloc_8u(int32_t len);
ZR_EXPORT void ippsFree(void* ptr);

/* The allocator behind ippsMalloc_8u and ippsFree; a host may replace it. */
ZR_EXPORT extern void* (*i_malloc)(size_t size);
ZR_EXPORT extern void (*i_free)(void* ptr);

/* Choose the variant for this processor. Until a host calls one of these,
   every call runs the lowest variant. */
ZR_EXPORT IppStatus ippInit(void);
ZR_EXPORT IppStatus ippStaticInit(void);
/* Choose the variant for a processor code, without reading the processor. */
ZR_EXPORT IppStatus ippInitCpu(int32_t cpu);

ZR_EXPORT IppStatus ippGetCpuFeatures(uint64_t* pFeaturesMask, uint32_t* pCpuidInfoRegs);
ZR_EXPORT uint64_t ippGetEnabledCpuFeatures(void);
ZR_EXPORT IppStatus ippSetCpuFeaturesMask(uint64_t features);
/* Always 1 and always 0: kept for hosts that call them. */
ZR_EXPORT int32_t ippIsCpuEnabled(int32_t cpu);
ZR_EXPORT IppStatus ippEnableCpu(int32_t cpu);

#endif

ZR_EXTERN_C_END

#endif
