// Double-to-integer conversions with the machine behaviour that the canvas
// arithmetic is defined by, written so that no input is undefined in C++.
#ifndef ZR_CANVAS_CONVERT_H
#define ZR_CANVAS_CONVERT_H

#include <cstdint>
#include <initializer_list>

namespace zr {

// Truncates toward zero through a 64-bit integer and keeps the low 32 bits,
// as a 64-bit truncating conversion followed by a 32-bit store does. Values
// outside the 64-bit range (and NaN) give the x86-64 "integer indefinite"
// 0x8000000000000000, whose low 32 bits are 0.
inline uint32_t TruncToU32(double v) {
  if (!(v >= -9223372036854775808.0 && v < 9223372036854775808.0)) return 0;
  return static_cast<uint32_t>(static_cast<uint64_t>(static_cast<int64_t>(v)));
}

// Truncates toward zero into a signed 32-bit integer; out of range (and NaN)
// gives 0x80000000, the x86-64 "integer indefinite".
inline int32_t TruncToI32(double v) {
  if (!(v > -2147483649.0 && v < 2147483648.0)) return INT32_MIN;
  return static_cast<int32_t>(v);
}

// The low byte of a truncated value: how a component × 255.0 becomes a byte.
inline uint8_t TruncToByte(double v) { return static_cast<uint8_t>(TruncToU32(v)); }

// Holds each of r, g and b to 0 to 1, as the clamped colour matrices do.
inline void ClampRgb01(double& r, double& g, double& b) {
  for (double* v : {&r, &g, &b}) {
    if (*v > 1.0)
      *v = 1.0;
    else if (*v < 0.0)
      *v = 0.0;
  }
}

}  // namespace zr

#endif
