#include "fx/band_job.h"

#include <new>

namespace zr::fx {
namespace {

std::atomic<int> gLiveBlocks{0};

}  // namespace

BandJobBlock* BandJobBlock::Create(SharedScratch* shared) {
  auto* block = new (std::nothrow) BandJobBlock;
  if (!block) return nullptr;
  gLiveBlocks.fetch_add(1, std::memory_order_relaxed);
  if (shared) shared->AddRef();
  block->mShared = shared;
  return block;
}

void BandJobBlock::AddRef() { mRefs.fetch_add(1, std::memory_order_relaxed); }

void BandJobBlock::Release() {
  if (mRefs.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  if (mShared) mShared->Release();
  delete this;
  gLiveBlocks.fetch_sub(1, std::memory_order_release);
}

void BandJobBlock::SignalDone() {
  // Under the lock, so that a driver between its test of the count and its
  // wait cannot miss the wake-up.
  std::lock_guard<std::mutex> lock(mLock);
  mDone.notify_all();
}

void BandJobBlock::WaitDone(std::chrono::milliseconds bound) {
  const auto deadline = std::chrono::steady_clock::now() + bound;
  std::unique_lock<std::mutex> lock(mLock);
  mDone.wait_until(lock, deadline, [this] { return zrOSInterlockedRead(&mPendingCount) == 0; });
}

int BandJobBlock::LiveBlocks() { return gLiveBlocks.load(std::memory_order_acquire); }

}  // namespace zr::fx
