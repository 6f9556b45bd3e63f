// The six sorts of samples that an effect tells apart, and the format codes
// that fall into each. Effects look at the width and count of the samples
// only, never at what they mean.
#ifndef ZR_FX_DISSOLVE_FX_FORMAT_GROUP_H
#define ZR_FX_DISSOLVE_FX_FORMAT_GROUP_H

#include <cstdint>

namespace zr::fx {

enum zrfxFormatGroup : uint32_t {
  fxFormatNone,
  fxFormat8x4,
  fxFormat8x3,
  fxFormat16x4,
  fxFormat16x3,
  fxFormatF32x4,
  fxFormatF32x3,
};

struct zrfxFormatInfo {
  zrfxFormatGroup group;
  uint32_t samplesPerPixel;
  uint32_t bytesPerSample;

  constexpr uint32_t BytesPerPixel() const { return samplesPerPixel * bytesPerSample; }
};

inline constexpr zrfxFormatInfo kZrfxNoGroup{fxFormatNone, 0, 0};

struct zrfxFormatEntry {
  uint32_t format;
  zrfxFormatInfo info;
};

inline constexpr zrfxFormatEntry kZrfxFormatTable[] = {
    {1, {fxFormat8x4, 4, 1}},    {2, {fxFormat8x4, 4, 1}},    {3, {fxFormat8x4, 4, 1}},
    {4, {fxFormat8x4, 4, 1}},    {34, {fxFormat8x4, 4, 1}},   {5, {fxFormat8x3, 3, 1}},
    {6, {fxFormat8x3, 3, 1}},    {33, {fxFormat8x3, 3, 1}},   {31, {fxFormat16x3, 3, 2}},
    {35, {fxFormat16x3, 3, 2}},  {32, {fxFormat16x4, 4, 2}},  {36, {fxFormat16x4, 4, 2}},
    {29, {fxFormatF32x4, 4, 4}}, {30, {fxFormatF32x3, 3, 4}},
};

// The group of a format code; kZrfxNoGroup for every code outside the table.
constexpr zrfxFormatInfo zrfxFormatInfoOf(uint32_t format) {
  for (const auto& entry : kZrfxFormatTable)
    if (entry.format == format) return entry.info;
  return kZrfxNoGroup;
}

}  // namespace zr::fx

#endif
