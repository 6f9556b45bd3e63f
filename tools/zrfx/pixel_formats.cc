#include "zrfx/pixel_formats.h"

#include <strings.h>
#include <zrdraw.h>

#include <bit>

#include "zrfx/errors.h"

namespace zrfx {
namespace {

// The 16-bit canvases store words in the machine's byte order, which the
// "le" of rgb48le names.
static_assert(std::endian::native == std::endian::little, "the 16-bit layouts are named little-endian");

constexpr PixelFormat kFormats[] = {
    {pixelRGBA32, "pixelRGBA32", "rgba", "bytes R G B A", 1, 4, 1},
    {pixelARGB32, "pixelARGB32", "argb", "bytes A R G B", 1, 4, 1},
    {pixelBGRA32, "pixelBGRA32", "bgra", "bytes B G R A", 1, 4, 1},
    {pixelABGR32, "pixelABGR32", "abgr", "bytes A B G R", 1, 4, 1},
    {pixelRGB24, "pixelRGB24", "rgb24", "bytes R G B", 1, 3, 1},
    {pixelBGR24, "pixelBGR24", "bgr24", "bytes B G R", 1, 3, 1},
    {pixelYUYV, "pixelYUYV", "yuyv422", "two pixels in bytes Y0 Cb Y1 Cr", 2, 4, 2},
    {pixelUYVY, "pixelUYVY", "uyvy422", "two pixels in bytes Cb Y0 Cr Y1", 2, 4, 2},
    {pixelYVYU, "pixelYVYU", "yvyu422", "two pixels in bytes Y0 Cr Y1 Cb", 2, 4, 2},
    {pixelVYUY, "pixelVYUY", nullptr, "two pixels in bytes Cr Y0 Cb Y1", 2, 4, 2},
    {pixelV210, "pixelV210", "v210", "six 10-bit 4:2:2 pixels in 16 bytes, rows of 48", 6, 16, 48},
    {pixelRGB30DPX, "pixelRGB30DPX", nullptr, "10-bit R G B in a big-endian 32-bit word", 1, 4, 1},
    {pixelBayerBGGR, "pixelBayerBGGR", nullptr, "12-bit Bayer B G / G R, two pixels in 3 bytes", 2, 3, 2},
    {pixelBayerRGGB, "pixelBayerRGGB", nullptr, "12-bit Bayer R G / G B, two pixels in 3 bytes", 2, 3, 2},
    {pixelBayerGBRG, "pixelBayerGBRG", nullptr, "12-bit Bayer G B / R G, two pixels in 3 bytes", 2, 3, 2},
    {pixelBayerGRBG, "pixelBayerGRBG", nullptr, "12-bit Bayer G R / B G, two pixels in 3 bytes", 2, 3, 2},
    {pixelBayerBGGR2, "pixelBayerBGGR2", nullptr, "as pixelBayerBGGR", 2, 3, 2},
    {pixelBayerRGGB2, "pixelBayerRGGB2", nullptr, "as pixelBayerRGGB", 2, 3, 2},
    {pixelBayerGBRG2, "pixelBayerGBRG2", nullptr, "as pixelBayerGBRG", 2, 3, 2},
    {pixelBayerGRBG2, "pixelBayerGRBG2", nullptr, "as pixelBayerGRBG", 2, 3, 2},
    {pixelRGB48, "pixelRGB48", "rgb48le", "16-bit words R G B", 1, 6, 1},
    {pixelARGB64, "pixelARGB64", nullptr, "16-bit words A R G B", 1, 8, 1},
    {pixelRGBHalf48, "pixelRGBHalf48", nullptr, "16-bit words R G B, as pixelRGB48", 1, 6, 1},
    {pixelARGBHalf64, "pixelARGBHalf64", nullptr, "16-bit words A R G B, as pixelARGB64", 1, 8, 1},
    {pixelUV8, "pixelUV8", nullptr, "bytes Cb Cr", 1, 2, 1},
    {pixelUV16, "pixelUV16", nullptr, "16-bit words Cb Cr", 1, 4, 1},
};

}  // namespace

uint64_t PixelFormat::RowBytes(uint32_t width) const {
  const uint64_t paddedPixels = (static_cast<uint64_t>(width) + rowPixels - 1) / rowPixels * rowPixels;
  return (paddedPixels + groupPixels - 1) / groupPixels * groupBytes;
}

std::span<const PixelFormat> PixelFormats() { return kFormats; }

const PixelFormat& ParsePixelFormat(const std::string& text) {
  for (const PixelFormat& f : kFormats)
    if ((f.rawName && strcasecmp(text.c_str(), f.rawName) == 0) ||
        strcasecmp(text.c_str(), f.enumerator) == 0 || text == std::to_string(f.type))
      return f;
  throw UsageError("unknown pixel format '" + text + "' (see zrfx draw --help)");
}

}  // namespace zrfx
