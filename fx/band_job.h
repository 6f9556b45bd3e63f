// The records of the four-band driver: one job per worker, and the block
// that holds the four jobs and their completion count.
#ifndef ZR_FX_BAND_JOB_H
#define ZR_FX_BAND_JOB_H

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "fx/fx_call.h"
#include "fx/shared_scratch.h"
#include "platform/zrutil.h"
#include "zrfx.h"

namespace zr::fx {
class BandJobBlock;
}

// One worker's record: the effect call with the worker's own band, the
// effect, the worker thread, and the count that the worker steps down.
struct zrfxBandJob {
  zr::fx::FxCall call;
  zrfxEffectFn* effect;
  ZrHandle thread;
  unsigned long threadId;
  volatile int* pendingCount;
  // The block that holds this record, or null for a record its caller keeps
  // alive until the worker is through.
  zr::fx::BandJobBlock* block;
};

namespace zr::fx {

// The jobs and count of one driver call. The driver holds one reference and
// each started worker another, and the last to let go frees the block: the
// driver's wait is bounded, and a worker that outlives it must still find
// its record and count in live memory.
class BandJobBlock {
 public:
  static constexpr int kJobs = 4;

  // Null when no memory is to be had. The caller holds the first reference.
  // `shared`, when set, is scratch memory that the effect writes: the block
  // holds a reference to it until the block itself is freed.
  static BandJobBlock* Create(SharedScratch* shared);
  void AddRef();
  void Release();

  // Worker: wakes the driver once the count has reached 0.
  void SignalDone();
  // Driver: returns when the count reads 0, or after `bound` in all.
  void WaitDone(std::chrono::milliseconds bound);

  // Blocks not yet freed, in the whole process.
  static int LiveBlocks();

  zrfxBandJob mJobs[kJobs] = {};
  // One step for every worker started and not yet through; changed only
  // with the interlocked operations.
  volatile int mPendingCount = 0;

 private:
  BandJobBlock() = default;
  ~BandJobBlock() = default;

  std::atomic<int> mRefs{1};
  SharedScratch* mShared = nullptr;
  std::mutex mLock;
  std::condition_variable mDone;
};

}  // namespace zr::fx

#endif
