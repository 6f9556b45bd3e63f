#include "fx/adapters/adapter_call.h"

namespace zr::fx {

bool zrfxBeginAdapter(uint32_t width, uint32_t height, zrfxAdapterCall& call) {
  call.self = zrOSGetCurrentThread();
  call.priority = zrOSGetThreadPriority(call.self);
  zrOSSetThreadPriority(call.self, kZrfxAdapterPriority);
  void* block;
  try {
    block = zrfxAllocScratch(width, height);
  } catch (...) {
    return false;
  }
  if (!block) {
    ErrOut("%s", kZrfxNoMemoryText);
    zrOSSetThreadPriority(call.self, call.priority);
    return false;
  }
  call.planes = zrfxLayScratch(block, width, height);
  call.scratch = SharedScratch::Adopt(block, zrfxScratchBytes(width, height));
  return true;
}

void zrfxEndAdapter(zrfxAdapterCall& call) {
  call.scratch->Release();
  zrOSSetThreadPriority(call.self, call.priority);
}

}  // namespace zr::fx
