// Output names of numbered frames: "out_%03d.png" with frame 7 gives
// "out_007.png". The pattern holds exactly one %d, optionally with a width
// and a 0 flag (%4d, %03d); "%%" stands for a percent sign.
#ifndef ZRFX_FRAME_PATTERN_H
#define ZRFX_FRAME_PATTERN_H

#include <cstdint>
#include <string>

namespace zrfx {

class FramePattern {
 public:
  // Throws UsageError when `pattern` holds no frame number or more than one,
  // or another % conversion.
  explicit FramePattern(const std::string& pattern);
  std::string Format(uint32_t frame) const;

 private:
  std::string prefix_;
  std::string suffix_;
  size_t width_ = 0;
  bool zeroPad_ = false;
};

}  // namespace zrfx

#endif
