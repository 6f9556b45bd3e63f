#include "platform/int_divide.h"

namespace zr::platform {

uint32_t DivideByZero(uint32_t num) {
#if defined(__x86_64__)
  // Run the processor's own divide instruction on a zero divisor, so that the
  // fault is the genuine one: same signal, same code, same thread, and a host
  // handler that returns sees the instruction retried, as it would be.
  uint32_t quotient = num;
  uint32_t remainder = 0;
  const uint32_t zero = 0;
  asm volatile("divl %2" : "+a"(quotient), "+d"(remainder) : "r"(zero));
  return quotient;
#else
  // The arm64 divide instruction returns 0 for a zero divisor.
  static_cast<void>(num);
  return 0;
#endif
}

}  // namespace zr::platform
