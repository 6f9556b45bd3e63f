// Hooks that tests use to steer the platform layer. Not exported.
#ifndef ZR_PLATFORM_TESTHOOKS_H
#define ZR_PLATFORM_TESTHOOKS_H

#include <cstddef>
#include <string>

namespace zr::testhooks {

// Replaces ZrAlloc's allocator while set; the hook may return null or throw.
// Pass nullptr to restore the ordinary allocator.
using AllocHook = void* (*)(size_t size);
void SetAllocHook(AllocHook hook);

// Receives each line that ErrOut writes instead of standard error.
using ErrOutHook = void (*)(const std::string& line);
void SetErrOutHook(ErrOutHook hook);

}  // namespace zr::testhooks

#endif
