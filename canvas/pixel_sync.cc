// The lock and the change event of a canvas. Nothing in the library takes
// the lock around drawing; these are for hosts that share a canvas.
#include <unistd.h>

#include "platform/zrutil.h"
#include "zrpixel.h"

int ZrPixel::SetChangeEvent() {
  if (mChangeEvent) zrOSSetEvent(mChangeEvent);
  return 0;
}

unsigned int ZrPixel::WaitForChangeEvent(unsigned int timeout) {
  return zrOSWaitForEvent(mChangeEvent, timeout);
}

// 0 and 0xFFFFFFFF block and return 0 with the lock held. Any other count
// is a number of 1 ms attempts: the result is 128 when the lock is held and
// 0 when it gave up. Hosts test for 128; keep the two conventions.
int ZrPixel::Lock(unsigned int count) {
  if (count == 0 || count == 0xFFFFFFFF) {
    zrOSEnterCriticalSection(&mLock);
    return 0;
  }
  for (;;) {
    const int taken = zrOSTryEnterCriticalSection(&mLock);
    if (taken == 0) {
      usleep(1000);
      if (--count == 0) return 0;
      continue;
    }
    if (--count == 0 || taken == 1) return 128;
  }
}

int ZrPixel::TryLock() { return zrOSTryEnterCriticalSection(&mLock); }

int ZrPixel::Unlock() {
  zrOSLeaveCriticalSection(&mLock);
  return 0;
}
