// 1000-pixel strokes on every byte-ordered RGB type: Line (a diagonal, a
// shallow x-major and a steep y-major one, one PutPixel call a pixel) and
// LineHoriz (the word fill on types 1 to 4, PutPixel on 5 and 6). Read each
// beside BM_LineBytesMemset / BM_LineBytesMemcpy of the bytes the stroke
// writes: 4000 for the 32-bit types, 3000 for the 24-bit ones.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>

#include "common/baselines.h"
#include "zrdraw.h"

namespace zr::bench {
namespace {

constexpr int kSide = 1024;
constexpr int kPixels = 1000;

int BytesPerPixel(int type) { return type == pixelRGB24 || type == pixelBGR24 ? 3 : 4; }

ZrDraw* Canvas(int type) {
  auto& frame = Frame(size_t{kSide} * kSide * 4, 3);
  ZrDraw* canvas =
      qtGetDraw(static_cast<unsigned>(type), kSide, kSide, 0, reinterpret_cast<char*>(frame.data()));
  canvas->SetColorRGBA(0.2, 0.4, 0.6, 1.0, true);
  return canvas;
}

template <int X2, int Y2>
void BM_Line(benchmark::State& state) {
  const int type = static_cast<int>(state.range(0));
  ZrDraw* canvas = Canvas(type);
  for (auto _ : state) {
    canvas->Line(0, 0, X2, Y2);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kPixels * BytesPerPixel(type));
  qtReleaseDraw(canvas);
}

void BM_LineHoriz(benchmark::State& state) {
  const int type = static_cast<int>(state.range(0));
  ZrDraw* canvas = Canvas(type);
  for (auto _ : state) {
    canvas->LineHoriz(0, 5, kPixels);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kPixels * BytesPerPixel(type));
  qtReleaseDraw(canvas);
}

void BM_LineBytesMemset(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0));
  auto& dst = Frame(n, 1);
  for (auto _ : state) {
    std::memset(dst.data(), 0x5A, n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(n));
}

void BM_LineBytesMemcpy(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0));
  auto& src = Frame(n, 0);
  auto& dst = Frame(n, 1);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(n));
}

#define ZR_LINE_TYPES DenseRange(pixelRGBA32, pixelBGR24)
BENCHMARK(BM_Line<kPixels - 1, kPixels - 1>)->Name("BM_LineDiagonal")->ZR_LINE_TYPES;
BENCHMARK(BM_Line<kPixels - 1, 299>)->Name("BM_LineShallow")->ZR_LINE_TYPES;
BENCHMARK(BM_Line<299, kPixels - 1>)->Name("BM_LineSteep")->ZR_LINE_TYPES;
BENCHMARK(BM_LineHoriz)->ZR_LINE_TYPES;
BENCHMARK(BM_LineBytesMemset)->Arg(3 * kPixels)->Arg(4 * kPixels);
BENCHMARK(BM_LineBytesMemcpy)->Arg(3 * kPixels)->Arg(4 * kPixels);

}  // namespace
}  // namespace zr::bench
