// ZrDraw_FXMultiThread and its worker: one effect over a picture on four new
// threads, one per quadrant, every call.
#include <chrono>

#include "fx/band_job.h"
#include "fx/fx_call.h"
#include "fx/run_bands.h"
#include "platform/zrutil.h"
#include "zrfx.h"

namespace {

constexpr char kWorkerName[] = "dffx";
constexpr int kWorkerPriority = 15;
// The driver waits no longer than this, finished or not; callers rely on the
// bound (it is what fifty 2 ms polls came to).
constexpr std::chrono::milliseconds kWaitBound{100};

// The platform's thread entry takes its parameter untyped.
unsigned int StartJob(void* job) { return zrfxFXThread(static_cast<zrfxBandJob*>(job)); }

void SetBand(zrfxBandJob& job, uint32_t left, uint32_t right, uint32_t top, uint32_t bottom) {
  job.call.bandLeft = left;
  job.call.bandRight = right;
  job.call.bandTop = top;
  job.call.bandBottom = bottom;
}

}  // namespace

uint32_t ZrDraw_FXMultiThread(ZRFX_EFFECT_ARGS, zrfxEffectFn* effect) {
  return zr::fx::RunBands(ZRFX_CALL_RECORD, effect, nullptr);
}

uint32_t zr::fx::RunBands(const FxCall& call, zrfxEffectFn* effect, SharedScratch* shared) {
  BandJobBlock* const block = BandJobBlock::Create(shared);
  if (!block) return 0;
  zrfxBandJob* const jobs = block->mJobs;
  // The band arguments are overwritten per job.
  jobs[0].call = call;
  jobs[0].effect = effect;
  jobs[0].pendingCount = &block->mPendingCount;
  jobs[0].block = block;
  for (int i = 1; i < BandJobBlock::kJobs; ++i) jobs[i] = jobs[0];
  // Halves truncate: the right and lower bands get an odd size's extra
  // column and row.
  const uint32_t width = call.width;
  const uint32_t height = call.height;
  const uint32_t midX = width >> 1;
  const uint32_t midY = height >> 1;
  SetBand(jobs[0], 0, midX, 0, midY);
  SetBand(jobs[1], midX, width, 0, midY);
  SetBand(jobs[2], 0, midX, midY, height);
  SetBand(jobs[3], midX, width, midY, height);

  for (int i = 0; i < BandJobBlock::kJobs; ++i) {
    zrfxBandJob& job = jobs[i];
    zrOSInterlockedIncrement(job.pendingCount);
    block->AddRef();
    job.thread = zrOSCreateThread(nullptr, 0, StartJob, &job, 0, &job.threadId, kWorkerName);
    // A worker that never started keeps its count step, so the wait runs to
    // its bound and that quarter stays unwritten; nothing is reported.
    if (!job.thread) block->Release();
    zrOSSetThreadPriority(job.thread, kWorkerPriority);
  }
  // Closing gives the handles back; completion is told by the count alone.
  for (int i = 0; i < BandJobBlock::kJobs; ++i) zrOSCloseThread(jobs[i].thread, kWorkerName);

  block->WaitDone(kWaitBound);
  block->Release();
  return 0;
}

uint32_t zrfxFXThread(zrfxBandJob* job) {
  const uint32_t result = job->effect(ZRFX_CALL_VALUES(job->call));
  // Read before the count drops: a record without a block may be gone after.
  zr::fx::BandJobBlock* const block = job->block;
  if (zrOSInterlockedDecrement(job->pendingCount) == 0 && block) block->SignalDone();
  if (block) block->Release();
  return result;
}
