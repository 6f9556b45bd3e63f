// Word access for the packed 4:2:2 canvases, whose groups need not be
// aligned, and the fault of a pixel access on a canvas without memory.
#ifndef ZR_BACKENDS_GROUP_WORDS_H
#define ZR_BACKENDS_GROUP_WORDS_H

#include <csignal>
#include <cstdint>
#include <cstring>

namespace zr::backends {

// The little-endian 32-bit word at p.
inline uint32_t LoadWord(const unsigned char* p) {
  uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}

inline void StoreWord(unsigned char* p, uint32_t w) { std::memcpy(p, &w, 4); }

// The operations that do not check for a null canvas fault on one, as the
// access through it would: a segmentation fault, raised on purpose.
[[gnu::cold]] inline void FaultOnNullCanvas() { std::raise(SIGSEGV); }

}  // namespace zr::backends

#endif
