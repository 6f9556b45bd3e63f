#include "common/heap_meter.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>

// The C library's own entry points, which the counting ones below forward to.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* pointer, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void* __libc_valloc(size_t size);
void* __libc_pvalloc(size_t size);
void __libc_free(void* pointer);
}

namespace {

std::atomic<int64_t> gLive{0};
std::atomic<int64_t> gPeak{0};

// Blocks are counted at their usable size, the same on the way in and out.
void* Counted(void* block) {
  if (block) {
    const auto bytes = static_cast<int64_t>(malloc_usable_size(block));
    const int64_t live = gLive.fetch_add(bytes) + bytes;
    int64_t peak = gPeak.load(std::memory_order_relaxed);
    while (live > peak && !gPeak.compare_exchange_weak(peak, live)) {
    }
  }
  return block;
}

void Uncount(void* block) {
  if (block) gLive.fetch_sub(static_cast<int64_t>(malloc_usable_size(block)));
}

}  // namespace

#define ZR_INTERPOSE extern "C" __attribute__((visibility("default")))

ZR_INTERPOSE void* malloc(size_t size) { return Counted(__libc_malloc(size)); }
ZR_INTERPOSE void* calloc(size_t count, size_t size) { return Counted(__libc_calloc(count, size)); }
ZR_INTERPOSE void* memalign(size_t alignment, size_t size) {
  return Counted(__libc_memalign(alignment, size));
}
ZR_INTERPOSE void* aligned_alloc(size_t alignment, size_t size) { return memalign(alignment, size); }
ZR_INTERPOSE void* valloc(size_t size) { return Counted(__libc_valloc(size)); }
ZR_INTERPOSE void* pvalloc(size_t size) { return Counted(__libc_pvalloc(size)); }
ZR_INTERPOSE void free(void* pointer) {
  Uncount(pointer);
  __libc_free(pointer);
}

ZR_INTERPOSE void* realloc(void* pointer, size_t size) {
  // The old block is gone once a new one is returned; on failure it stays.
  const size_t old = pointer ? malloc_usable_size(pointer) : 0;
  void* block = __libc_realloc(pointer, size);
  if (block || size == 0) gLive.fetch_sub(static_cast<int64_t>(old));
  return Counted(block);
}

ZR_INTERPOSE int posix_memalign(void** out, size_t alignment, size_t size) {
  if (alignment % sizeof(void*) != 0 || (alignment & (alignment - 1)) != 0) return EINVAL;
  void* block = memalign(alignment, size);
  if (!block) return ENOMEM;
  *out = block;
  return 0;
}

namespace zr::bench {

HeapPeak::HeapPeak() : start_(gLive.load()) { gPeak.store(start_); }

size_t HeapPeak::Bytes() const { return static_cast<size_t>(gPeak.load() - start_); }

}  // namespace zr::bench
