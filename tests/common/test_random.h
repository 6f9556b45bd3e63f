// Seeded random data for tests: reproducible across builds and architectures.
#ifndef ZR_TESTS_TEST_RANDOM_H
#define ZR_TESTS_TEST_RANDOM_H

#include <cstddef>
#include <cstdint>

namespace zr::test {

// xorshift64*: the same sequence on every platform and standard library.
class Rng {
 public:
  explicit Rng(uint64_t seed) : state_(seed ? seed : 0x9E3779B97F4A7C15ull) {}
  uint64_t Next() {
    state_ ^= state_ >> 12, state_ ^= state_ << 25, state_ ^= state_ >> 27;
    return state_ * 0x2545F4914F6CDD1Dull;
  }
  uint32_t Next32() { return static_cast<uint32_t>(Next() >> 32); }
  // Uniform in [0, n).
  uint32_t Below(uint32_t n) { return static_cast<uint32_t>((Next() >> 32) * n >> 32); }
  void Fill(void* p, size_t n) {
    for (size_t i = 0; i < n; ++i) static_cast<uint8_t*>(p)[i] = static_cast<uint8_t>(Next() >> 56);
  }

 private:
  uint64_t state_;
};

}  // namespace zr::test

#endif
