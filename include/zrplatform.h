// Platform objects that public classes hold by value.
#ifndef ZRPLATFORM_H
#define ZRPLATFORM_H

#include <pthread.h>

// Handle of an event or a thread of the platform layer; null means none.
typedef void* ZrHandle;

// A recursive lock, held by value inside each canvas.
typedef struct ZrCriticalSection {
  pthread_mutex_t mutex;
} ZrCriticalSection;

#endif
