// CopyMemoryFast and SetMemoryFast: whole-frame copies and word fills at the
// speed of memcpy and memset.
#include <cstring>

#include "platform/zrutil.h"

namespace {

typedef uint8_t Bytes16 __attribute__((vector_size(16), aligned(1)));
typedef uint8_t Aligned16 __attribute__((vector_size(16)));

// From this size on x86-64 the processor's string store fills faster than a
// loop of vector stores, as it does inside memset.
constexpr size_t kStringStoreThreshold = 2048;

uint32_t RotateToPhase(uint32_t word, size_t phase) {
  // Little-endian: the byte at offset `phase` of the pattern comes first.
  const unsigned shift = static_cast<unsigned>(phase & 3) * 8;
  return shift ? (word >> shift) | (word << (32 - shift)) : word;
}

Aligned16 Splat(uint32_t word) {
  Aligned16 v;
  for (int i = 0; i < 16; ++i) v[i] = static_cast<uint8_t>(word >> (8 * (i & 3)));
  return v;
}

void FillAligned(uint8_t* p, uint8_t* end, Aligned16 v) {
  for (; p + 64 <= end; p += 64) {
    auto* q = reinterpret_cast<Aligned16*>(p);
    q[0] = v;
    q[1] = v;
    q[2] = v;
    q[3] = v;
  }
  for (; p + 16 <= end; p += 16) *reinterpret_cast<Aligned16*>(p) = v;
}

}  // namespace

void CopyMemoryFast(void* target, const void* source, size_t bytes) {
  // memmove: a caller that passes overlapping rows still gets a defined copy.
  std::memmove(target, source, bytes);
}

void SetMemoryFast(void* target, uint32_t value, size_t bytes) {
  auto* p = static_cast<uint8_t*>(target);
  const uint8_t b0 = static_cast<uint8_t>(value);
  if (value == b0 * 0x01010101u) {
    std::memset(p, b0, bytes);
    return;
  }
#if defined(__x86_64__)
  if (bytes >= kStringStoreThreshold) {
    // rep stosl stores the 32-bit word in memory order, word after word.
    size_t words = bytes / 4;
    uint8_t* q = p;
    asm volatile("rep stosl" : "+D"(q), "+c"(words) : "a"(value) : "memory");
    for (size_t i = bytes & ~size_t{3}; i < bytes; ++i) p[i] = static_cast<uint8_t>(value >> (8 * (i & 3)));
    return;
  }
#endif
  if (bytes < 32) {
    for (size_t i = 0; i < bytes; ++i) p[i] = static_cast<uint8_t>(value >> (8 * (i & 3)));
    return;
  }
  // Unaligned head and tail stores overlap the aligned body; each byte gets
  // the pattern byte of its own offset from target.
  *reinterpret_cast<Bytes16*>(p) = Splat(value);
  uint8_t* const end = p + bytes;
  uint8_t* body = reinterpret_cast<uint8_t*>((reinterpret_cast<uintptr_t>(p) + 16) & ~uintptr_t{15});
  FillAligned(body, end, Splat(RotateToPhase(value, static_cast<size_t>(body - p))));
  *reinterpret_cast<Bytes16*>(end - 16) = Splat(RotateToPhase(value, bytes - 16));
}
