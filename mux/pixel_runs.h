// Runs of whole pixels moved without arithmetic, shared by the layout modes.
// Plain loops of 32-bit loads and stores that the compiler widens.
#ifndef ZR_MUX_PIXEL_RUNS_H
#define ZR_MUX_PIXEL_RUNS_H

#include <cstdint>

#include "mux/mux_call.h"

namespace zr::mux {

// out[2i] = first[2i], out[2i + 1] = second[2i + 1] for i below pairs.
inline void AlternatePixels(const uint8_t* first, const uint8_t* second, uint8_t* out, uint64_t pairs) {
  for (uint64_t i = 0; i < pairs; ++i) {
    CopyPixel(out + i * 8, first + i * 8);
    CopyPixel(out + i * 8 + 4, second + i * 8 + 4);
  }
}

// out[j] = last[-j] for j below count: a run read backwards from last.
inline void ReversePixels(const uint8_t* last, uint8_t* out, uint64_t count) {
  for (uint64_t j = 0; j < count; ++j) CopyPixel(out + j * 4, last - j * 4);
}

// out[j] = src[2j] for j below count: every other pixel, no filtering.
inline void DecimatePixels(const uint8_t* src, uint8_t* out, uint64_t count) {
  for (uint64_t j = 0; j < count; ++j) CopyPixel(out + j * 4, src + j * 8);
}

}  // namespace zr::mux

#endif
