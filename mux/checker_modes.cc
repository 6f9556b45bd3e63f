// Checkerboards of A and B, rows stepped by pitch; each pixel comes from the
// same row and column of the source it is taken from.
#include <algorithm>

#include "mux/mux_modes.h"
#include "mux/pixel_runs.h"

namespace zr::mux {

// Rows and columns go in pairs: an odd height reads and writes row height,
// and an odd width column width, one past the frame. Hosts give such frames
// the spare memory; the loop is not clipped.
void MuxChecker(const MuxCall& c) {
  if (c.width == 0) return;
  const uint64_t pairs = (uint64_t{c.width} + 1) / 2;
  for (uint64_t r = 0; r < c.height; r += 2) {
    const auto y = static_cast<uint32_t>(r);
    AlternatePixels(MuxRow(c.a, y, c.pitch), MuxRow(c.b, y, c.pitch), MuxRow(c.out, y, c.pitch), pairs);
    AlternatePixels(MuxRow(c.b, y + 1, c.pitch), MuxRow(c.a, y + 1, c.pitch), MuxRow(c.out, y + 1, c.pitch),
                    pairs);
  }
}

// Blocks of n by n, n = mixPosition / 256 kept from 1 to 100. A row starts
// with A when (r / n) is even; the last block of a row is cut at width.
void MuxBlockChecker(const MuxCall& c) {
  const uint32_t n = c.mixPosition < 256 ? 1 : std::min<uint32_t>(c.mixPosition >> 8, 100);
  // The columns of the second source, as a mask repeated over a whole number
  // of periods of 2n, so that every chunk of a row starts in phase.
  constexpr uint32_t kChunkMax = 1024;
  const uint32_t chunk = kChunkMax / (2 * n) * (2 * n);
  uint32_t secondMask[kChunkMax];
  for (uint32_t i = 0; i < chunk; ++i) secondMask[i] = (i / n) % 2 ? 0xFFFFFFFF : 0;
  for (uint64_t r = 0; r < c.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    const bool aFirst = (y / n) % 2 == 0;
    const uint8_t* first = MuxRow(aFirst ? c.a : c.b, y, c.pitch);
    const uint8_t* second = MuxRow(aFirst ? c.b : c.a, y, c.pitch);
    uint8_t* out = MuxRow(c.out, y, c.pitch);
    for (uint64_t x = 0; x < c.width; x += chunk) {
      const uint64_t len = std::min<uint64_t>(chunk, c.width - x);
      for (uint64_t i = 0; i < len; ++i) {
        const uint64_t at = (x + i) * 4;
        StorePixel(out + at,
                   (LoadPixel(first + at) & ~secondMask[i]) | (LoadPixel(second + at) & secondMask[i]));
      }
    }
  }
}

}  // namespace zr::mux
