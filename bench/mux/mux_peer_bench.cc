// Peer libraries doing the same jobs on the same frames, in the same run:
// libyuv's ARGBInterpolate (MUX_CROSSFADE), InterpolatePlane (weigh_plane,
// in place) and ARGBScale without filtering to half width (MUX_SIDE_BY_SIDE,
// both halves), and OpenCV's absdiff (MUX_DIFFERENCE). Built only when the
// peer is installed.
#include <benchmark/benchmark.h>

#include <string>

#include "common/baselines.h"

#if defined(ZR_HAVE_LIBYUV)
#include <libyuv/planar_functions.h>
#include <libyuv/scale_argb.h>
#endif
#if defined(ZR_HAVE_OPENCV)
#include <opencv2/core.hpp>
#endif

namespace zr::bench {
namespace {

size_t RgbaBytes(FrameSize s) { return size_t(s.width) * s.height * 4; }
std::string SizeName(FrameSize s) { return std::to_string(s.width) + "x" + std::to_string(s.height); }

#if defined(ZR_HAVE_LIBYUV)
// fraction 128 is MUX_CROSSFADE at 32768, fraction 100 at 100 << 8.
void YuvArgbInterpolate(benchmark::State& state, FrameSize s, int fraction) {
  const size_t n = RgbaBytes(s);
  const uint8_t* a = Frame(n, 0).data();
  const uint8_t* b = Frame(n, 2).data();
  uint8_t* out = Frame(n, 1).data();
  const int row = s.width * 4;
  TimeFrames(state, n,
             [&] { libyuv::ARGBInterpolate(a, row, b, row, out, row, s.width, s.height, fraction); });
}

void YuvInterpolatePlane(benchmark::State& state, FrameSize s) {
  const size_t n = RgbaBytes(s);
  const uint8_t* src = Frame(n, 0).data();
  uint8_t* dst = Frame(n, 1).data();
  const int row = s.width * 4;
  TimeFrames(state, n, [&] { libyuv::InterpolatePlane(dst, row, src, row, dst, row, row, s.height, 100); });
}

void YuvArgbScaleHalves(benchmark::State& state, FrameSize s) {
  const size_t n = RgbaBytes(s);
  const uint8_t* a = Frame(n, 0).data();
  const uint8_t* b = Frame(n, 2).data();
  uint8_t* out = Frame(n, 1).data();
  const int row = s.width * 4;
  TimeFrames(state, n, [&] {
    libyuv::ARGBScale(a, row, s.width, s.height, out, row, s.width / 2, s.height, libyuv::kFilterNone);
    libyuv::ARGBScale(b, row, s.width, s.height, out + row / 2, row, s.width / 2, s.height,
                      libyuv::kFilterNone);
  });
}
#endif

#if defined(ZR_HAVE_OPENCV)
void CvAbsdiff(benchmark::State& state, FrameSize s) {
  const size_t n = RgbaBytes(s);
  const cv::Mat a(s.height, s.width, CV_8UC4, Frame(n, 0).data());
  const cv::Mat b(s.height, s.width, CV_8UC4, Frame(n, 2).data());
  cv::Mat out(s.height, s.width, CV_8UC4, Frame(n, 1).data());
  cv::setNumThreads(0);  // single-threaded, as the mux is
  TimeFrames(state, n, [&] { cv::absdiff(a, b, out); });
}
#endif

const bool kRegistered = [] {
  for (FrameSize s : {kSmall, kHD, kUHD, kUHD8K}) {
    static_cast<void>(s);
#if defined(ZR_HAVE_LIBYUV)
    benchmark::RegisterBenchmark(("BM_Peer/libyuv_ARGBInterpolate/" + SizeName(s)).c_str(),
                                 YuvArgbInterpolate, s, 128);
    benchmark::RegisterBenchmark(("BM_Peer/libyuv_ARGBInterpolate100/" + SizeName(s)).c_str(),
                                 YuvArgbInterpolate, s, 100);
    benchmark::RegisterBenchmark(("BM_Peer/libyuv_InterpolatePlane/" + SizeName(s)).c_str(),
                                 YuvInterpolatePlane, s);
    benchmark::RegisterBenchmark(("BM_Peer/libyuv_ARGBScaleHalves/" + SizeName(s)).c_str(),
                                 YuvArgbScaleHalves, s);
#endif
#if defined(ZR_HAVE_OPENCV)
    benchmark::RegisterBenchmark(("BM_Peer/opencv_absdiff/" + SizeName(s)).c_str(), CvAbsdiff, s);
#endif
  }
  return true;
}();

}  // namespace
}  // namespace zr::bench
