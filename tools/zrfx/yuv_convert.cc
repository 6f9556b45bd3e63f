#include "zrfx/yuv_convert.h"

namespace zrfx {
namespace {

constexpr size_t kSpare = 256;

struct Ycc {
  int y, cb, cr;
};

uint8_t Clamp8(int v) { return static_cast<uint8_t>(v < 0 ? 0 : v > 255 ? 255 : v); }

Ycc ToYcc(const uint8_t* p) {
  const int r = p[0], g = p[1], b = p[2];
  return {16 + ((47 * r + 157 * g + 16 * b + 128) >> 8), 128 + ((-26 * r - 86 * g + 112 * b + 128) >> 8),
          128 + ((112 * r - 102 * g - 10 * b + 128) >> 8)};
}

void FromYcc(int y, int cb, int cr, uint8_t* p) {
  const int c = 298 * (y - 16), d = cb - 128, e = cr - 128;
  p[0] = Clamp8((c + 459 * e + 128) >> 8);
  p[1] = Clamp8((c - 55 * d - 136 * e + 128) >> 8);
  p[2] = Clamp8((c + 541 * d + 128) >> 8);
  p[3] = 255;
}

PackedVideo Allocate(uint32_t width, uint32_t height, uint32_t pitch) {
  PackedVideo video{width, height, pitch, {}};
  video.bytes.assign(static_cast<size_t>(pitch) * height + kSpare, 0);
  return video;
}

// The pixel at x, or the last one of the row where a group runs past it.
const uint8_t* Source(const Frame& frame, uint32_t x, uint32_t y) {
  return frame.Pixel(x < frame.width() ? x : frame.width() - 1, y);
}

uint32_t Field(uint32_t word, int shift) { return (word >> shift) & 0x3FF; }

uint32_t ReadLe32(const uint8_t* p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 | static_cast<uint32_t>(p[2]) << 16 |
         static_cast<uint32_t>(p[3]) << 24;
}

void WriteLe32(uint8_t* p, uint32_t v) {
  for (int k = 0; k < 4; ++k) p[k] = static_cast<uint8_t>(v >> (8 * k));
}

}  // namespace

uint32_t V210Pitch(uint32_t width) { return (width + 47) / 48 * 128; }

PackedVideo RgbaToPairs422(const Frame& frame) {
  PackedVideo video = Allocate(frame.width(), frame.height(), (frame.width() + 1) / 2 * 4);
  for (uint32_t y = 0; y < frame.height(); ++y)
    for (uint32_t x = 0; x < frame.width(); x += 2) {
      const Ycc a = ToYcc(Source(frame, x, y)), b = ToYcc(Source(frame, x + 1, y));
      uint8_t* out = video.bytes.data() + static_cast<size_t>(y) * video.pitch + 2 * x;
      out[0] = Clamp8((a.cb + b.cb + 1) / 2);
      out[1] = Clamp8(a.y);
      out[2] = Clamp8(b.y);
      out[3] = Clamp8((a.cr + b.cr + 1) / 2);
    }
  return video;
}

Frame Pairs422ToRgba(const PackedVideo& video) {
  Frame frame(video.width, video.height);
  for (uint32_t y = 0; y < video.height; ++y)
    for (uint32_t x = 0; x < video.width; ++x) {
      const uint8_t* pair = video.bytes.data() + static_cast<size_t>(y) * video.pitch + 2 * (x & ~1u);
      FromYcc(pair[1 + (x & 1)], pair[0], pair[3], frame.Pixel(x, y));
    }
  return frame;
}

PackedVideo RgbaToV210(const Frame& frame) {
  PackedVideo video = Allocate(frame.width(), frame.height(), V210Pitch(frame.width()));
  for (uint32_t y = 0; y < frame.height(); ++y)
    for (uint32_t x = 0; x < frame.width(); x += 6) {
      uint32_t ys[6], cb[3], cr[3];
      for (uint32_t i = 0; i < 6; i += 2) {
        const Ycc a = ToYcc(Source(frame, x + i, y)), b = ToYcc(Source(frame, x + i + 1, y));
        ys[i] = static_cast<uint32_t>(Clamp8(a.y)) << 2;
        ys[i + 1] = static_cast<uint32_t>(Clamp8(b.y)) << 2;
        cb[i / 2] = static_cast<uint32_t>(Clamp8((a.cb + b.cb + 1) / 2)) << 2;
        cr[i / 2] = static_cast<uint32_t>(Clamp8((a.cr + b.cr + 1) / 2)) << 2;
      }
      uint8_t* out = video.bytes.data() + static_cast<size_t>(y) * video.pitch + x / 6 * 16;
      WriteLe32(out, cb[0] | ys[0] << 10 | cr[0] << 20);
      WriteLe32(out + 4, ys[1] | cb[1] << 10 | ys[2] << 20);
      WriteLe32(out + 8, cr[1] | ys[3] << 10 | cb[2] << 20);
      WriteLe32(out + 12, ys[4] | cr[2] << 10 | ys[5] << 20);
    }
  return video;
}

Frame V210ToRgba(const PackedVideo& video) {
  Frame frame(video.width, video.height);
  for (uint32_t y = 0; y < video.height; ++y)
    for (uint32_t x = 0; x < video.width; x += 6) {
      const uint8_t* in = video.bytes.data() + static_cast<size_t>(y) * video.pitch + x / 6 * 16;
      const uint32_t w0 = ReadLe32(in), w1 = ReadLe32(in + 4), w2 = ReadLe32(in + 8), w3 = ReadLe32(in + 12);
      const uint32_t ys[6] = {Field(w0, 10), Field(w1, 0), Field(w1, 20),
                              Field(w2, 10), Field(w3, 0), Field(w3, 20)};
      const uint32_t cb[3] = {Field(w0, 0), Field(w1, 10), Field(w2, 20)};
      const uint32_t cr[3] = {Field(w0, 20), Field(w2, 0), Field(w3, 10)};
      for (uint32_t i = 0; i < 6 && x + i < video.width; ++i)
        FromYcc(static_cast<int>(ys[i] >> 2), static_cast<int>(cb[i / 2] >> 2),
                static_cast<int>(cr[i / 2] >> 2), frame.Pixel(x + i, y));
    }
  return frame;
}

}  // namespace zrfx
