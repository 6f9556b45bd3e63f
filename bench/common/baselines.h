// Baselines that every figure is measured beside, in the same run.
#ifndef ZR_BENCH_BASELINES_H
#define ZR_BENCH_BASELINES_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/heap_meter.h"

namespace zr::bench {

// The three sizes every frame benchmark runs at, plus a cache-resident one.
struct FrameSize {
  int width;
  int height;
};
inline constexpr FrameSize kHD{1920, 1080};
inline constexpr FrameSize kUHD{3840, 2160};
inline constexpr FrameSize kUHD8K{7680, 4320};
inline constexpr FrameSize kSmall{256, 128};
inline constexpr FrameSize kFrameSizes[] = {kHD, kUHD, kUHD8K};

// A buffer filled with a fixed pattern (touched, so that no first-touch page
// faults land inside a measurement). Only the kLiveFrames most recently asked
// for stay alive (an 8K frame of 8 bytes a pixel is 265 MB); no benchmark
// holds more than that many at once.
inline constexpr int kLiveFrames = 8;
std::vector<uint8_t>& Frame(size_t bytes, int index);

// The timed loop of a frame benchmark: `call` once an iteration, `bytes`
// counted for each, and the counter heap_peak: the most heap bytes that one
// call had live at once beyond those live before it, over every call.
template <typename Call>
void TimeFrames(benchmark::State& state, size_t bytes, Call call) {
  size_t heapPeak = 0;
  for (auto _ : state) {
    const HeapPeak peak;
    call();
    benchmark::ClobberMemory();
    heapPeak = std::max(heapPeak, peak.Bytes());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(bytes));
  state.counters["heap_peak"] = static_cast<double>(heapPeak);
}

// out[i] = (a[i] + b[i]) / 2 over n bytes: a read-two-write-one stream, the
// floor for any two-source frame operation.
void ReadTwoWriteOne(const uint8_t* a, const uint8_t* b, uint8_t* out, size_t n);

// The instruction sets (cpu::Isa bits) this processor runs: a benchmark
// argument that runs each form of a kernel family through the entry points.
std::vector<int64_t> Isas();

// Limits the kernel choice to one instruction set while it lives.
class IsaScope {
 public:
  explicit IsaScope(int64_t isa);
  ~IsaScope();
  IsaScope(const IsaScope&) = delete;
  IsaScope& operator=(const IsaScope&) = delete;
};

}  // namespace zr::bench

#endif
