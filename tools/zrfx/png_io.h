// PNG files in and out, through libpng. Every PNG colour type is read as
// 8-bit RGBA: palettes and grey are expanded, 16-bit samples scaled to 8,
// and a picture without alpha gets 255. Sample values are taken as stored;
// gamma and colour-space chunks are not applied.
#ifndef ZRFX_PNG_IO_H
#define ZRFX_PNG_IO_H

#include <string>

#include "zrfx/frame.h"

namespace zrfx {

struct PngPicture {
  Frame frame;
  bool hasAlpha;  // the file had an alpha channel or a transparency chunk
};

// Throws UsageError when the file is missing, not a PNG, or too large.
PngPicture ReadPng(const std::string& path);

// Writes 8-bit RGBA, or 8-bit RGB (byte 3 of each pixel dropped) when
// `withAlpha` is false. Throws RunError when the file cannot be written.
void WritePng(const std::string& path, const Frame& frame, bool withAlpha);

}  // namespace zrfx

#endif
