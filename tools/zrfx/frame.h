// An 8-bit RGBA picture in memory that the tool owns: four bytes a pixel,
// rows packed at 4 times the width, which is what the slide and the mux's
// tight layout modes require.
//
// The buffer holds one spare row and a few spare bytes after the picture.
// Some mux modes read or write one row or pixel past the frame (an odd
// height in the interleave and checker modes, the split divider at the
// right edge, the side-by-side squeeze of an odd width); hosts give them
// that room, and so does the tool. The spare bytes start as zero.
#ifndef ZRFX_FRAME_H
#define ZRFX_FRAME_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zrfx {

class Frame {
 public:
  Frame() = default;
  Frame(uint32_t width, uint32_t height);

  uint32_t width() const { return width_; }
  uint32_t height() const { return height_; }
  uint32_t pitch() const { return 4 * width_; }
  // Bytes of the picture itself, spare room excluded.
  size_t bytes() const { return static_cast<size_t>(pitch()) * height_; }
  uint8_t* data() { return storage_.data(); }
  const uint8_t* data() const { return storage_.data(); }
  uint8_t* Pixel(uint32_t x, uint32_t y) { return data() + static_cast<size_t>(y) * pitch() + 4 * x; }
  const uint8_t* Pixel(uint32_t x, uint32_t y) const {
    return data() + static_cast<size_t>(y) * pitch() + 4 * x;
  }
  void Fill(uint32_t rgba);  // byte 0 is the low byte of `rgba`
  bool SameSize(const Frame& other) const { return width_ == other.width_ && height_ == other.height_; }

 private:
  uint32_t width_ = 0;
  uint32_t height_ = 0;
  std::vector<uint8_t> storage_;
};

}  // namespace zrfx

#endif
