// ZrAlloc and ZrFree, with the hook that lets tests make allocation fail.
#include <atomic>
#include <cstdlib>

#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {
std::atomic<zr::testhooks::AllocHook> gAllocHook{nullptr};
}

void zr::testhooks::SetAllocHook(AllocHook hook) { gAllocHook.store(hook); }

void* ZrAlloc(size_t size) {
  if (auto hook = gAllocHook.load()) return hook(size);
  return std::malloc(size);
}

void ZrFree(void* pointer) { std::free(pointer); }
