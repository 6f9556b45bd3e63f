// Row functions of the pixel mix modes: one row of width pixels of A and B
// into the output row. The scalar set is the reference; every vector set
// gives its bytes exactly, also where the output overlaps a source.
#ifndef ZR_MUX_PIXEL_ROWS_H
#define ZR_MUX_PIXEL_ROWS_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace zr::mux {

// Per-call constants, computed once outside the row loop.
struct PixelRowParams {
  uint32_t maskA;      // merges: bytes taken from A
  uint32_t maskB;      // merges: bytes taken from B
  uint32_t gain;       // difference: 1 to 255
  uint32_t tolerance;  // match gate: mixLevel, compared unsigned
  uint32_t fill;       // match gate: 0, or 0xFFFFFFFF under MUXF_SWAP
  uint32_t p;          // crossfade: weight of A, mixPosition >> 8
  uint32_t q;          // crossfade: weight of B, 256 - p (may have wrapped)
  uint32_t channel;    // channel view: byte 0 to 3, or kChannelMean
};

inline constexpr uint32_t kChannelMean = 4;

using PixelRowFn = void (*)(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width,
                            const PixelRowParams& k);

struct PixelRowSet {
  PixelRowFn merge;
  PixelRowFn average;
  PixelRowFn difference;
  PixelRowFn matchGate;
  PixelRowFn crossfade;
  PixelRowFn channelView;
};

extern const PixelRowSet kPixelRowsScalar;
// The vector sets, each in its instruction set's namespace.
#if defined(__x86_64__)
namespace sse41 {
extern const PixelRowSet kPixelRows;
}
namespace avx2 {
extern const PixelRowSet kPixelRows;
}
namespace avx512 {
extern const PixelRowSet kPixelRows;
}
#else
namespace neon {
extern const PixelRowSet kPixelRows;
}
#endif

// A vector set and the instruction set (cpu::Isa) it needs.
struct PixelRowForm {
  uint32_t isa;
  const PixelRowSet* rows;
};

// The vector sets, widest first, and the widest one the processor runs.
std::span<const PixelRowForm> PixelRowForms();
const PixelRowSet& ActivePixelRows();

// True when a vector loop that loads a step of both sources before storing
// that step of out gives the pixel-by-pixel result: no source starts below
// out and runs into it (out equal to a source is fine). Internal linkage, so
// that a copy compiled for a wider instruction set never serves another file.
static inline bool VectorSafe(const uint8_t* a, const uint8_t* b, const uint8_t* out, uint32_t bytes) {
  const auto o = reinterpret_cast<uintptr_t>(out);
  const auto behind = [o, bytes](const uint8_t* src) {
    const auto s = reinterpret_cast<uintptr_t>(src);
    return s < o && o - s < bytes;
  };
  return !behind(a) && !behind(b);
}

}  // namespace zr::mux

#endif
