#include "zrfx/frame_pattern.h"

#include "zrfx/errors.h"

namespace zrfx {

FramePattern::FramePattern(const std::string& pattern) {
  bool found = false;
  std::string* text = &prefix_;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%') {
      *text += pattern[i];
      continue;
    }
    if (i + 1 < pattern.size() && pattern[i + 1] == '%') {
      *text += '%';
      ++i;
      continue;
    }
    size_t j = i + 1;
    const bool zero = j < pattern.size() && pattern[j] == '0';
    size_t width = 0;
    for (; j < pattern.size() && pattern[j] >= '0' && pattern[j] <= '9' && width < 100; ++j)
      width = width * 10 + static_cast<size_t>(pattern[j] - '0');
    if (j >= pattern.size() || pattern[j] != 'd' || found)
      throw UsageError("output name '" + pattern +
                       "' must hold one frame number such as %03d, and no other %");
    found = true;
    zeroPad_ = zero;
    width_ = width;
    text = &suffix_;
    i = j;
  }
  if (!found) throw UsageError("output name '" + pattern + "' must hold a frame number such as %03d");
}

std::string FramePattern::Format(uint32_t frame) const {
  std::string number = std::to_string(frame);
  if (number.size() < width_) number.insert(0, width_ - number.size(), zeroPad_ ? '0' : ' ');
  return prefix_ + number + suffix_;
}

}  // namespace zrfx
