#include "zrfx/frame_label.h"

#include <algorithm>

namespace zrfx {

size_t LabelCharactersInFrame(int64_t x, int64_t y, size_t length, uint32_t scale, uint32_t width,
                              uint32_t height) {
  if (scale == 0 || x < 0 || y < 0 || x >= width ||
      static_cast<uint64_t>(y) + LabelLineHeight(scale) > height)
    return 0;
  const uint64_t room = width - static_cast<uint64_t>(x) - 1;  // the spare column
  return static_cast<size_t>(std::min<uint64_t>(length, room / (8ull * scale)));
}

size_t LabelInFrame(ZrDraw* canvas, int x, int y, const std::string& text, uint32_t scale, uint32_t width,
                    uint32_t height) {
  const size_t count = LabelCharactersInFrame(x, y, text.size(), scale, width, height);
  if (count == 0) return 0;
  canvas->LabelFont(0, static_cast<int>(scale));
  canvas->Label(x, y, text.substr(0, count).c_str(), false, false);
  return count;
}

}  // namespace zrfx
