#include "resize/ipps_malloc.h"

#include <cstdlib>
#include <cstring>

#include "zripp.h"

namespace {

void* ownDefaultMalloc(size_t size) { return std::malloc(size); }
void ownDefaultFree(void* ptr) { std::free(ptr); }

// Room for the alignment and for the raw pointer kept in front of the block.
constexpr size_t kOverhead = 72;

}  // namespace

void* (*i_malloc)(size_t size) = ownDefaultMalloc;
void (*i_free)(void* ptr) = ownDefaultFree;

uint8_t* ownsMalloc_8u(int32_t len) {
  if (len < 1) return nullptr;
  auto* raw = static_cast<uint8_t*>(i_malloc(static_cast<size_t>(len) + kOverhead));
  if (raw == nullptr) return nullptr;
  const uintptr_t at = (reinterpret_cast<uintptr_t>(raw) + 71) & ~uintptr_t{63};
  uint8_t* block = raw + (at - reinterpret_cast<uintptr_t>(raw));
  std::memcpy(block - sizeof raw, &raw, sizeof raw);
  return block;
}

void ownsFree(void* ptr) {
  if (ptr == nullptr) return;
  void* raw;
  std::memcpy(&raw, static_cast<uint8_t*>(ptr) - sizeof raw, sizeof raw);
  i_free(raw);
}
