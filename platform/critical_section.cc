// Recursive critical sections on pthread mutexes.
#include "platform/zrutil.h"

void zrOSInitializeCriticalSection(ZrCriticalSection* cs) {
  pthread_mutexattr_t attr;
  pthread_mutexattr_init(&attr);
  pthread_mutexattr_settype(&attr, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutex_init(&cs->mutex, &attr);
  pthread_mutexattr_destroy(&attr);
}

void zrOSDeleteCriticalSection(ZrCriticalSection* cs) { pthread_mutex_destroy(&cs->mutex); }

void zrOSEnterCriticalSection(ZrCriticalSection* cs) { pthread_mutex_lock(&cs->mutex); }

void zrOSLeaveCriticalSection(ZrCriticalSection* cs) { pthread_mutex_unlock(&cs->mutex); }

int zrOSTryEnterCriticalSection(ZrCriticalSection* cs) {
  return pthread_mutex_trylock(&cs->mutex) == 0 ? 1 : 0;
}
