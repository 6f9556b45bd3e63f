// The layout of the frames in a raw or y4m stream as the frame loop sees
// them, and the library call that wipes frames of that layout: the wipe
// itself for whole-pixel layouts, the 4:2:2 adapter for packed 8-bit 4:2:2
// and the v210 adapter for v210, so that every stream keeps its own layout
// and depth from input to output.
#ifndef ZRFX_STREAM_FORMAT_H
#define ZRFX_STREAM_FORMAT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "zrfx/numbers.h"
#include "zrfx/pixel_formats.h"

namespace zrfx {

enum class WipeRoute { kDirect, kYCbCr, kV210 };

struct StreamFormat {
  std::string name;  // "uyvy422", or the y4m colour space "C422p10"
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t pitch = 0;  // bytes of one row; rows are packed
  WipeRoute route = WipeRoute::kDirect;
  uint32_t effectFormat = 0;  // the effect format code of the direct route
  bool muxable = false;       // four bytes a pixel, alpha last

  size_t FrameBytes() const { return static_cast<size_t>(pitch) * height; }
  // "24x10 uyvy422 frames", for messages.
  std::string Describe() const;
};

// A raw stream of `size` frames in `format`. Throws UsageError when the
// library has no wipe for that layout or the width does not fit it.
StreamFormat RawStreamFormat(const PixelFormat& format, FrameSize size);

// A stream of packed frames that the effects take by their format code
// (the 4:4:4 YCbCr layouts that y4m material is packed into).
StreamFormat EffectStreamFormat(const std::string& name, uint32_t effectFormat, uint32_t bytesPerPixel,
                                FrameSize size);

// The layouts `zrfx transition --help` lists.
const char* StreamFormatHelp();

// Throws UsageError unless the mux takes frames of this layout.
void CheckMuxable(const StreamFormat& format);

// One wipe of frames a and b into out, all of `format`, with progress on a
// scale from 0 to `span`. Throws UsageError for a span of 0, RunError when
// an adapter could not get memory.
void WipeFrames(const StreamFormat& format, uint8_t* a, uint8_t* b, uint8_t* out, uint32_t code,
                uint32_t span, uint32_t progress);

}  // namespace zrfx

#endif
