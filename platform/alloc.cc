// ZrAlloc and ZrFree, with the hook that lets tests make allocation fail.
//
// The adapters take one frame-sized scratch block per call (75 MB at
// 3840x2160). Fresh pages for such a block cost more than the work done in
// it, so ZrFree keeps the most recent large block and ZrAlloc hands it out
// again when it fits.
#include <malloc.h>

#include <atomic>
#include <cstdlib>

#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {

std::atomic<zr::testhooks::AllocHook> gAllocHook{nullptr};

// Blocks from this size on are kept for reuse; a kept block serves requests
// down to half its size.
constexpr size_t kKeepFrom = size_t{1} << 20;
std::atomic<void*> gKept{nullptr};

}  // namespace

void zr::testhooks::SetAllocHook(AllocHook hook) { gAllocHook.store(hook); }

void* ZrAlloc(size_t size) {
  if (auto hook = gAllocHook.load()) return hook(size);
  if (size >= kKeepFrom) {
    if (void* kept = gKept.exchange(nullptr)) {
      const size_t usable = malloc_usable_size(kept);
      if (usable >= size && usable / 2 <= size) return kept;
      std::free(kept);
    }
  }
  return std::malloc(size);
}

void ZrFree(void* pointer) {
  if (pointer && malloc_usable_size(pointer) >= kKeepFrom) pointer = gKept.exchange(pointer);
  std::free(pointer);
}
