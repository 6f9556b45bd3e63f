// Events on a mutex and condition variable.
#include <cerrno>
#include <ctime>
#include <new>

#include "platform/zrutil.h"

namespace {

struct ZrEvent {
  pthread_mutex_t mutex;
  pthread_cond_t cond;
  bool manualReset;
  bool signaled;
};

timespec DeadlineAfter(unsigned int ms) {
  timespec t;
  clock_gettime(CLOCK_MONOTONIC, &t);
  t.tv_sec += ms / 1000;
  t.tv_nsec += static_cast<long>(ms % 1000) * 1000000L;
  if (t.tv_nsec >= 1000000000L) {
    t.tv_sec += 1;
    t.tv_nsec -= 1000000000L;
  }
  return t;
}

}  // namespace

ZrHandle zrOSCreateEvent(void*, int manualReset, int initialState, const char*) {
  auto* event = new (std::nothrow) ZrEvent;
  if (!event) return nullptr;
  pthread_condattr_t attr;
  pthread_condattr_init(&attr);
  pthread_condattr_setclock(&attr, CLOCK_MONOTONIC);
  pthread_cond_init(&event->cond, &attr);
  pthread_condattr_destroy(&attr);
  pthread_mutex_init(&event->mutex, nullptr);
  event->manualReset = manualReset != 0;
  event->signaled = initialState != 0;
  return event;
}

int zrOSCloseEvent(ZrHandle handle) {
  auto* event = static_cast<ZrEvent*>(handle);
  if (!event) return 0;
  pthread_cond_destroy(&event->cond);
  pthread_mutex_destroy(&event->mutex);
  delete event;
  return 1;
}

int zrOSSetEvent(ZrHandle handle) {
  auto* event = static_cast<ZrEvent*>(handle);
  if (!event) return 0;
  pthread_mutex_lock(&event->mutex);
  event->signaled = true;
  if (event->manualReset)
    pthread_cond_broadcast(&event->cond);
  else
    pthread_cond_signal(&event->cond);
  pthread_mutex_unlock(&event->mutex);
  return 1;
}

unsigned int zrOSWaitForEvent(ZrHandle handle, unsigned int timeoutMs) {
  auto* event = static_cast<ZrEvent*>(handle);
  if (!event) return kZrWaitFailed;
  const timespec deadline = DeadlineAfter(timeoutMs == kZrInfinite ? 0 : timeoutMs);
  pthread_mutex_lock(&event->mutex);
  int rc = 0;
  while (!event->signaled && rc != ETIMEDOUT) {
    rc = timeoutMs == kZrInfinite ? pthread_cond_wait(&event->cond, &event->mutex)
                                  : pthread_cond_timedwait(&event->cond, &event->mutex, &deadline);
  }
  const bool got = event->signaled;
  if (got && !event->manualReset) event->signaled = false;
  pthread_mutex_unlock(&event->mutex);
  return got ? kZrWaitSignaled : kZrWaitTimeout;
}
