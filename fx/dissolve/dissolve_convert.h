// The number conversions of the dissolve, with the answers that the two
// builds' processors give where C++ would leave the result undefined: a
// value that fits no integer, a not-a-number, a double beyond float range.
// Every form of the mix, plain or vector, must agree with these.
#ifndef ZR_FX_DISSOLVE_DISSOLVE_CONVERT_H
#define ZR_FX_DISSOLVE_DISSOLVE_CONVERT_H

#include <cmath>
#include <cstdint>
#include <limits>

namespace zr::fx {

// Truncation toward zero to a 32-bit integer. Out of range or not a number:
// the SSE build gives the "integer indefinite" 0x80000000 of cvttsd2si; the
// NEON build saturates, with 0 for not-a-number, as fcvtzs does.
inline int32_t zrfxTruncToInt32(double v) {
  if (v > -2147483649.0 && v < 2147483648.0) return static_cast<int32_t>(v);
#if defined(__aarch64__)
  if (std::isnan(v)) return 0;
  return v > 0 ? std::numeric_limits<int32_t>::max() : std::numeric_limits<int32_t>::min();
#else
  return std::numeric_limits<int32_t>::min();
#endif
}

// Truncation toward zero to a 64-bit integer, with the same machine answers
// as above at 64 bits.
inline int64_t zrfxTruncToInt64(float v) {
  if (v >= -0x1p63f && v < 0x1p63f) return static_cast<int64_t>(v);
#if defined(__aarch64__)
  if (std::isnan(v)) return 0;
  return v > 0 ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
#else
  return std::numeric_limits<int64_t>::min();
#endif
}

// Rounding to float, to nearest. A finite double beyond float range becomes
// the largest float below the half-way point to 2^128 and infinity from it
// on, as the processor rounds.
inline float zrfxNarrowToFloat(double v) {
  constexpr double kMax = std::numeric_limits<float>::max();
  constexpr double kHalfway = 0x1.ffffffp127;
  if (v > kMax || v < -kMax) {
    const float big =
        std::fabs(v) >= kHalfway ? std::numeric_limits<float>::infinity() : std::numeric_limits<float>::max();
    return v > 0 ? big : -big;
  }
  return static_cast<float>(v);
}

// The mix weight t: progress over the span, both as exact doubles. A zero
// span gives what the division of doubles gives: infinity, or for a
// progress of 0 the processor's default not-a-number (negative on x86-64).
inline double zrfxDissolveRatio(uint32_t progress, uint32_t span) {
  if (span != 0) return static_cast<double>(progress) / static_cast<double>(span);
  if (progress != 0) return std::numeric_limits<double>::infinity();
#if defined(__aarch64__)
  return std::numeric_limits<double>::quiet_NaN();
#else
  return -std::numeric_limits<double>::quiet_NaN();
#endif
}

}  // namespace zr::fx

#endif
