// The single-byte rule of weigh_plane, for weigh_plane_test.cc alone.
#ifndef ZR_TESTS_MUX_MUX_MODEL_H
#define ZR_TESTS_MUX_MUX_MODEL_H

#include <cstdint>

namespace zr::test {

inline void ModelWeighPlane(uint8_t* dst, const uint8_t* src, int32_t dstPitch, int32_t srcPitch,
                            int32_t width, int32_t height, int32_t weightSrc, int32_t weightDst) {
  for (int64_t y = 0; y < height; ++y)
    for (int64_t x = 0; x < width; ++x) {
      uint8_t& d = dst[y * dstPitch + x];
      const int64_t sum = int64_t{d} * weightDst + int64_t{src[y * srcPitch + x]} * weightSrc + 32768;
      // Two's complement wrap to 32 bits, then bits 16 to 23.
      d = static_cast<uint8_t>((static_cast<uint64_t>(sum) & 0xFFFFFFFF) >> 16);
    }
}

}  // namespace zr::test

#endif
