// The smallest row that v210 allows.
#ifndef ZR_FX_ADAPTERS_V210_PITCH_H
#define ZR_FX_ADAPTERS_V210_PITCH_H

#include <cstdint>

namespace zr::fx {

// 128 bytes for each started group of 48 pixels; width * 8 / 3 (in 32 bits)
// when 48 divides the width, so 0 for a width of 0.
constexpr uint32_t V210MinPitch(uint32_t width) {
  if (width % 48 == 0) return width * 8 / 3;
  return (width / 48 * 384 + 384) / 3;
}

// A caller's pitch, raised to the smallest row where it is below it.
constexpr uint32_t V210Pitch(uint32_t pitch, uint32_t width) {
  const uint32_t least = V210MinPitch(width);
  return pitch < least ? least : pitch;
}

}  // namespace zr::fx

#endif
