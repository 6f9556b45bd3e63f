// How the public resize names reach a variant: one table of five routines
// per name, indexed by the jump index. Slots 0 and 1 hold the m7 routines,
// 2 u8, 3 y8 and 4 e9.
#ifndef ZR_RESIZE_RESIZE_DISPATCH_H
#define ZR_RESIZE_RESIZE_DISPATCH_H

#include <atomic>
#include <cstdint>

#include "zripp.h"

// 0 to 4, the slot every public name jumps through. 0 at load; only
// ippInit, ippStaticInit and ippInitCpu change it. Relaxed atomics: a plain
// word without a lock, as far as any caller can tell.
extern std::atomic<int32_t> ippJumpIndexForMergedLibs;
// 0 or 1, set beside the index; the resize routines do not read it.
extern std::atomic<int32_t> ippJumpIndexForMergedLibsLP;

inline constexpr int kOwnJumpSlots = 5;

using ownResizeGetBufSizeFn = IppStatus (*)(IppiRect, IppiRect, int32_t, int32_t, int32_t*);
using ownResizeSqrPixelFn = IppStatus (*)(const uint8_t*, IppiSize, int32_t, IppiRect, uint8_t*, int32_t,
                                          IppiRect, double, double, double, double, int32_t, uint8_t*);
using ownsMallocFn = uint8_t* (*)(int32_t);
using ownsFreeFn = void (*)(void*);

extern const ownResizeGetBufSizeFn ippiResizeGetBufSize_arraddr[kOwnJumpSlots];
extern const ownResizeSqrPixelFn ippiResizeSqrPixel_8u_C4R_arraddr[kOwnJumpSlots];
extern const ownsMallocFn ippsMalloc_8u_arraddr[kOwnJumpSlots];
extern const ownsFreeFn ippsFree_arraddr[kOwnJumpSlots];

#endif
