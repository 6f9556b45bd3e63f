// CRC-32 (IEEE) of output buffers, for golden checksums shared by every build.
#ifndef ZR_TESTS_CRC32_H
#define ZR_TESTS_CRC32_H

#include <cstddef>
#include <cstdint>

namespace zr::test {

inline uint32_t Crc32(const void* data, size_t n, uint32_t crc = 0) {
  const auto* p = static_cast<const uint8_t*>(data);
  crc = ~crc;
  for (size_t i = 0; i < n; ++i) {
    crc ^= p[i];
    for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return ~crc;
}

}  // namespace zr::test

#endif
