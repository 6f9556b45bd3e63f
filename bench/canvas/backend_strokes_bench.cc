// The PutPixel road of every canvas type at 1920x1080: a 1000-pixel Line (a
// diagonal, one PutPixel call a pixel), a 1000-pixel LineHoriz and a
// whole-canvas FillRect. Each reports ns_per_pixel; the baseline is the
// RGBA figure of the same run (type 1, whose Line is its PutPixel road; its
// LineHoriz and FillRect take the word fill instead).
#include <benchmark/benchmark.h>

#include <cstdint>

#include "common/baselines.h"
#include "zrdraw.h"

namespace zr::bench {
namespace {

constexpr int kPixels = 1000;

// Every type that GetDraw builds a canvas for.
constexpr int kTypes[] = {pixelRGBA32,    pixelRGB24,      pixelYUYV,       pixelUYVY,  pixelV210,
                          pixelRGB30DPX,  pixelBayerBGGR,  pixelBayerGRBG2, pixelRGB48, pixelARGB64,
                          pixelRGBHalf48, pixelARGBHalf64, pixelUV8,        pixelUV16};

// The widest layout is 8 bytes a pixel; v210 pads a row by under 48 pixels.
ZrDraw* Canvas(int type) {
  auto& frame = Frame(size_t{8} * (kHD.width + 48) * (kHD.height + 1), 3);
  ZrDraw* canvas =
      qtGetDraw(static_cast<unsigned>(type), kHD.width, kHD.height, 0, reinterpret_cast<char*>(frame.data()));
  canvas->SetColorRGBA(0.2, 0.4, 0.6, 1.0, true);
  return canvas;
}

void Report(benchmark::State& state, int64_t pixels) {
  state.counters["ns_per_pixel"] =
      benchmark::Counter(static_cast<double>(pixels) * 1e-9,
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_BackendLine(benchmark::State& state) {
  ZrDraw* canvas = Canvas(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    canvas->Line(0, 0, kPixels - 1, kPixels - 1);
    benchmark::ClobberMemory();
  }
  Report(state, kPixels);
  qtReleaseDraw(canvas);
}

void BM_BackendLineHoriz(benchmark::State& state) {
  ZrDraw* canvas = Canvas(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    canvas->LineHoriz(0, 5, kPixels - 1);
    benchmark::ClobberMemory();
  }
  Report(state, kPixels);
  qtReleaseDraw(canvas);
}

void BM_BackendFillRect(benchmark::State& state) {
  ZrDraw* canvas = Canvas(static_cast<int>(state.range(0)));
  const RECT whole = {0, 0, kHD.width, kHD.height};
  for (auto _ : state) {
    canvas->FillRect(&whole);
    benchmark::ClobberMemory();
  }
  Report(state, int64_t{kHD.width} * kHD.height);
  qtReleaseDraw(canvas);
}

void Types(benchmark::internal::Benchmark* b) {
  b->ArgName("type");
  for (int type : kTypes) b->Arg(type);
}

BENCHMARK(BM_BackendLine)->Apply(Types);
BENCHMARK(BM_BackendLineHoriz)->Apply(Types);
BENCHMARK(BM_BackendFillRect)->Apply(Types)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zr::bench
