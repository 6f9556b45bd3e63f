#include "zrfx/test_pictures.h"

#include <cmath>
#include <numbers>

#include "zrfx/caption.h"

namespace zrfx {
namespace {

void Put(Frame& frame, uint32_t x, uint32_t y, uint8_t r, uint8_t g, uint8_t b) {
  uint8_t* p = frame.Pixel(x, y);
  p[0] = r;
  p[1] = g;
  p[2] = b;
  p[3] = 255;
}

int CaptionScale(uint32_t height) { return height >= 400 ? 2 : 1; }

// The letter in the corner: a quarter of the height tall.
void DrawCornerLetter(Frame& frame, char letter) {
  const int scale = static_cast<int>(frame.height() / 36) + 1;
  DrawText(frame, scale * 2 + 1, scale * 2 + 1, std::string(1, letter), scale, 0xFF000000u);
  DrawText(frame, scale * 2, scale * 2, std::string(1, letter), scale, 0xFFFFFFFFu);
}

}  // namespace

Frame MakeColourBars(uint32_t width, uint32_t height) {
  // White, yellow, cyan, green, magenta, red, blue at 75%.
  static constexpr uint8_t kBars[7][3] = {{191, 191, 191}, {191, 191, 0}, {0, 191, 191}, {0, 191, 0},
                                          {191, 0, 191},   {191, 0, 0},   {0, 0, 191}};
  Frame frame(width, height);
  const uint32_t barsEnd = height * 2 / 3;
  for (uint32_t y = 0; y < height; ++y)
    for (uint32_t x = 0; x < width; ++x) {
      if (y < barsEnd) {
        const uint8_t* c = kBars[static_cast<uint64_t>(x) * 7 / width];
        Put(frame, x, y, c[0], c[1], c[2]);
      } else {
        const auto v = static_cast<uint8_t>(width > 1 ? static_cast<uint64_t>(x) * 255 / (width - 1) : 0);
        Put(frame, x, y, v, v, v);
      }
    }
  DrawCornerLetter(frame, 'A');
  DrawCaptionBar(frame, "A: colour bars + ramp", CaptionScale(height));
  return frame;
}

Frame MakeChangedCopy(const Frame& bars) {
  Frame changed = bars;
  const uint32_t w = bars.width(), h = bars.height();
  for (uint32_t y = 0; y < h * 2 / 3; ++y)
    for (uint32_t x = (w + 6) / 7; x < (2 * w + 6) / 7; ++x)
      for (int k = 0; k < 3; ++k) {
        uint8_t& v = changed.Pixel(x, y)[k];
        if (v != 0) v = static_cast<uint8_t>(v + 6);
      }
  for (uint32_t y = h / 3; y < h / 2; ++y)
    for (uint32_t x = w * 3 / 7; x < w * 4 / 7; ++x)
      for (int k = 0; k < 3; ++k) {
        uint8_t& v = changed.Pixel(x, y)[k];
        v = static_cast<uint8_t>(v > 20 ? v - 20 : 0);
      }
  return changed;
}

Frame MakeZonePlate(uint32_t width, uint32_t height) {
  Frame frame(width, height);
  const double cx = width / 2.0, cy = height / 2.0;
  const double rmax2 = cx * cx + cy * cy;
  // The ring frequency grows with the radius and reaches half the sampling
  // rate at the corners.
  const double k = std::numbers::pi / (2.0 * std::sqrt(rmax2));
  const double circle = 0.38 * height, ring = height / 90.0 + 1.0;
  for (uint32_t y = 0; y < height; ++y)
    for (uint32_t x = 0; x < width; ++x) {
      const double dx = x + 0.5 - cx, dy = y + 0.5 - cy;
      const double r2 = dx * dx + dy * dy;
      if (std::fabs(std::sqrt(r2) - circle) < ring) {
        Put(frame, x, y, 255, 255, 255);
        continue;
      }
      const double t = 0.5 + 0.5 * std::cos(k * r2);
      Put(frame, x, y, static_cast<uint8_t>(30 + t * 220), static_cast<uint8_t>(40 + t * 130),
          static_cast<uint8_t>(150 - t * 110));
    }
  DrawCornerLetter(frame, 'B');
  DrawCaptionBar(frame, "B: zone plate + circle", CaptionScale(height));
  return frame;
}

}  // namespace zrfx
