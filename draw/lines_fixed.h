// 32-bit arithmetic of the line family. Coordinates, deltas and the 16.16
// accumulators wrap silently, as the machine's 32-bit registers do; every
// wrap and every shift of a negative value is spelled out here so that the
// compiler cannot treat it as undefined.
#ifndef ZR_DRAW_LINES_FIXED_H
#define ZR_DRAW_LINES_FIXED_H

#include <cstdint>

namespace zr::lines {

inline int32_t Add(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

inline int32_t Sub(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

// |v| as an unsigned number: INT32_MIN gives 0x80000000.
inline uint32_t UnsignedAbs(int32_t v) {
  return v < 0 ? 0u - static_cast<uint32_t>(v) : static_cast<uint32_t>(v);
}

// |v| read back as signed: INT32_MIN stays INT32_MIN.
inline int32_t Abs(int32_t v) { return static_cast<int32_t>(UnsignedAbs(v)); }

// v shifted left 16 within 32 bits: the top 16 bits of v are lost.
inline int32_t Shl16(int32_t v) { return static_cast<int32_t>(static_cast<uint32_t>(v) << 16); }

// Arithmetic shift right by 16, rounding toward minus infinity (C++20 defines
// >> on negative values this way).
inline int32_t Sar16(int32_t v) { return v >> 16; }

// The low 16 bits of v, sign extended: the coordinate that a 16.16
// accumulator started from v holds.
inline int32_t Low16(int32_t v) { return Sar16(Shl16(v)); }

// Signed division truncating toward zero. The two quotients the processor
// has no answer for arise only from deltas that wrapped (ends 2^31 or more
// apart): a zero divisor gives 0 and INT32_MIN / -1 wraps to INT32_MIN, in
// both builds, so that such a line cannot stop a playout by itself.
inline int32_t Divide(int32_t num, int32_t den) {
  if (den == 0) return 0;
  if (den == -1) return static_cast<int32_t>(0u - static_cast<uint32_t>(num));
  return num / den;
}

}  // namespace zr::lines

#endif
