// Loads and prefetches shared by the x86 vector rows. Internal linkage: each
// instruction-set file keeps its own copies, so that none compiled for a
// wider set ever serves another file.
#ifndef ZR_MUX_X86_STREAM_H
#define ZR_MUX_X86_STREAM_H

#include <xmmintrin.h>

#include <cstdint>

namespace zr::mux {

// Asks for the line 8 KiB past p. The processor's own prefetchers stop at each
// 4 KiB page, which leaves frames that live in L3 or memory short of loads in
// flight; this distance gave the best times at 1920x1080 and 3840x2160. The
// address is formed as an integer: it may lie past the frame and is never
// dereferenced.
static inline void PrefetchAhead(const uint8_t* p) {
  _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(p) + 8192), _MM_HINT_T0);
}

// Output rows at least this long go to memory with streaming stores, which
// skip reading each line in before it is overwritten: a frame this size
// leaves the caches anyway, and skipping the reads saves a quarter of the
// traffic of a two-source mix.
inline constexpr uint32_t kStreamBytes = 4u << 20;

// Where streaming stores can start: the pixels before out + 4 * head reaches a
// 64-byte line. False when no pixel of the row ever starts a line.
static inline bool StreamStart(const uint8_t* out, uint32_t width, uint32_t& head) {
  const auto o = reinterpret_cast<uintptr_t>(out);
  if (o % 4 != 0) return false;
  const auto toLine = static_cast<uint32_t>((64 - o % 64) % 64 / 4);
  head = toLine < width ? toLine : width;
  return true;
}

// A loaded vector pinned to a register. Without it GCC folds later uses of
// the value into fresh loads from memory, which costs a third more time on
// frames that live in L3.
template <class V>
static inline V InRegister(V v) {
  asm("" : "+v"(v));
  return v;
}

}  // namespace zr::mux

#endif
