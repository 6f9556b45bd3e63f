// The format groups of the effects: which codes an effect accepts and how
// many bytes a pixel of each has. An effect looks only at the sample layout,
// never at what the samples mean.
#ifndef ZR_FX_FX_FORMAT_H
#define ZR_FX_FX_FORMAT_H

#include <cstdint>

namespace zr::fx {

enum class FxFormatGroup : uint8_t {
  kNone,
  kFormat8x4,
  kFormat8x3,
  kFormat16x4,
  kFormat16x3,
  kFormatF32x4,
  kFormatF32x3,
};

struct FxFormatInfo {
  uint32_t format;
  FxFormatGroup group;
  uint32_t samplesPerPixel;
  uint32_t bytesPerPixel;

  constexpr uint32_t BytesPerSample() const { return samplesPerPixel ? bytesPerPixel / samplesPerPixel : 0; }
};

inline constexpr FxFormatInfo kFxFormats[] = {
    {1, FxFormatGroup::kFormat8x4, 4, 4},     {2, FxFormatGroup::kFormat8x4, 4, 4},
    {3, FxFormatGroup::kFormat8x4, 4, 4},     {4, FxFormatGroup::kFormat8x4, 4, 4},
    {34, FxFormatGroup::kFormat8x4, 4, 4},    {5, FxFormatGroup::kFormat8x3, 3, 3},
    {6, FxFormatGroup::kFormat8x3, 3, 3},     {33, FxFormatGroup::kFormat8x3, 3, 3},
    {31, FxFormatGroup::kFormat16x3, 3, 6},   {35, FxFormatGroup::kFormat16x3, 3, 6},
    {32, FxFormatGroup::kFormat16x4, 4, 8},   {36, FxFormatGroup::kFormat16x4, 4, 8},
    {29, FxFormatGroup::kFormatF32x4, 4, 16}, {30, FxFormatGroup::kFormatF32x3, 3, 12},
};

// The entry of a format code, or a kNone entry with 0 bytes per pixel for a
// code that belongs to no group.
constexpr FxFormatInfo FxFormatOf(uint32_t format) {
  for (const FxFormatInfo& info : kFxFormats)
    if (info.format == format) return info;
  return {format, FxFormatGroup::kNone, 0, 0};
}

}  // namespace zr::fx

#endif
