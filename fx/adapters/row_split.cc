#include "fx/adapters/row_split.h"

#include <condition_variable>
#include <mutex>

#include "fx/adapters/adapter_scratch.h"

namespace zr::fx {
namespace {

constexpr char kRowThreadName[] = "zrrows";

// The new thread's share, on the calling thread's stack: the caller waits
// for `done` before it returns, and the new thread touches the job no more
// once it has set `done`.
struct RowJob {
  RowJob(RowsFn rows, const void* context, uint32_t last) : rows(rows), context(context), last(last) {}

  RowsFn rows;
  const void* context;
  uint32_t last;
  std::mutex lock;
  std::condition_variable wake;
  bool done = false;
};

unsigned int RunRowJob(void* parameter) {
  // The adapter's scratch work runs at its priority from the first row.
  zrOSSetThreadPriority(zrOSGetCurrentThread(), kAdapterPriority);
  auto* const job = static_cast<RowJob*>(parameter);
  job->rows(job->context, 0, job->last);
  // Under the lock, so that the caller cannot see `done` and free the job
  // before the notification has been given.
  std::lock_guard<std::mutex> hold(job->lock);
  job->done = true;
  job->wake.notify_one();
  return 0;
}

}  // namespace

void SplitRows(uint32_t height, RowsFn rows, const void* context, CreateThreadFn create) {
  if (height < kSplitFromRows) return rows(context, 0, height);
  RowJob job(rows, context, height / 2);
  ZrHandle const thread = create(nullptr, 0, RunRowJob, &job, 0, nullptr, kRowThreadName);
  if (!thread) return rows(context, 0, height);
  zrOSCloseThread(thread, kRowThreadName);
  rows(context, job.last, height);
  std::unique_lock<std::mutex> hold(job.lock);
  job.wake.wait(hold, [&job] { return job.done; });
}

bool RowsApart(uint32_t pitch, uint64_t rowBytes, uint32_t height) {
  if (height < 2) return true;
  return pitch >= rowBytes && uint64_t{height - 1} * pitch + rowBytes <= uint64_t{1} << 32;
}

}  // namespace zr::fx
