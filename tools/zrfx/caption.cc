#include "zrfx/caption.h"

#include <zrdraw.h>

#include "zrfx/canvas_handle.h"

namespace zrfx {
namespace {

constexpr int kGlyphWidth = 8;
constexpr int kGlyphHeight = 10;

}  // namespace

int TextWidth(const std::string& text, int scale) {
  return static_cast<int>(text.size()) * kGlyphWidth * scale;
}

int TextHeight(int scale) { return kGlyphHeight * scale; }

void DrawCanvasText(ZrDraw* canvas, uint32_t width, uint32_t height, int x, int y, const std::string& text,
                    int scale) {
  const int w = static_cast<int>(width), h = static_cast<int>(height);
  for (size_t i = 0; i < text.size(); ++i) {
    // Glyph c is 10 bytes at 10 c, bottom row first; bit 0x80 is the leftmost pixel.
    const auto c = static_cast<unsigned char>(text[i]) < 0x80 ? static_cast<unsigned char>(text[i]) : '?';
    const unsigned char* glyph = gFont8x10 + kGlyphHeight * c;
    const int left = x + static_cast<int>(i) * kGlyphWidth * scale;
    for (int row = 0; row < kGlyphHeight; ++row)
      for (int col = 0; col < kGlyphWidth; ++col) {
        if ((glyph[kGlyphHeight - 1 - row] & (0x80 >> col)) == 0) continue;
        for (int dy = 0; dy < scale; ++dy)
          for (int dx = 0; dx < scale; ++dx) {
            const int px = left + col * scale + dx, py = y + row * scale + dy;
            if (px >= 0 && py >= 0 && px < w && py < h) canvas->Point(px, py, true);
          }
      }
  }
}

void DrawText(Frame& frame, int x, int y, const std::string& text, int scale, uint32_t rgba) {
  CanvasHandle canvas(pixelRGBA32, frame.width(), frame.height(), frame.pitch(), frame.data());
  canvas.SetColour(rgba);
  DrawCanvasText(canvas.get(), frame.width(), frame.height(), x, y, text, scale);
}

void DrawCaptionBar(Frame& frame, const std::string& text, int scale) {
  const int pad = 2 * scale;
  const int barHeight = TextHeight(scale) + 2 * pad;
  const int top = static_cast<int>(frame.height()) - barHeight;
  for (int y = top < 0 ? 0 : top; y < static_cast<int>(frame.height()); ++y)
    for (uint32_t x = 0; x < frame.width(); ++x) {
      uint8_t* p = frame.Pixel(x, static_cast<uint32_t>(y));
      for (int k = 0; k < 3; ++k) p[k] = static_cast<uint8_t>(p[k] / 4);
    }
  DrawText(frame, pad, top + pad, text, scale, 0xFFFFFFFFu);
}

}  // namespace zrfx
