// The pixel layouts that the library's factory makes canvases for, as the
// tool names and sizes them: the gallery draws on each, `zrfx draw` reads
// and writes frames of each, and the tests walk the same table.
#ifndef ZRFX_PIXEL_FORMATS_H
#define ZRFX_PIXEL_FORMATS_H

#include <cstdint>
#include <span>
#include <string>

namespace zrfx {

struct PixelFormat {
  unsigned int type;       // the pixelType value
  const char* enumerator;  // "pixelRGBA32"
  // The common raw-video name of the same layout ("rgba", "uyvy422"), or
  // nullptr when the layout has none.
  const char* rawName;
  const char* layout;    // one pixel or group in memory, for the help
  uint32_t groupPixels;  // pixels that share bytes: 2 in 4:2:2 and Bayer, 6 in v210
  uint32_t groupBytes;   // bytes of one group
  uint32_t rowPixels;    // rows are padded to a multiple of this many pixels

  // The raw-video name, or the enumerator when there is none.
  const char* Name() const { return rawName ? rawName : enumerator; }
  // Whether rows of `width` pixels exist in this layout: a row that is not
  // padded holds whole groups only.
  bool FitsWidth(uint32_t width) const { return rowPixels != groupPixels || width % groupPixels == 0; }
  // Bytes of one row, padding included, and of a whole frame.
  uint64_t RowBytes(uint32_t width) const;
  uint64_t FrameBytes(uint32_t width, uint32_t height) const { return RowBytes(width) * height; }
};

// Every layout, in pixelType order.
std::span<const PixelFormat> PixelFormats();

// A layout by its raw-video name, its enumerator (both in any case) or its
// number. Throws UsageError for anything else.
const PixelFormat& ParsePixelFormat(const std::string& text);

}  // namespace zrfx

#endif
