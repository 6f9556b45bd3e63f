#include "zrfx/y4m_convert.h"

#include <cstring>

namespace zrfx {
namespace {

uint32_t Read16(const uint8_t* p) { return p[0] | static_cast<uint32_t>(p[1]) << 8; }
void Write16(uint8_t* p, uint32_t v) {
  p[0] = static_cast<uint8_t>(v);
  p[1] = static_cast<uint8_t>(v >> 8);
}
uint32_t Read32(const uint8_t* p) { return Read16(p) | Read16(p + 2) << 16; }
void Write32(uint8_t* p, uint32_t v) {
  Write16(p, v & 0xFFFF);
  Write16(p + 2, v >> 16);
}

// The three planes of a frame whose chroma rows hold `chromaWidth` samples of
// `sampleBytes` bytes each.
template <typename Byte>
struct Planes {
  Byte* y;
  Byte* cb;
  Byte* cr;
  size_t lumaRow, chromaRow;  // bytes

  Planes(Byte* planar, const Y4mHeader& h, uint32_t chromaWidth, size_t sampleBytes)
      : lumaRow(h.width * sampleBytes), chromaRow(chromaWidth * sampleBytes) {
    y = planar;
    cb = y + lumaRow * h.height;
    cr = cb + chromaRow * h.height;
  }
};

// 4:2:2 rows in the Cb Y Cr Y order of uyvy422 and v210: the address of
// sample i of a row. 10-bit samples keep their low 10 bits.
template <class Byte>
Byte* RowSampleAt(const Planes<Byte>& p, size_t row, uint32_t i) {
  const uint32_t pair = i / 4;
  switch (i % 4) {
    case 0:
      return p.cb + row * p.chromaRow + pair * 2;
    case 2:
      return p.cr + row * p.chromaRow + pair * 2;
    default:
      return p.y + row * p.lumaRow + (2 * pair + i % 4 / 2) * 2;
  }
}

uint32_t RowSample(const Planes<const uint8_t>& p, size_t row, uint32_t i) {
  return Read16(RowSampleAt(p, row, i)) & 0x3FF;
}

void SetRowSample(const Planes<uint8_t>& p, size_t row, uint32_t i, uint32_t v) {
  Write16(RowSampleAt(p, row, i), v);
}

void ToUyvy(const Y4mHeader& h, const uint8_t* planar, uint8_t* packed, uint32_t pitch) {
  const Planes p(planar, h, h.width / 2, 1);
  for (size_t row = 0; row < h.height; ++row)
    for (uint32_t x = 0; x < h.width; x += 2) {
      uint8_t* out = packed + row * pitch + 2 * x;
      out[0] = p.cb[row * p.chromaRow + x / 2];
      out[1] = p.y[row * p.lumaRow + x];
      out[2] = p.cr[row * p.chromaRow + x / 2];
      out[3] = p.y[row * p.lumaRow + x + 1];
    }
}

void FromUyvy(const Y4mHeader& h, const uint8_t* packed, uint32_t pitch, uint8_t* planar) {
  const Planes p(planar, h, h.width / 2, 1);
  for (size_t row = 0; row < h.height; ++row)
    for (uint32_t x = 0; x < h.width; x += 2) {
      const uint8_t* in = packed + row * pitch + 2 * x;
      p.cb[row * p.chromaRow + x / 2] = in[0];
      p.y[row * p.lumaRow + x] = in[1];
      p.cr[row * p.chromaRow + x / 2] = in[2];
      p.y[row * p.lumaRow + x + 1] = in[3];
    }
}

// v210: each little-endian word holds three 10-bit samples of the row's
// Cb Y Cr Y sequence in bits 0-9, 10-19 and 20-29.
void ToV210(const Y4mHeader& h, const uint8_t* planar, uint8_t* packed, uint32_t pitch) {
  const Planes p(planar, h, h.width / 2, 2);
  const uint32_t samples = 2 * h.width;
  for (size_t row = 0; row < h.height; ++row)
    for (uint32_t word = 0; word < pitch / 4; ++word) {
      uint32_t v = 0;
      for (uint32_t k = 0; k < 3; ++k) {
        const uint32_t i = 3 * word + k;
        if (i < samples) v |= RowSample(p, row, i) << (10 * k);
      }
      Write32(packed + row * pitch + 4 * word, v);
    }
}

void FromV210(const Y4mHeader& h, const uint8_t* packed, uint32_t pitch, uint8_t* planar) {
  const Planes p(planar, h, h.width / 2, 2);
  for (size_t row = 0; row < h.height; ++row)
    for (uint32_t i = 0; i < 2 * h.width; ++i)
      SetRowSample(p, row, i, Read32(packed + row * pitch + 4 * (i / 3)) >> (10 * (i % 3)) & 0x3FF);
}

// 4:4:4: each pixel's Y, Cb and Cr samples side by side.
void To444(const Y4mHeader& h, size_t sampleBytes, const uint8_t* planar, uint8_t* packed, uint32_t pitch) {
  const Planes p(planar, h, h.width, sampleBytes);
  for (size_t row = 0; row < h.height; ++row)
    for (size_t x = 0; x < h.width; ++x) {
      uint8_t* out = packed + row * pitch + 3 * sampleBytes * x;
      const size_t at = row * p.lumaRow + x * sampleBytes;
      std::memcpy(out, p.y + at, sampleBytes);
      std::memcpy(out + sampleBytes, p.cb + at, sampleBytes);
      std::memcpy(out + 2 * sampleBytes, p.cr + at, sampleBytes);
    }
}

void From444(const Y4mHeader& h, size_t sampleBytes, const uint8_t* packed, uint32_t pitch, uint8_t* planar) {
  const Planes p(planar, h, h.width, sampleBytes);
  for (size_t row = 0; row < h.height; ++row)
    for (size_t x = 0; x < h.width; ++x) {
      const uint8_t* in = packed + row * pitch + 3 * sampleBytes * x;
      const size_t at = row * p.lumaRow + x * sampleBytes;
      std::memcpy(p.y + at, in, sampleBytes);
      std::memcpy(p.cb + at, in + sampleBytes, sampleBytes);
      std::memcpy(p.cr + at, in + 2 * sampleBytes, sampleBytes);
    }
}

}  // namespace

void PlanarToPacked(const Y4mHeader& h, const uint8_t* planar, uint8_t* packed, uint32_t pitch) {
  switch (h.chroma) {
    case Y4mChroma::k422:
      return ToUyvy(h, planar, packed, pitch);
    case Y4mChroma::k422p10:
      return ToV210(h, planar, packed, pitch);
    case Y4mChroma::k444:
      return To444(h, 1, planar, packed, pitch);
    case Y4mChroma::k444p10:
      return To444(h, 2, planar, packed, pitch);
  }
}

void PackedToPlanar(const Y4mHeader& h, const uint8_t* packed, uint32_t pitch, uint8_t* planar) {
  switch (h.chroma) {
    case Y4mChroma::k422:
      return FromUyvy(h, packed, pitch, planar);
    case Y4mChroma::k422p10:
      return FromV210(h, packed, pitch, planar);
    case Y4mChroma::k444:
      return From444(h, 1, packed, pitch, planar);
    case Y4mChroma::k444p10:
      return From444(h, 2, packed, pitch, planar);
  }
}

}  // namespace zrfx
