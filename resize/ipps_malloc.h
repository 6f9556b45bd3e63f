// The engine's scratch allocator: 64-byte aligned blocks from the
// replaceable allocator pointers i_malloc and i_free.
#ifndef ZR_RESIZE_IPPS_MALLOC_H
#define ZR_RESIZE_IPPS_MALLOC_H

#include <cstdint>

uint8_t* ownsMalloc_8u(int32_t len);
void ownsFree(void* ptr);

#endif
