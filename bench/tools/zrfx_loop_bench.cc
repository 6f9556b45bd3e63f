// zrfx's frame loop (read both inputs, one library call, write the output)
// at 1920x1080, 3840x2160 and 7680x4320, on frames decoded beforehand: each read copies
// a frame into the loop's own buffer as a read from a pipe would, and each
// write copies the result out. BM_PipeMemcpy copies the same bytes (two
// frames in, one out) in one memcpy: the tool's cost per frame is the ratio
// of the two times, measured in the same run. The *Call benchmarks make the
// same frames without reading or writing, and BM_EmptyLoop reads and writes
// without a call: between them, what the tool adds to the library.
#include <benchmark/benchmark.h>
#include <zrdraw.h>

#include <cstring>
#include <vector>

#include "common/baselines.h"
#include "zrfx/frame_loop.h"
#include "zrfx/operations.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/stream_format.h"

namespace zrfx {
namespace {

using zr::bench::kHD;
using zr::bench::kUHD;
using zr::bench::kUHD8K;

std::vector<uint8_t> Filled(size_t bytes, int seed) {
  std::vector<uint8_t> v(bytes);
  for (size_t i = 0; i < bytes; ++i) v[i] = static_cast<uint8_t>(i * 7 + seed * 31);
  return v;
}

// An endless stream of one decoded frame; the benchmark's state ends it.
class MemoryReader : public FrameReader {
 public:
  MemoryReader(size_t bytes, int seed, benchmark::State* state)
      : frame_(Filled(bytes, seed)), state_(state) {}
  bool Read(uint8_t* frame) override {
    if (state_ && !state_->KeepRunning()) return false;
    std::memcpy(frame, frame_.data(), frame_.size());
    return true;
  }
  const std::string& Name() const override { return name_; }

 private:
  std::vector<uint8_t> frame_;
  benchmark::State* state_;
  std::string name_ = "memory";
};

class MemoryWriter : public FrameWriter {
 public:
  explicit MemoryWriter(size_t bytes) : sink_(Filled(bytes, 3)) {}
  void Write(const uint8_t* frame) override {
    std::memcpy(sink_.data(), frame, sink_.size());
    benchmark::ClobberMemory();
  }
  void Close() override {}

 private:
  std::vector<uint8_t> sink_;
};

void Report(benchmark::State& state, size_t frameBytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * 3 * frameBytes));
  state.counters["fps"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

StreamFormat Format(const char* pix, benchmark::State& state) {
  return RawStreamFormat(ParsePixelFormat(pix),
                         {static_cast<uint32_t>(state.range(0)), static_cast<uint32_t>(state.range(1))});
}

// One frame of a transition at its middle, on the progress scale of
// `zrfx transition --raw`.
void BM_TransitionLoop(benchmark::State& state, const char* pix, uint32_t code) {
  const StreamFormat f = Format(pix, state);
  MemoryReader a(f.FrameBytes(), 0, &state), b(f.FrameBytes(), 1, nullptr);
  MemoryWriter out(f.FrameBytes());
  RunPairLoop(a, b, out, {f.FrameBytes(), f.pitch}, [&](uint8_t* fa, uint8_t* fb, uint8_t* fo, uint64_t) {
    WipeFrames(f, fa, fb, fo, code, 65536, 32768);
  });
  Report(state, f.FrameBytes());
}

// `zrfx mux --raw` on RGBA frames.
void BM_MuxLoop(benchmark::State& state, uint32_t flags) {
  const StreamFormat f = Format("rgba", state);
  MemoryReader a(f.FrameBytes(), 0, &state), b(f.FrameBytes(), 1, nullptr);
  MemoryWriter out(f.FrameBytes());
  MuxSettings s;
  s.flags = flags;
  s.position = 32768;
  s.splitX = f.width / 2;
  s.splitY = f.height / 2;
  RunPairLoop(a, b, out, {f.FrameBytes(), f.pitch}, [&](uint8_t* fa, uint8_t* fb, uint8_t* fo, uint64_t) {
    RunMux(fa, fb, fo, f.width, f.height, s);
  });
  Report(state, f.FrameBytes());
}

// The loop with no call: what reading and writing cost on their threads.
void BM_EmptyLoop(benchmark::State& state) {
  const StreamFormat f = Format("rgba", state);
  MemoryReader a(f.FrameBytes(), 0, &state), b(f.FrameBytes(), 1, nullptr);
  MemoryWriter out(f.FrameBytes());
  RunPairLoop(a, b, out, {f.FrameBytes(), f.pitch}, [](uint8_t*, uint8_t*, uint8_t*, uint64_t) {});
  Report(state, f.FrameBytes());
}

// The library calls alone, on frames that stay in place.
void BM_TransitionCall(benchmark::State& state, const char* pix, uint32_t code) {
  const StreamFormat f = Format(pix, state);
  FrameBuffer a(f.FrameBytes(), f.pitch), b(f.FrameBytes(), f.pitch), out(f.FrameBytes(), f.pitch);
  for (auto _ : state) {
    WipeFrames(f, a.data(), b.data(), out.data(), code, 65536, 32768);
    benchmark::ClobberMemory();
  }
  Report(state, f.FrameBytes());
}

void BM_MuxCall(benchmark::State& state, uint32_t flags) {
  const StreamFormat f = Format("rgba", state);
  FrameBuffer a(f.FrameBytes(), f.pitch), b(f.FrameBytes(), f.pitch), out(f.FrameBytes(), f.pitch);
  MuxSettings s;
  s.flags = flags;
  s.position = 32768;
  s.splitX = f.width / 2;
  s.splitY = f.height / 2;
  for (auto _ : state) {
    RunMux(a.data(), b.data(), out.data(), f.width, f.height, s);
    benchmark::ClobberMemory();
  }
  Report(state, f.FrameBytes());
}

// The floor: the bytes that a frame moves through the pipes, copied once.
void BM_PipeMemcpy(benchmark::State& state, const char* pix) {
  const size_t bytes = 3 * Format(pix, state).FrameBytes();
  const std::vector<uint8_t> src = Filled(bytes, 0);
  std::vector<uint8_t> dst = Filled(bytes, 1);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), bytes);
    benchmark::ClobberMemory();
  }
  Report(state, bytes / 3);
}

#define ZRFX_SIZES                          \
  Args({kHD.width, kHD.height})             \
      ->Args({kUHD.width, kUHD.height})     \
      ->Args({kUHD8K.width, kUHD8K.height}) \
      ->MeasureProcessCPUTime()             \
      ->UseRealTime()
BENCHMARK_CAPTURE(BM_PipeMemcpy, rgba, "rgba")->ZRFX_SIZES;
BENCHMARK(BM_EmptyLoop)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionLoop, rgba_horizontal, "rgba", 1)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionCall, rgba_horizontal, "rgba", 1)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionLoop, rgba_dissolve, "rgba", 0)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_MuxLoop, crossfade, MUX_CROSSFADE)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_MuxCall, crossfade, MUX_CROSSFADE)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_MuxLoop, split, MUX_SPLIT)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_PipeMemcpy, v210, "v210")->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionLoop, v210_horizontal, "v210", 1)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionCall, v210_horizontal, "v210", 1)->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_PipeMemcpy, uyvy422, "uyvy422")->ZRFX_SIZES;
BENCHMARK_CAPTURE(BM_TransitionLoop, uyvy422_horizontal, "uyvy422", 1)->ZRFX_SIZES;

}  // namespace
}  // namespace zrfx
