#include "zrfx/frame.h"

namespace zrfx {
namespace {

// One spare row plus a pixel group: room for the mux's known overruns.
constexpr size_t kSpareTail = 64;

}  // namespace

Frame::Frame(uint32_t width, uint32_t height)
    : width_(width), height_(height), storage_(static_cast<size_t>(4) * width * (height + 1u) + kSpareTail) {}

void Frame::Fill(uint32_t rgba) {
  for (uint32_t y = 0; y < height_; ++y)
    for (uint32_t x = 0; x < width_; ++x) {
      uint8_t* p = Pixel(x, y);
      for (int k = 0; k < 4; ++k) p[k] = static_cast<uint8_t>(rgba >> (8 * k));
    }
}

}  // namespace zrfx
