#include "zrfx/stream_format.h"

#include <zrdraw.h>

#include "zrfx/errors.h"
#include "zrfx/late_workers.h"

namespace zrfx {
namespace {

constexpr const char* kRawHelp =
    "rgba bgra argb abgr rgb24 bgr24 (8-bit), rgb48le pixelARGB64\n"
    "                (16-bit), yuyv422 uyvy422 yvyu422 pixelVYUY (8-bit 4:2:2)\n"
    "                and v210 (10-bit 4:2:2)";

bool IsPacked422(uint32_t type) {
  return type == pixelYUYV || type == pixelUYVY || type == pixelYVYU || type == pixelVYUY;
}

// Whole-pixel layouts that the effects take under their own type number.
bool IsWholePixel(uint32_t type) {
  return (type >= pixelRGBA32 && type <= pixelBGR24) || type == pixelRGB48 || type == pixelARGB64;
}

}  // namespace

std::string StreamFormat::Describe() const {
  return std::to_string(width) + "x" + std::to_string(height) + " " + name + " frames";
}

StreamFormat RawStreamFormat(const PixelFormat& format, FrameSize size) {
  StreamFormat s;
  s.name = format.Name();
  s.width = size.width;
  s.height = size.height;
  if (IsWholePixel(format.type)) {
    s.effectFormat = format.type;
    s.muxable = format.type == pixelRGBA32 || format.type == pixelBGRA32;
  } else if (IsPacked422(format.type)) {
    s.route = WipeRoute::kYCbCr;
  } else if (format.type == pixelV210) {
    s.route = WipeRoute::kV210;
  } else {
    throw UsageError(std::string("the transitions do not take ") + format.Name() +
                     " (zrfx transition --help lists the layouts they take)");
  }
  if (!format.FitsWidth(size.width))
    throw UsageError(s.name + " frames need a width that is a multiple of " +
                     std::to_string(format.groupPixels));
  s.pitch = static_cast<uint32_t>(format.RowBytes(size.width));
  return s;
}

StreamFormat EffectStreamFormat(const std::string& name, uint32_t effectFormat, uint32_t bytesPerPixel,
                                FrameSize size) {
  StreamFormat s;
  s.name = name;
  s.width = size.width;
  s.height = size.height;
  s.pitch = size.width * bytesPerPixel;
  s.effectFormat = effectFormat;
  return s;
}

const char* StreamFormatHelp() { return kRawHelp; }

void CheckMuxable(const StreamFormat& format) {
  if (!format.muxable)
    throw UsageError("the mux does not take " + format.name +
                     " frames: it takes rgba and bgra (four bytes a pixel, alpha last)");
}

void WipeFrames(const StreamFormat& f, uint8_t* a, uint8_t* b, uint8_t* out, uint32_t code, uint32_t span,
                uint32_t progress) {
  if (span == 0) throw UsageError("the progress span must be at least 1");
  uint32_t result = 0;
  RunAndJoinWorkers([&] {
    if (f.route == WipeRoute::kDirect) {
      ZrDraw_DisplayWipe(a, f.pitch, b, f.pitch, out, f.pitch, code, f.effectFormat, f.width, f.height, 0, 0,
                         0, 0, 0, 0, span, progress);
      return;
    }
    const auto adapter = f.route == WipeRoute::kYCbCr ? ZrDraw_DisplayWipeYCbCr : ZrDraw_DisplayWipeV210;
    result = adapter(a, f.pitch, b, f.pitch, out, f.pitch, code, 0, f.width, f.height, 0, 0, 0, 0, 0, 0, span,
                     progress);
  });
  if (result != 0) throw RunError("the wipe adapter could not get memory");
}

}  // namespace zrfx
