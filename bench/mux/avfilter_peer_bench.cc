// FFmpeg's libavfilter doing the same jobs on frames of the same size, in the
// same run: xfade at the middle of a fade (MUX_CROSSFADE at 32768, the
// dissolve) and of a wipeleft (the horizontal wipe), and blend's average and
// difference (MUX_AVERAGE, MUX_DIFFERENCE). Neither filter takes packed RGBA,
// so the frames go in as planar GBRAP: four planes of width x height bytes,
// as many bytes as an RGBA frame; each figure counts an RGBA frame's bytes,
// as BM_Mux and BM_Wipe do. The graph is built once; an iteration pushes the
// two frames (kept by reference, allocated once) and pulls the result. The
// graph runs on one thread, and on its own threads (one a processor). Built
// only when libavfilter is installed.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "common/baselines.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
#include <libavutil/frame.h>
#include <libavutil/log.h>
}

namespace zr::bench {
namespace {

struct PeerCase {
  const char* name;
  const char* filter;
  const char* options;
};

// xfade lasts 60 s at most: in microsecond steps, a frame a step, the
// transition stays at its middle for millions of frames.
constexpr int64_t kDurationUs = 60'000'000;
constexpr PeerCase kCases[] = {
    {"xfade_fade", "xfade", "transition=fade:duration=60:offset=0"},
    {"xfade_wipeleft", "xfade", "transition=wipeleft:duration=60:offset=0"},
    {"blend_average", "blend", "all_mode=average"},
    {"blend_difference", "blend", "all_mode=difference"},
};

// A GBRAP frame of its own, filled from the benchmark frame `index`; null
// when it cannot be allocated.
AVFrame* PlanarFrame(FrameSize s, int index) {
  AVFrame* f = av_frame_alloc();
  if (!f) return nullptr;
  f->format = AV_PIX_FMT_GBRAP;
  f->width = s.width;
  f->height = s.height;
  if (av_frame_get_buffer(f, 0) < 0) av_frame_free(&f);
  if (!f) return nullptr;
  const uint8_t* src = Frame(size_t(s.width) * s.height * 4, index).data();
  for (int plane = 0; plane < 4; ++plane)
    for (int y = 0; y < s.height; ++y, src += s.width)
      std::memcpy(f->data[plane] + ptrdiff_t{y} * f->linesize[plane], src, size_t(s.width));
  return f;
}

// Two buffer sources into the filter, into a buffer sink.
class PeerGraph {
 public:
  PeerGraph(const PeerCase& c, FrameSize s, int threads) : graph_(avfilter_graph_alloc()) {
    graph_->nb_threads = threads;
    const std::string source = "video_size=" + std::to_string(s.width) + "x" + std::to_string(s.height) +
                               ":pix_fmt=" + std::to_string(AV_PIX_FMT_GBRAP) +
                               ":time_base=1/1000000:frame_rate=25/1:pixel_aspect=1/1";
    const AVFilter* buffer = avfilter_get_by_name("buffer");
    AVFilterContext* filter = nullptr;
    ok_ = avfilter_graph_create_filter(&a_, buffer, "a", source.c_str(), nullptr, graph_) >= 0 &&
          avfilter_graph_create_filter(&b_, buffer, "b", source.c_str(), nullptr, graph_) >= 0 &&
          avfilter_graph_create_filter(&filter, avfilter_get_by_name(c.filter), c.filter, c.options, nullptr,
                                       graph_) >= 0 &&
          avfilter_graph_create_filter(&sink_, avfilter_get_by_name("buffersink"), "out", nullptr, nullptr,
                                       graph_) >= 0 &&
          avfilter_link(a_, 0, filter, 0) >= 0 && avfilter_link(b_, 0, filter, 1) >= 0 &&
          avfilter_link(filter, 0, sink_, 0) >= 0 && avfilter_graph_config(graph_, nullptr) >= 0 &&
          graph_->nb_filters == 4;  // no format conversion slipped in
  }
  ~PeerGraph() { avfilter_graph_free(&graph_); }
  PeerGraph(const PeerGraph&) = delete;
  PeerGraph& operator=(const PeerGraph&) = delete;

  bool ok() const { return ok_; }

  // Pushes both frames at `pts` and pulls the result into `out`.
  bool Run(AVFrame* a, AVFrame* b, AVFrame* out, int64_t pts) {
    a->pts = b->pts = pts;
    av_frame_unref(out);
    return av_buffersrc_add_frame_flags(a_, a, AV_BUFFERSRC_FLAG_KEEP_REF) >= 0 &&
           av_buffersrc_add_frame_flags(b_, b, AV_BUFFERSRC_FLAG_KEEP_REF) >= 0 &&
           av_buffersink_get_frame(sink_, out) >= 0;
  }

 private:
  AVFilterGraph* graph_;
  AVFilterContext *a_ = nullptr, *b_ = nullptr, *sink_ = nullptr;
  bool ok_ = false;
};

// threads: 1, or 0 for the graph's own choice.
void AvFilter(benchmark::State& state, PeerCase c, FrameSize s, int threads) {
  PeerGraph graph(c, s, threads);
  AVFrame* a = PlanarFrame(s, 0);
  AVFrame* b = PlanarFrame(s, 2);
  AVFrame* out = av_frame_alloc();
  // The first frame starts the transition; the next ones sit at its middle.
  int64_t pts = 0;
  bool ok = graph.ok() && a && b && out && graph.Run(a, b, out, pts);
  pts = kDurationUs / 2;
  if (ok) TimeFrames(state, size_t(s.width) * s.height * 4, [&] { ok &= graph.Run(a, b, out, ++pts); });
  if (!ok) state.SkipWithError("libavfilter graph failed");
  av_frame_free(&out);
  av_frame_free(&b);
  av_frame_free(&a);
}

std::string SizeName(FrameSize s) { return std::to_string(s.width) + "x" + std::to_string(s.height); }

const bool kRegistered = [] {
  av_log_set_level(AV_LOG_ERROR);
  for (FrameSize s : kFrameSizes)
    for (const PeerCase& c : kCases)
      for (int threads : {1, 0}) {
        const std::string name = std::string("BM_Peer/avfilter_") + c.name +
                                 (threads ? "/one_thread/" : "/own_threads/") + SizeName(s);
        benchmark::RegisterBenchmark(name.c_str(), AvFilter, c, s, threads)->UseRealTime();
      }
  return true;
}();

}  // namespace
}  // namespace zr::bench
