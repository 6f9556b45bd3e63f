// Throughput of zrtransition: frames a second in a pipeline at 1920x1080 and
// 3840x2160 on UYVY and v210, beside the bare library call on the same
// frames (the plugin's overhead), a memcpy of one frame (the machine's
// memory speed) and GStreamer's smpte transition on I420 of the same size,
// all in one run. Inputs come from appsrc as the same two frames over and
// over, so that no source's cost is counted. Usage:
//   zrtransition_bench [frames at 1080p, default 60]
#include <gst/app/gstappsrc.h>
#include <gst/gst.h>
#include <gst/video/video.h>
#include <zrdraw.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Feed {
  GstBuffer* frame;
  int left;
  GstClockTime next;
};

void NeedData(GstAppSrc* src, guint, gpointer data) {
  auto* feed = static_cast<Feed*>(data);
  if (feed->left-- <= 0) {
    gst_app_src_end_of_stream(src);
    return;
  }
  GstBuffer* buffer = gst_buffer_copy(feed->frame);  // shares the memory
  GST_BUFFER_PTS(buffer) = feed->next;
  GST_BUFFER_DURATION(buffer) = GST_SECOND / 25;
  feed->next += GST_SECOND / 25;
  gst_app_src_push_buffer(src, buffer);
}

// The first frames pay for starting the pipeline; the clock runs from the
// end of the kWarmUp-th frame to the end of the last.
constexpr int kWarmUp = 5;

struct Count {
  std::atomic<int> left;
  int timed;  // the frames after the warm-up
  Clock::time_point start, end;
};

GstPadProbeReturn CountFrame(GstPad*, GstPadProbeInfo*, gpointer data) {
  auto* count = static_cast<Count*>(data);
  const int left = count->left.load();
  if (left == count->timed + 1) count->start = Clock::now();
  if (left == 1) count->end = Clock::now();
  if (left > 0) count->left.fetch_sub(1);
  return GST_PAD_PROBE_OK;
}

// A frame of `caps` from videotestsrc.
GstBuffer* TestFrame(const std::string& pattern, const std::string& caps) {
  const std::string launch =
      "videotestsrc num-buffers=1 pattern=" + pattern + " ! " + caps + " ! appsink name=out";
  GstElement* pipeline = gst_parse_launch(launch.c_str(), nullptr);
  GstElement* sink = gst_bin_get_by_name(GST_BIN(pipeline), "out");
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  GstSample* sample = nullptr;
  g_signal_emit_by_name(sink, "pull-sample", &sample);
  GstBuffer* frame = gst_buffer_ref(gst_sample_get_buffer(sample));
  gst_sample_unref(sample);
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(sink);
  gst_object_unref(pipeline);
  return frame;
}

// Seconds for `frames` output frames of `element` over two appsrc inputs,
// after kWarmUp more.
double RunPipeline(const std::string& element, const std::string& sinkB, const std::string& caps,
                   int frames) {
  const std::string launch = "appsrc name=a format=time caps=\"" + caps + "\" ! " + element +
                             " name=t ! fakesink name=sink sync=false appsrc name=b format=time caps=\"" +
                             caps + "\" ! t." + sinkB;
  GstElement* pipeline = gst_parse_launch(launch.c_str(), nullptr);
  // More input than output: smpte goes on making frames after its inputs
  // end, so a probe on the sink counts the frames and ends the run.
  Feed feeds[2] = {{TestFrame("smpte", caps), 2 * frames + kWarmUp, 0},
                   {TestFrame("ball", caps), 2 * frames + kWarmUp, 0}};
  GstAppSrcCallbacks callbacks = {NeedData, nullptr, nullptr, {}};
  for (int k = 0; k < 2; ++k) {
    GstElement* src = gst_bin_get_by_name(GST_BIN(pipeline), k ? "b" : "a");
    g_object_set(src, "max-buffers", G_GUINT64_CONSTANT(2), nullptr);
    gst_app_src_set_callbacks(GST_APP_SRC(src), &callbacks, &feeds[k], nullptr);
    gst_object_unref(src);
  }
  Count count{frames + kWarmUp, frames, {}, {}};
  GstElement* sink = gst_bin_get_by_name(GST_BIN(pipeline), "sink");
  GstPad* pad = gst_element_get_static_pad(sink, "sink");
  gst_pad_add_probe(pad, GST_PAD_PROBE_TYPE_BUFFER, CountFrame, &count, nullptr);
  gst_object_unref(pad);
  gst_object_unref(sink);
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  GstBus* bus = gst_element_get_bus(pipeline);
  while (count.left.load() > 0)
    if (GstMessage* error = gst_bus_timed_pop_filtered(bus, GST_MSECOND, GST_MESSAGE_ERROR)) {
      std::fprintf(stderr, "%s failed\n", element.c_str());
      gst_message_unref(error);
      break;
    }
  const double seconds = std::chrono::duration<double>(count.end - count.start).count();
  gst_object_unref(bus);
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(pipeline);
  for (Feed& f : feeds) gst_buffer_unref(f.frame);
  return seconds;
}

// Seconds for `frames` bare library calls (or memcpy calls) on the same frames.
double RunBare(const std::string& format, const std::string& caps, int frames, bool copyOnly) {
  GstVideoInfo info;
  GstCaps* parsed = gst_caps_from_string(caps.c_str());
  gst_video_info_from_caps(&info, parsed);
  gst_caps_unref(parsed);
  GstBuffer* frameA = TestFrame("smpte", caps);
  GstBuffer* frameB = TestFrame("ball", caps);
  GstMapInfo a, b;
  gst_buffer_map(frameA, &a, GST_MAP_READ);
  gst_buffer_map(frameB, &b, GST_MAP_READ);
  std::vector<uint8_t> out(a.size);
  const auto pitch = static_cast<uint32_t>(GST_VIDEO_INFO_PLANE_STRIDE(&info, 0));
  const auto w = static_cast<uint32_t>(GST_VIDEO_INFO_WIDTH(&info)),
             h = static_cast<uint32_t>(GST_VIDEO_INFO_HEIGHT(&info));
  const auto wipe = format == "v210" ? ZrDraw_DisplayWipeV210 : ZrDraw_DisplayWipeYCbCr;
  const auto start = Clock::now();
  for (int k = 0; k < frames; ++k) {
    if (copyOnly)
      std::memcpy(out.data(), a.data, a.size);
    else
      wipe(a.data, pitch, b.data, pitch, out.data(), pitch, 1, 0, w, h, 0, 0, 0, 0, 0, 0, 65536,
           static_cast<uint32_t>(65536ull * k / frames));
  }
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  gst_buffer_unmap(frameA, &a);
  gst_buffer_unmap(frameB, &b);
  gst_buffer_unref(frameA);
  gst_buffer_unref(frameB);
  return seconds;
}

}  // namespace

int main(int argc, char** argv) {
  if (!std::getenv("GST_PLUGIN_PATH")) setenv("GST_PLUGIN_PATH", ZR_GST_PLUGIN_DIR, 1);
  gst_init(&argc, &argv);
  setvbuf(stdout, nullptr, _IONBF, 0);
  const int base = argc > 1 ? std::atoi(argv[1]) : 60;
  std::printf("%-10s %-5s %12s %12s %9s %12s %14s\n", "size", "fmt", "plugin fps", "library fps", "overhead",
              "memcpy fps", "smpte I420 fps");
  for (const auto& [w, h] : {std::pair{1920, 1080}, std::pair{3840, 2160}}) {
    const int frames = w > 1920 ? base / 2 : base;
    const std::string size =
        ",width=" + std::to_string(w) + ",height=" + std::to_string(h) + ",framerate=25/1";
    const std::string duration = " duration=" + std::to_string(uint64_t{GST_SECOND} / 25 * frames);
    const double smpte =
        frames / RunPipeline("smpte type=1" + duration, "sink2", "video/x-raw,format=I420" + size, frames);
    for (const std::string format : {"UYVY", "v210"}) {
      const std::string caps = "video/x-raw,format=" + format + size;
      const double plugin = frames / RunPipeline("zrtransition wipe=1" + duration, "sink_1", caps, frames);
      const double library = frames / RunBare(format, caps, frames, false);
      const double copy = frames / RunBare(format, caps, frames, true);
      std::printf("%4dx%-5d %-5s %12.1f %12.1f %8.1f%% %12.1f %14.1f\n", w, h, format.c_str(), plugin,
                  library, 100.0 * (library / plugin - 1.0), copy, smpte);
    }
  }
  return 0;
}
