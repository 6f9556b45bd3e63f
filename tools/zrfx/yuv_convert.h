// Conversions between 8-bit RGBA and the two subsampled layouts that the
// wipe adapters take: packed 8-bit 4:2:2 and 10-bit v210.
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

// 4:2:2 pairs in the order that ZrDraw_DisplayWipeYCbCr gives its bytes by
// position: Cb, even Y, odd Y, Cr. The pair's chroma then stays with the
// even pixel, which is all that is left of the last pair of an odd width.
PackedVideo RgbaToPairs422(const Frame& frame);
Frame Pairs422ToRgba(const PackedVideo& video);
PackedVideo RgbaToV210(const Frame& frame);
Frame V210ToRgba(const PackedVideo& video);

}  // namespace zrfx

#endif
