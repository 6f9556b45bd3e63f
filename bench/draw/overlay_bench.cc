// A burn-in overlay on a 1920x1080 frame: 100 circles of radius 100, 100
// Bezier curves and 20 lines of 40 characters of text at magnification 2, on
// RGBA and on v210, per frame. Read each beside BM_OverlayFrameMemcpy, a copy
// of the same frame's bytes in the same run.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>

#include "common/baselines.h"
#include "zrdraw.h"

namespace zr::bench {
namespace {

constexpr int kWidth = kHD.width, kHeight = kHD.height;

uint32_t RowBytes(int type) { return type == pixelV210 ? (kWidth + 47) / 48 * 128 : kWidth * 4; }

void DrawOverlay(ZrDraw* canvas) {
  for (int i = 0; i < 100; ++i) canvas->Circle(110 + i * 17, 110 + (i * 37) % 860, 100);
  for (int i = 0; i < 100; ++i) {
    const int x = 20 + i * 18, y = 40 + (i * 53) % 900;
    canvas->Bezier(x, y, x + 60, y - 30, x + 120, y + 130, x + 200, y + 90);
  }
  canvas->LabelFont(0, 2);
  for (int i = 0; i < 20; ++i)
    canvas->Label(40, 20 + i * 52, "BURN-IN 00:00:00:00 CAM 1 take 12 abc-xy", false, i % 2 == 1);
}

void BM_Overlay(benchmark::State& state) {
  const int type = static_cast<int>(state.range(0));
  auto& frame = Frame(size_t{RowBytes(type)} * kHeight, 0);
  ZrDraw* canvas = qtGetDraw(static_cast<unsigned>(type), kWidth, kHeight, RowBytes(type),
                             reinterpret_cast<char*>(frame.data()));
  canvas->SetColorRGBA(1.0, 0.8, 0.1, 1.0, true);
  canvas->SetColorRGBA(0.0, 0.0, 0.0, 1.0, false);
  for (auto _ : state) {
    DrawOverlay(canvas);
    benchmark::ClobberMemory();
  }
  qtReleaseDraw(canvas);
}

void BM_OverlayFrameMemcpy(benchmark::State& state) {
  const size_t n = size_t{RowBytes(static_cast<int>(state.range(0)))} * kHeight;
  auto& src = Frame(n, 1);
  auto& dst = Frame(n, 2);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(n));
}

BENCHMARK(BM_Overlay)->Arg(pixelRGBA32)->Arg(pixelV210)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OverlayFrameMemcpy)->Arg(pixelRGBA32)->Arg(pixelV210)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zr::bench
