// The platform layer: events, locks, threads, interlocked counts, the
// application directory, allocation, fast copy and fill, and the error log.
// Internal to the library; nothing here is exported.
#ifndef ZR_PLATFORM_ZRUTIL_H
#define ZR_PLATFORM_ZRUTIL_H

#include <cstddef>
#include <cstdint>

#include "zrplatform.h"

// Result of zrOSWaitForEvent.
constexpr unsigned int kZrWaitSignaled = 0;
constexpr unsigned int kZrWaitTimeout = 0x102;
constexpr unsigned int kZrWaitFailed = 0xFFFFFFFF;
// A timeout of this value waits without limit.
constexpr unsigned int kZrInfinite = 0xFFFFFFFF;

// Events. With manualReset 0 a successful wait clears the event again.
// The first and last arguments (security record, name) are accepted and unused.
ZrHandle zrOSCreateEvent(void* security, int manualReset, int initialState, const char* name);
int zrOSCloseEvent(ZrHandle event);
int zrOSSetEvent(ZrHandle event);
// Waits up to timeoutMs milliseconds; a null handle gives kZrWaitFailed.
unsigned int zrOSWaitForEvent(ZrHandle event, unsigned int timeoutMs);

// Recursive critical sections.
void zrOSInitializeCriticalSection(ZrCriticalSection* cs);
void zrOSDeleteCriticalSection(ZrCriticalSection* cs);
void zrOSEnterCriticalSection(ZrCriticalSection* cs);
void zrOSLeaveCriticalSection(ZrCriticalSection* cs);
// Non-zero when taken, 0 when another thread holds it.
int zrOSTryEnterCriticalSection(ZrCriticalSection* cs);

// Threads. The thread starts at once; the name is cut to the platform's
// 15-character limit. zrOSCloseThread gives the handle back without waiting:
// the thread runs on, detached, and frees its own record when it ends.
typedef unsigned int (*ZrThreadEntry)(void* parameter);
ZrHandle zrOSCreateThread(void* security, size_t stackSize, ZrThreadEntry entry, void* parameter,
                          unsigned int flags, unsigned long* threadId, const char* name);
int zrOSCloseThread(ZrHandle thread, const char* name);

// Priorities on a scale where 0 is normal and 15 is the highest used here.
// The value is kept per thread and read back as set. Applying it to the
// scheduler is best effort: without privileges it changes nothing, and that
// is never an error.
int zrOSSetThreadPriority(ZrHandle thread, int priority);
int zrOSGetThreadPriority(ZrHandle thread);
// A handle that always means the calling thread.
ZrHandle zrOSGetCurrentThread();

// Atomic change of a 32-bit count; each returns the new value.
int zrOSInterlockedIncrement(volatile int* count);
int zrOSInterlockedDecrement(volatile int* count);
// Atomic read of a count changed by the two operations above.
int zrOSInterlockedRead(const volatile int* count);

// The directory of the running program, with '/' at its end.
void zrOSGetAppDir(char* buffer);
// Non-zero when the path exists.
int zrOSFileExists(const char* path);

// Allocation: a pointer or null. A test hook may make it throw.
void* ZrAlloc(size_t size);
void ZrFree(void* pointer);

// memcpy-speed copy of non-overlapping memory.
void CopyMemoryFast(void* target, const void* source, size_t bytes);
// Fills bytes with the 32-bit word value repeated in memory order; a count
// that is not a multiple of 4 ends with the first bytes of the word.
void SetMemoryFast(void* target, uint32_t value, size_t bytes);

// The error log: one formatted line to standard error, or to the test hook.
void ErrOut(const char* format, ...) __attribute__((format(printf, 1, 2)));

#endif
