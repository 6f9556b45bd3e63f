#include "fx/adapters/row_split.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <new>

#include "fx/adapters/adapter_scratch.h"

namespace zr::fx {
namespace {

constexpr char kRowThreadName[] = "zrrows";

// Rows go out in runs of this many to whichever thread asks first, so that a
// thread that starts late or shares its core with other work leaves its part
// to the other one instead of holding up the call.
constexpr uint32_t kRunRows = 16;

// One split call, shared by the caller and the new thread; the last of the
// two to let go frees it, so a thread that starts after the rows are all
// done touches live memory only.
class RowJob {
 public:
  RowJob(RowsFn rows, const void* context, uint32_t height)
      : mRows(rows), mContext(context), mHeight(height) {}

  // Does runs of rows until none is left, then counts them in.
  void TakeRuns() {
    uint32_t done = 0;
    for (;;) {
      const uint64_t first = mNext.fetch_add(kRunRows, std::memory_order_relaxed);
      if (first >= mHeight) break;
      const uint32_t last = static_cast<uint32_t>(std::min<uint64_t>(first + kRunRows, mHeight));
      mRows(mContext, static_cast<uint32_t>(first), last);
      done += last - static_cast<uint32_t>(first);
    }
    std::lock_guard<std::mutex> hold(mLock);
    mDone += done;
    if (mDone == mHeight) mAllDone.notify_all();
  }

  // Returns when every row handed out has been done.
  void WaitAllDone() {
    std::unique_lock<std::mutex> hold(mLock);
    mAllDone.wait(hold, [this] { return mDone == mHeight; });
  }

  void Release() {
    if (mRefs.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }

 private:
  const RowsFn mRows;
  const void* const mContext;
  const uint32_t mHeight;
  std::atomic<uint64_t> mNext{0};
  std::atomic<int> mRefs{2};
  std::mutex mLock;
  std::condition_variable mAllDone;
  uint32_t mDone = 0;  // under mLock
};

unsigned int RunRowJob(void* parameter) {
  // The adapter's scratch work runs at its priority from the first row.
  zrOSSetThreadPriority(zrOSGetCurrentThread(), kAdapterPriority);
  auto* const job = static_cast<RowJob*>(parameter);
  job->TakeRuns();
  job->Release();
  return 0;
}

}  // namespace

void SplitRows(uint32_t height, RowsFn rows, const void* context, CreateThreadFn create) {
  if (height < kSplitFromRows) return rows(context, 0, height);
  auto* const job = new (std::nothrow) RowJob(rows, context, height);
  if (!job) return rows(context, 0, height);
  ZrHandle const thread = create(nullptr, 0, RunRowJob, job, 0, nullptr, kRowThreadName);
  if (!thread) {
    delete job;
    return rows(context, 0, height);
  }
  zrOSCloseThread(thread, kRowThreadName);
  job->TakeRuns();
  job->WaitAllDone();
  job->Release();
}

bool RowsApart(uint32_t pitch, uint64_t rowBytes, uint32_t height) {
  if (height < 2) return true;
  return pitch >= rowBytes && uint64_t{height - 1} * pitch + rowBytes <= uint64_t{1} << 32;
}

}  // namespace zr::fx
