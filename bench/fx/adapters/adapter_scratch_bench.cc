// The scratch block of the 4:2:2 and v210 adapters at 1920x1080, 3840x2160
// and 7680x4320. ZrFree keeps the latest large block and the next call of a
// size takes it again, so after its first call an adapter takes no new heap.
// Here each call's ZrAlloc goes to a counting allocator that hands out a new
// block every time, as on a host's first call: the counters are the largest
// block asked of ZrAlloc (zralloc_bytes) and the call's heap_peak, and the
// time is that of a call whose scratch is fresh pages.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

#include "common/baselines.h"
#include "fx/adapters/v210_pitch.h"
#include "platform/testhooks.h"
#include "zrfx.h"

namespace zr::bench {
namespace {

std::atomic<size_t> gLargestRequest{0};

void* CountingAlloc(size_t size) {
  size_t largest = gLargestRequest.load();
  while (size > largest && !gLargestRequest.compare_exchange_weak(largest, size)) {
  }
  return std::malloc(size);
}

void BM_AdapterScratch(benchmark::State& state) {
  const bool v210 = state.range(0) != 0;
  const auto width = static_cast<uint32_t>(state.range(1)), height = static_cast<uint32_t>(state.range(2));
  const uint32_t pitch = v210 ? fx::V210MinPitch(width) : width * 2;
  const size_t bytes = size_t{pitch} * height;
  uint8_t* a = Frame(bytes, 0).data();
  uint8_t* b = Frame(bytes, 2).data();
  uint8_t* dst = Frame(bytes, 1).data();
  const auto adapter = v210 ? ZrDraw_DisplayWipeV210 : ZrDraw_DisplayWipeYCbCr;
  gLargestRequest = 0;
  testhooks::SetAllocHook(CountingAlloc);
  TimeFrames(state, bytes, [&] {
    adapter(a, pitch, b, pitch, dst, pitch, 0, 0, width, height, 0, 0, 0, 0, 0, 0, 65536, 23456);
  });
  testhooks::SetAllocHook(nullptr);
  state.counters["zralloc_bytes"] = static_cast<double>(gLargestRequest.load());
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"v210", "width", "height"});
  for (int64_t v210 : {0, 1})
    for (const FrameSize& size : kFrameSizes) b->Args({v210, size.width, size.height});
}

BENCHMARK(BM_AdapterScratch)->Apply(Sizes)->Iterations(3)->UseRealTime();

}  // namespace
}  // namespace zr::bench
