#include "fx/fx_copy.h"

#include <atomic>

namespace zr::fx {

void CopySharedBytes(uint8_t* target, const uint8_t* source, size_t bytes, size_t) {
  for (size_t i = 0; i < bytes; ++i)
    std::atomic_ref<uint8_t>(target[i]).store(source[i], std::memory_order_relaxed);
}

}  // namespace zr::fx
