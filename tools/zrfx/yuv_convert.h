// Conversions between 8-bit RGBA and the two subsampled layouts that the
// wipe adapters take: packed 8-bit 4:2:2 in Cb Y Cr Y order and 10-bit v210.
// BT.709 at studio range, in integer arithmetic; chroma of a pixel pair is
// the mean of the two. Used to feed the adapters and to view their output.
#ifndef ZRFX_YUV_CONVERT_H
#define ZRFX_YUV_CONVERT_H

#include <cstdint>
#include <vector>

#include "zrfx/frame.h"

namespace zrfx {

struct PackedVideo {
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t pitch = 0;
  // height rows of `pitch` bytes, then spare bytes: the adapters read and
  // write whole pixel groups, past the row's end when the width is no
  // multiple of the group.
  std::vector<uint8_t> bytes;
};

// Bytes a v210 row takes: 128 for each started group of 48 pixels.
uint32_t V210Pitch(uint32_t width);

PackedVideo RgbaToUyvy(const Frame& frame);
Frame UyvyToRgba(const PackedVideo& video);
PackedVideo RgbaToV210(const Frame& frame);
Frame V210ToRgba(const PackedVideo& video);

}  // namespace zrfx

#endif
