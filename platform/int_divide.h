// Unsigned 32-bit division with the divide-by-zero behaviour of each build.
//
// Hosts see what the processor does with an integer division by zero: on
// x86-64 the division faults (SIGFPE, FPE_INTDIV, on the dividing thread); on
// aarch64 the quotient is 0. Both are produced on purpose rather than left to
// the compiler, for which a division by zero is undefined.
#ifndef ZR_PLATFORM_INT_DIVIDE_H
#define ZR_PLATFORM_INT_DIVIDE_H

#include <cstdint>

namespace zr::platform {

// The zero-divisor case: faults on x86-64, returns 0 on aarch64.
uint32_t DivideByZero(uint32_t num);

inline uint32_t DivideOrFault(uint32_t num, uint32_t den) {
  if (den == 0) [[unlikely]]
    return DivideByZero(num);
  return num / den;
}

}  // namespace zr::platform

#endif
