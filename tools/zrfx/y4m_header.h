// The stream header of YUV4MPEG2 ("YUV4MPEG2 W1920 H1080 F25:1 Ip A1:1
// C422"), for the progressive 4:2:2 and 4:4:4 material that the tool takes,
// and the packed layout that such frames are wiped in.
#ifndef ZRFX_Y4M_HEADER_H
#define ZRFX_Y4M_HEADER_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "zrfx/stream_format.h"

namespace zrfx {

enum class Y4mChroma { k422, k422p10, k444, k444p10 };

struct Y4mHeader {
  std::string line;    // as read, without the newline: an output repeats it
  std::string colour;  // "C422p10"
  uint32_t width = 0;
  uint32_t height = 0;
  Y4mChroma chroma = Y4mChroma::k422;

  // Bytes of the three planes of one frame.
  size_t PlanarBytes() const;
  // 8-bit 4:2:2 is packed as uyvy422, 10-bit 4:2:2 as v210, 4:4:4 as Y Cb Cr
  // bytes or little-endian 16-bit words a pixel.
  StreamFormat PackedFormat() const;
};

// Parses a header line (without its newline) of the stream `name`. Throws
// UsageError for anything but a progressive stream of a colour space above.
Y4mHeader ParseY4mHeader(const std::string& line, const std::string& name);

}  // namespace zrfx

#endif
