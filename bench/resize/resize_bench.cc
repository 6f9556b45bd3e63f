// The bare resize at 0.5 x 1.0 on RGBA frames, as the mux's side-by-side
// mode calls it: through the public name (slot 0 unless a host has called
// ippInit) and through each variant this machine runs, beside memcpy of the
// frame and of the output bytes, and beside libyuv's unfiltered ARGBScale
// to half width when it is installed.
#include <benchmark/benchmark.h>

#include <cstring>

#include "common/baselines.h"
#include "resize/cpu_features.h"
#include "resize/resize_dispatch.h"
#include "resize/resize_variants.h"
#include "zripp.h"

#if defined(ZR_HAVE_LIBYUV)
#include <libyuv/scale_argb.h>
#endif

namespace zr::bench {
namespace {

bool MachineHas(uint64_t features) {
  uint64_t word = 0;
  return ownReadCpuFeatures(&word) && (word & features) == features;
}

void ResizeHalf(benchmark::State& state, ownResizeSqrPixelFn resize, uint64_t needs) {
  if (!MachineHas(needs)) {
    state.SkipWithError("variant not supported by this processor");
    return;
  }
  const int32_t w = static_cast<int32_t>(state.range(0)), h = static_cast<int32_t>(state.range(1));
  const size_t bytes = static_cast<size_t>(w) * h * 4;
  const uint8_t* src = Frame(bytes, 0).data();
  uint8_t* dst = Frame(bytes, 1).data();
  const IppiRect roi{0, 0, w, h};
  int32_t size = 0;
  ippiResizeGetBufSize(roi, roi, 1, ZRIPP_INTER_NN, &size);
  uint8_t* scratch = ippsMalloc_8u(size);
  TimeFrames(state, bytes, [&] {
    resize(src, IppiSize{w, h}, 4 * w, roi, dst, 4 * w, roi, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_NN, scratch);
  });
  ippsFree(scratch);
}

// The floor for writing the output: memcpy of the half frame it fills.
void BM_ResizeBaseline_MemcpyOutput(benchmark::State& state) {
  const size_t bytes = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  const uint8_t* src = Frame(bytes, 0).data();
  uint8_t* dst = Frame(bytes, 1).data();
  TimeFrames(state, bytes, [&] { std::memcpy(dst, src, bytes / 2); });
}

#if defined(ZR_HAVE_LIBYUV)
void BM_ResizeHalf_Libyuv(benchmark::State& state) {
  const int w = static_cast<int>(state.range(0)), h = static_cast<int>(state.range(1));
  const size_t bytes = static_cast<size_t>(w) * h * 4;
  const uint8_t* src = Frame(bytes, 0).data();
  uint8_t* dst = Frame(bytes, 1).data();
  TimeFrames(state, bytes,
             [&] { libyuv::ARGBScale(src, 4 * w, w, h, dst, 4 * w, w / 2, h, libyuv::kFilterNone); });
}
#endif

constexpr uint64_t kSSE2 = kOwnSSE2;
constexpr uint64_t kSSSE3 = kSSE2 | kOwnSSE3 | kOwnSSSE3;
constexpr uint64_t kSSE42 = kSSSE3 | kOwnSSE41 | kOwnSSE42;
constexpr uint64_t kAVX = kSSE42 | kOwnAVX | kOwnAVXUsable;

// Every figure counts the source frame's bytes, so that rates compare.
#define ZR_RESIZE_FRAMES                \
  Args({kSmall.width, kSmall.height})   \
      ->Args({kHD.width, kHD.height})   \
      ->Args({kUHD.width, kUHD.height}) \
      ->Args({kUHD8K.width, kUHD8K.height})
BENCHMARK_CAPTURE(ResizeHalf, public_name, ippiResizeSqrPixel_8u_C4R, kSSE2)->ZR_RESIZE_FRAMES;
BENCHMARK_CAPTURE(ResizeHalf, m7, m7_ippiResizeSqrPixel_8u_C4R, kSSE2)->ZR_RESIZE_FRAMES;
BENCHMARK_CAPTURE(ResizeHalf, u8, u8_ippiResizeSqrPixel_8u_C4R, kSSSE3)->ZR_RESIZE_FRAMES;
BENCHMARK_CAPTURE(ResizeHalf, y8, y8_ippiResizeSqrPixel_8u_C4R, kSSE42)->ZR_RESIZE_FRAMES;
BENCHMARK_CAPTURE(ResizeHalf, e9, e9_ippiResizeSqrPixel_8u_C4R, kAVX)->ZR_RESIZE_FRAMES;
BENCHMARK(BM_ResizeBaseline_MemcpyOutput)->ZR_RESIZE_FRAMES;
#if defined(ZR_HAVE_LIBYUV)
BENCHMARK(BM_ResizeHalf_Libyuv)->ZR_RESIZE_FRAMES;
#endif

}  // namespace
}  // namespace zr::bench
