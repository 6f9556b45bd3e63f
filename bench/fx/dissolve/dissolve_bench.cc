// The dissolve at 1920x1080, 3840x2160 and 7680x4320 in formats 1 (8-bit RGBA),
// 31 (16-bit, 3 samples) and 32 (16-bit, 4 samples): through the front door
// (four new threads a call) and as one band on the calling thread, beside a
// memcpy of one frame and a read-two-write-one stream of the same frames.
// The span of 65536 takes the integer mix; 60000 keeps the double mix.
#include <benchmark/benchmark.h>

#include <cstring>

#include "common/baselines.h"
#include "zrfx.h"

namespace zr::bench {
namespace {

constexpr uint32_t kProgress = 23456;

size_t BytesPerPixel(int64_t format) { return format == 1 ? 4 : format == 31 ? 6 : 8; }

struct Geometry {
  uint32_t format, width, height, pitch;
  size_t bytes;
};

Geometry Of(const benchmark::State& state) {
  const auto format = static_cast<uint32_t>(state.range(0));
  const auto width = static_cast<uint32_t>(state.range(1)), height = static_cast<uint32_t>(state.range(2));
  const auto pitch = static_cast<uint32_t>(width * BytesPerPixel(format));
  return {format, width, height, pitch, size_t{pitch} * height};
}

// range(3) is the span.
void BM_DissolveFrontDoor(benchmark::State& state) {
  const Geometry g = Of(state);
  const auto span = static_cast<uint32_t>(state.range(3));
  auto &a = Frame(g.bytes, 0), &b = Frame(g.bytes, 2), &dst = Frame(g.bytes, 1);
  TimeFrames(state, g.bytes, [&] {
    ZrDraw_DisplayWipe(a.data(), g.pitch, b.data(), g.pitch, dst.data(), g.pitch, 0, g.format, g.width,
                       g.height, 1, 1, 0, 0, 0, 0, span, kProgress);
  });
}

// range(3) is the span; range(4) limits the mixing loops to one instruction
// set's form.
void BM_DissolveOneBand(benchmark::State& state) {
  const IsaScope isa(state.range(4));
  const Geometry g = Of(state);
  const auto span = static_cast<uint32_t>(state.range(3));
  auto &a = Frame(g.bytes, 0), &b = Frame(g.bytes, 2), &dst = Frame(g.bytes, 1);
  TimeFrames(state, g.bytes, [&] {
    zrfxDISSOLVE(a.data(), g.pitch, b.data(), g.pitch, dst.data(), g.pitch, 0, g.format, g.width, g.height, 1,
                 1, 0, 0, 0, 0, span, kProgress, 0, g.width, 0, g.height);
  });
}

// Baselines over the same frames.
void BM_DissolveMemcpy(benchmark::State& state) {
  const Geometry g = Of(state);
  auto &a = Frame(g.bytes, 0), &dst = Frame(g.bytes, 1);
  TimeFrames(state, g.bytes, [&] { std::memcpy(dst.data(), a.data(), g.bytes); });
}

void BM_DissolveReadTwoWriteOne(benchmark::State& state) {
  const Geometry g = Of(state);
  auto &a = Frame(g.bytes, 0), &b = Frame(g.bytes, 2), &dst = Frame(g.bytes, 1);
  TimeFrames(state, g.bytes, [&] { ReadTwoWriteOne(a.data(), b.data(), dst.data(), g.bytes); });
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"format", "width", "height"});
  for (int64_t format : {1, 31, 32})
    for (const FrameSize& size : kFrameSizes) b->Args({format, size.width, size.height});
}

void SpanSizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"format", "width", "height", "span"});
  for (int64_t format : {1, 31, 32})
    for (const FrameSize& size : kFrameSizes)
      for (int64_t span : {65536, 60000}) b->Args({format, size.width, size.height, span});
}

void FormSizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"format", "width", "height", "span", "isa"});
  for (int64_t format : {1, 31, 32})
    for (const FrameSize& size : kFrameSizes)
      for (int64_t span : {65536, 60000})
        for (int64_t isa : Isas()) b->Args({format, size.width, size.height, span, isa});
}

BENCHMARK(BM_DissolveFrontDoor)->Apply(SpanSizes)->UseRealTime();
BENCHMARK(BM_DissolveOneBand)->Apply(FormSizes);
BENCHMARK(BM_DissolveMemcpy)->Apply(Sizes);
BENCHMARK(BM_DissolveReadTwoWriteOne)->Apply(Sizes);

}  // namespace
}  // namespace zr::bench
