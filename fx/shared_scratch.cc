#include "fx/shared_scratch.h"

#include <cstdint>
#include <new>

#include "platform/zrutil.h"

namespace zr::fx {

SharedScratch* SharedScratch::Adopt(void* block, size_t bytes) {
  const auto end = reinterpret_cast<uintptr_t>(block) + bytes;
  const uintptr_t at = (end - sizeof(SharedScratch)) & ~uintptr_t{alignof(SharedScratch) - 1};
  return new (reinterpret_cast<void*>(at)) SharedScratch(block);
}

void SharedScratch::AddRef() { mRefs.fetch_add(1, std::memory_order_relaxed); }

void SharedScratch::Release() {
  if (mRefs.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  void* const block = mBlock;
  this->~SharedScratch();
  ZrFree(block);
}

}  // namespace zr::fx
