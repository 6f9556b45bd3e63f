// Interlocked 32-bit counts.
#include "platform/zrutil.h"

int zrOSInterlockedIncrement(volatile int* count) { return __atomic_add_fetch(count, 1, __ATOMIC_SEQ_CST); }

int zrOSInterlockedDecrement(volatile int* count) { return __atomic_sub_fetch(count, 1, __ATOMIC_SEQ_CST); }

int zrOSInterlockedRead(const volatile int* count) { return __atomic_load_n(count, __ATOMIC_SEQ_CST); }
