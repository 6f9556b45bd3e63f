// Named detached threads with a priority that is kept per thread.
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>

#include "platform/zrutil.h"

namespace {

struct ThreadRecord {
  // Two owners: the running thread and the handle; the last one frees.
  std::atomic<int> owners{2};
  std::atomic<pid_t> tid{0};
  std::atomic<int> priority{0};
  ZrThreadEntry entry = nullptr;
  void* parameter = nullptr;
  char name[16] = {};
};

// The handle that always names the calling thread.
char gCurrentThreadTag;
ZrHandle const kCurrentThread = &gCurrentThreadTag;

thread_local ThreadRecord* tSelf = nullptr;
thread_local int tPriority = 0;

void Release(ThreadRecord* record) {
  if (record->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) delete record;
}

// 0 is normal, 15 the highest used here; negative values lower the thread.
// Raising priority needs privileges that a host may not have: best effort.
void ApplyToScheduler(pid_t tid, int priority) {
  if (tid == 0) return;
  const int nice = std::clamp(-priority, -20, 19);
  setpriority(PRIO_PROCESS, static_cast<id_t>(tid), nice);
}

pid_t CurrentTid() { return static_cast<pid_t>(syscall(SYS_gettid)); }

void* ThreadMain(void* arg) {
  auto* record = static_cast<ThreadRecord*>(arg);
  tSelf = record;
  pthread_setname_np(pthread_self(), record->name);
  record->tid.store(CurrentTid());
  ApplyToScheduler(record->tid.load(), record->priority.load());
  record->entry(record->parameter);
  tSelf = nullptr;
  Release(record);
  return nullptr;
}

}  // namespace

ZrHandle zrOSCreateThread(void*, size_t stackSize, ZrThreadEntry entry, void* parameter, unsigned int,
                          unsigned long* threadId, const char* name) {
  auto* record = new (std::nothrow) ThreadRecord;
  if (!record) return nullptr;
  record->entry = entry;
  record->parameter = parameter;
  if (name) std::strncpy(record->name, name, sizeof record->name - 1);

  pthread_attr_t attr;
  pthread_attr_init(&attr);
  pthread_attr_setdetachstate(&attr, PTHREAD_CREATE_DETACHED);
  if (stackSize) pthread_attr_setstacksize(&attr, stackSize);
  pthread_t thread;
  const int rc = pthread_create(&thread, &attr, ThreadMain, record);
  pthread_attr_destroy(&attr);
  if (rc != 0) {
    delete record;
    return nullptr;
  }
  if (threadId) *threadId = static_cast<unsigned long>(thread);
  return record;
}

int zrOSCloseThread(ZrHandle thread, const char*) {
  if (!thread || thread == kCurrentThread) return 0;
  Release(static_cast<ThreadRecord*>(thread));
  return 1;
}

ZrHandle zrOSGetCurrentThread() { return kCurrentThread; }

int zrOSSetThreadPriority(ZrHandle thread, int priority) {
  if (!thread) return 0;
  if (thread == kCurrentThread) {
    if (tSelf)
      tSelf->priority.store(priority);
    else
      tPriority = priority;
    ApplyToScheduler(CurrentTid(), priority);
    return 1;
  }
  auto* record = static_cast<ThreadRecord*>(thread);
  record->priority.store(priority);
  ApplyToScheduler(record->tid.load(), priority);
  return 1;
}

int zrOSGetThreadPriority(ZrHandle thread) {
  if (!thread) return 0;
  if (thread == kCurrentThread) return tSelf ? tSelf->priority.load() : tPriority;
  return static_cast<ThreadRecord*>(thread)->priority.load();
}
