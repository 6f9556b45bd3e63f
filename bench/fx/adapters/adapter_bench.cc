// The 4:2:2 and v210 adapters at 1920x1080, 3840x2160 and 7680x4320 on a
// dissolve: the whole call through the front door (four new threads,
// creation included), the same work as one band on the calling thread, and
// the expansion and packing loops alone; beside a memcpy of one frame, a
// read-two-write-one stream of the same frames, and for each loop a memcpy
// that moves as many bytes (half read, half written) as it reads and writes,
// in the same run.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "common/baselines.h"
#include "fx/adapters/v210_pitch.h"
#include "fx/adapters/v210_rows.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "zrfx.h"

namespace zr::bench {
namespace {

enum Layout : int64_t { k422 = 0, kV210 = 1 };

struct Geometry {
  uint32_t width, height, pitch;
  size_t frameBytes, planeBytes;
  const fx::AdapterRowForm* rows;
};

Geometry Of(const benchmark::State& state) {
  const auto layout = static_cast<Layout>(state.range(0));
  const auto width = static_cast<uint32_t>(state.range(1)), height = static_cast<uint32_t>(state.range(2));
  const uint32_t pitch = layout == k422 ? width * 2 : fx::V210MinPitch(width);
  return {width,
          height,
          pitch,
          size_t{pitch} * height,
          size_t{width} * 3 * height,
          layout == k422 ? &fx::PickYCbCr422Rows() : &fx::PickV210Rows()};
}

void BM_AdapterFrontDoor(benchmark::State& state) {
  const Geometry g = Of(state);
  auto &a = Frame(g.frameBytes, 0), &b = Frame(g.frameBytes, 2), &dst = Frame(g.frameBytes, 1);
  const auto adapter = state.range(0) == k422 ? ZrDraw_DisplayWipeYCbCr : ZrDraw_DisplayWipeV210;
  const auto call = [&] {
    adapter(a.data(), g.pitch, b.data(), g.pitch, dst.data(), g.pitch, 0, 0, g.width, g.height, 0, 0, 0, 0, 0,
            0, 65536, 23456);
  };
  // Untimed: the first call of a size takes its scratch as fresh pages, which
  // can outweigh the work (BM_AdapterScratch times such calls); later calls
  // take the block that ZrFree kept.
  call();
  TimeFrames(state, g.frameBytes, call);
}

// The adapter's work on the calling thread: both expansions, the dissolve as
// one band over the planes, the packing; the planes allocated once.
void BM_AdapterOneBand(benchmark::State& state) {
  const Geometry g = Of(state);
  auto &a = Frame(g.frameBytes, 0), &b = Frame(g.frameBytes, 2), &dst = Frame(g.frameBytes, 1);
  auto &planeA = Frame(g.planeBytes, 3), &planeB = Frame(g.planeBytes, 4), &planeOut = Frame(g.planeBytes, 7);
  const uint32_t planePitch = g.width * 3;
  for (auto _ : state) {
    for (uint32_t y = 0; y < g.height; ++y) {
      g.rows->expand(a.data() + size_t{y} * g.pitch, planeA.data() + size_t{y} * planePitch, g.width);
      g.rows->expand(b.data() + size_t{y} * g.pitch, planeB.data() + size_t{y} * planePitch, g.width);
    }
    zrfxDISSOLVE(planeA.data(), planePitch, planeB.data(), planePitch, planeOut.data(), planePitch, 0, 33,
                 g.width, g.height, 0, 0, 0, 0, 0, 0, 65536, 23456, 0, g.width, 0, g.height);
    for (uint32_t y = 0; y < g.height; ++y)
      g.rows->pack(planeOut.data() + size_t{y} * planePitch, dst.data() + size_t{y} * g.pitch, g.width);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * g.frameBytes));
}

// Both sources into their planes, as the adapter does; range(3) limits the
// row loops to one instruction set's form.
void BM_AdapterExpand(benchmark::State& state) {
  const IsaScope isa(state.range(3));
  const Geometry g = Of(state);
  auto &a = Frame(g.frameBytes, 0), &b = Frame(g.frameBytes, 2);
  auto &planeA = Frame(g.planeBytes, 3), &planeB = Frame(g.planeBytes, 4);
  const size_t planePitch = size_t{g.width} * 3;
  for (auto _ : state) {
    for (uint32_t y = 0; y < g.height; ++y) {
      g.rows->expand(a.data() + size_t{y} * g.pitch, planeA.data() + y * planePitch, g.width);
      g.rows->expand(b.data() + size_t{y} * g.pitch, planeB.data() + y * planePitch, g.width);
    }
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * 2 * (g.frameBytes + g.planeBytes)));
}

void BM_AdapterPack(benchmark::State& state) {
  const IsaScope isa(state.range(3));
  const Geometry g = Of(state);
  auto &plane = Frame(g.planeBytes, 3), &dst = Frame(g.frameBytes, 1);
  const size_t planePitch = size_t{g.width} * 3;
  for (auto _ : state) {
    for (uint32_t y = 0; y < g.height; ++y)
      g.rows->pack(plane.data() + y * planePitch, dst.data() + size_t{y} * g.pitch, g.width);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * (g.frameBytes + g.planeBytes)));
}

// Baselines: range(3) picks the bytes a memcpy moves: one caller frame, or as
// many (half read, half written) as the expansion or the packing moves.
enum Copy : int64_t { kFrame = 0, kAsExpand = 1, kAsPack = 2 };

void BM_AdapterMemcpy(benchmark::State& state) {
  const Geometry g = Of(state);
  const size_t loop = g.frameBytes + g.planeBytes;
  const size_t bytes = state.range(3) == kFrame      ? g.frameBytes
                       : state.range(3) == kAsExpand ? loop
                                                     : loop / 2;
  auto &src = Frame(bytes, 5), &dst = Frame(bytes, 6);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), bytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(
      static_cast<int64_t>(state.iterations() * bytes * (state.range(3) == kFrame ? 1 : 2)));
}

void BM_AdapterReadTwoWriteOne(benchmark::State& state) {
  const Geometry g = Of(state);
  auto &a = Frame(g.frameBytes, 0), &b = Frame(g.frameBytes, 2), &dst = Frame(g.frameBytes, 1);
  for (auto _ : state) {
    ReadTwoWriteOne(a.data(), b.data(), dst.data(), g.frameBytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * g.frameBytes));
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"v210", "width", "height"});
  for (int64_t layout : {k422, kV210})
    for (const FrameSize& size : kFrameSizes) b->Args({layout, size.width, size.height});
}

void FormSizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"v210", "width", "height", "isa"});
  for (int64_t layout : {k422, kV210})
    for (const FrameSize& size : kFrameSizes)
      for (int64_t isa : Isas()) b->Args({layout, size.width, size.height, isa});
}

void CopySizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"v210", "width", "height", "copy"});
  for (int64_t layout : {k422, kV210})
    for (const FrameSize& size : kFrameSizes)
      for (int64_t copy : {kFrame, kAsExpand, kAsPack}) b->Args({layout, size.width, size.height, copy});
}

BENCHMARK(BM_AdapterFrontDoor)->Apply(Sizes)->UseRealTime();
BENCHMARK(BM_AdapterOneBand)->Apply(Sizes);
BENCHMARK(BM_AdapterExpand)->Apply(FormSizes);
BENCHMARK(BM_AdapterPack)->Apply(FormSizes);
BENCHMARK(BM_AdapterMemcpy)->Apply(CopySizes);
BENCHMARK(BM_AdapterReadTwoWriteOne)->Apply(Sizes);

}  // namespace
}  // namespace zr::bench
