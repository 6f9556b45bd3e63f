#include "fx/adapters/adapter_call.h"

namespace zr::fx {

bool BeginAdapter(uint32_t width, uint32_t height, AdapterCall& call) {
  call.self = zrOSGetCurrentThread();
  call.priority = zrOSGetThreadPriority(call.self);
  zrOSSetThreadPriority(call.self, kAdapterPriority);
  void* block;
  try {
    block = AllocScratch(width, height);
  } catch (...) {
    return false;
  }
  if (!block) {
    ErrOut("%s", kNoMemoryText);
    zrOSSetThreadPriority(call.self, call.priority);
    return false;
  }
  call.planes = LayScratch(block, width, height);
  call.scratch = SharedScratch::Adopt(block, ScratchBytes(width, height));
  return true;
}

void EndAdapter(AdapterCall& call) {
  call.scratch->Release();
  zrOSSetThreadPriority(call.self, call.priority);
}

}  // namespace zr::fx
