// Vertical and horizontal flips of frames of four-byte pixels.
#include "platform/pixform.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

uint8_t* Row(void* frame, int y, int pitch) {
  return static_cast<uint8_t*>(frame) + static_cast<std::ptrdiff_t>(y) * pitch;
}

}  // namespace

void pfmt_flip_vert(void* source, void* destination, int width, int height, int pitch) {
  if (width <= 0 || height <= 0) return;
  const size_t rowBytes = static_cast<size_t>(width) * 4;
  uint8_t swap[4096];
  for (int top = 0, bottom = height - 1; top <= bottom; ++top, --bottom) {
    uint8_t* srcTop = Row(source, top, pitch);
    uint8_t* srcBottom = Row(source, bottom, pitch);
    uint8_t* dstTop = Row(destination, top, pitch);
    uint8_t* dstBottom = Row(destination, bottom, pitch);
    // Exchange the two rows in chunks so that in-place flips need no
    // allocation.
    for (size_t x = 0; x < rowBytes; x += sizeof swap) {
      const size_t n = std::min(sizeof swap, rowBytes - x);
      std::memcpy(swap, srcTop + x, n);
      std::memmove(dstTop + x, srcBottom + x, n);
      std::memcpy(dstBottom + x, swap, n);
    }
  }
}

void pfmt_flip_horz(void* source, void* destination, int width, int height, int pitch, uint32_t pixelMask) {
  if (width <= 0 || height <= 0) return;
  for (int y = 0; y < height; ++y) {
    uint8_t* src = Row(source, y, pitch);
    uint8_t* dst = Row(destination, y, pitch);
    for (int l = 0, r = width - 1; l <= r; ++l, --r) {
      uint32_t a, b;
      std::memcpy(&a, src + 4 * l, 4);
      std::memcpy(&b, src + 4 * r, 4);
      const uint32_t newL = (b & pixelMask) | (a & ~pixelMask);
      const uint32_t newR = (a & pixelMask) | (b & ~pixelMask);
      std::memcpy(dst + 4 * l, &newL, 4);
      std::memcpy(dst + 4 * r, &newR, 4);
    }
  }
}
