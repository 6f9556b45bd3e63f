// Whole-canvas fills on RGBA frames: SetMemoryFast, EraseCanvas and FillRect
// (the canvas-sized memory road, and an inset rectangle that goes row by row
// through LineHoriz). Read each beside BM_Memset of the same frame size.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "common/baselines.h"
#include "platform/zrutil.h"
#include "zrdraw.h"

namespace zr::bench {
namespace {

// The word that the canvases below fill with: bytes 51 102 153 255. A word of
// four equal bytes would take SetMemoryFast's memset road instead.
constexpr uint32_t kColour = 0xFF996633u;

size_t FrameBytes(const benchmark::State& state) {
  return static_cast<size_t>(state.range(0)) * static_cast<size_t>(state.range(1)) * 4;
}

// An RGBA canvas over the same frame buffer that BM_Memset fills.
ZrDraw* Canvas(const benchmark::State& state) {
  auto& frame = Frame(FrameBytes(state), 1);
  ZrDraw* canvas = qtGetDraw(pixelRGBA32, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                             0, reinterpret_cast<char*>(frame.data()));
  canvas->SetColorRGBA(0.2, 0.4, 0.6, 1.0, true);
  return canvas;
}

void BM_SetMemoryFast(benchmark::State& state) {
  const size_t n = FrameBytes(state);
  uint8_t* frame = Frame(n, 1).data();
  TimeFrames(state, n, [&] { SetMemoryFast(frame, kColour, n); });
}

void BM_EraseCanvas(benchmark::State& state) {
  ZrDraw* canvas = Canvas(state);
  TimeFrames(state, FrameBytes(state), [&] { canvas->EraseCanvas(false); });
  qtReleaseDraw(canvas);
}

void BM_FillRect(benchmark::State& state) {
  ZrDraw* canvas = Canvas(state);
  const RECT whole{0, 0, static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1))};
  TimeFrames(state, FrameBytes(state), [&] { canvas->FillRect(&whole); });
  qtReleaseDraw(canvas);
}

// One pixel in from every edge: one LineHoriz memory fill a row.
void BM_FillRectRows(benchmark::State& state) {
  ZrDraw* canvas = Canvas(state);
  const RECT inset{1, 1, static_cast<int32_t>(state.range(0)) - 1, static_cast<int32_t>(state.range(1)) - 1};
  const size_t bytes = size_t(inset.right - inset.left) * size_t(inset.bottom - inset.top) * 4;
  TimeFrames(state, bytes, [&] { canvas->FillRect(&inset); });
  qtReleaseDraw(canvas);
}

#define ZR_CANVAS_FRAMES                \
  Args({kSmall.width, kSmall.height})   \
      ->Args({kHD.width, kHD.height})   \
      ->Args({kUHD.width, kUHD.height}) \
      ->Args({kUHD8K.width, kUHD8K.height})
BENCHMARK(BM_SetMemoryFast)->ZR_CANVAS_FRAMES;
BENCHMARK(BM_EraseCanvas)->ZR_CANVAS_FRAMES;
BENCHMARK(BM_FillRect)->ZR_CANVAS_FRAMES;
BENCHMARK(BM_FillRectRows)->ZR_CANVAS_FRAMES;

}  // namespace
}  // namespace zr::bench
