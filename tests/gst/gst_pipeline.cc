#include "gst_pipeline.h"

#include <gst/app/gstappsink.h>
#include <gtest/gtest.h>

namespace zrtest {
namespace {

// GStreamer once for the whole test binary, with the plugin of this build
// and a registry of the tests' own, so that the user's is never touched.
class GstEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    g_setenv("GST_PLUGIN_PATH", ZR_GST_PLUGIN_DIR, TRUE);
    g_setenv("GST_REGISTRY", ZR_GST_REGISTRY, TRUE);
#if defined(__SANITIZE_ADDRESS__)
    // The plugin loads only into a process with the sanitizer's runtime:
    // scan it here rather than in GStreamer's helper process.
    g_setenv("GST_REGISTRY_FORK", "no", TRUE);
#endif
    gst_init(nullptr, nullptr);
  }
};
const auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new GstEnvironment);

std::string MessageText(GstMessage* message) {
  GError* error = nullptr;
  gchar* debug = nullptr;
  if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR)
    gst_message_parse_error(message, &error, &debug);
  else
    gst_message_parse_warning(message, &error, &debug);
  std::string text = std::string(error->message) + " | " + (debug ? debug : "");
  g_error_free(error);
  g_free(debug);
  return text;
}

void KeepSample(GstSample* sample, RunResult& result) {
  gst_video_info_from_caps(&result.info, gst_sample_get_caps(sample));
  GstBuffer* buffer = gst_sample_get_buffer(sample);
  FrameBytes bytes(gst_buffer_get_size(buffer) + kFrameTail, 0);
  gst_buffer_extract(buffer, 0, bytes.data(), gst_buffer_get_size(buffer));
  result.frames.push_back(std::move(bytes));
  gst_sample_unref(sample);
}

// Takes the bus's messages until EOS or an error; false while neither came.
bool TakeMessages(GstBus* bus, RunResult& result) {
  const auto types = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_WARNING);
  while (GstMessage* message = gst_bus_pop_filtered(bus, types)) {
    const GstMessageType type = GST_MESSAGE_TYPE(message);
    if (type != GST_MESSAGE_EOS)
      (type == GST_MESSAGE_ERROR ? result.errors : result.warnings).push_back(MessageText(message));
    gst_message_unref(message);
    if (type != GST_MESSAGE_WARNING) return true;
  }
  return false;
}

}  // namespace

RunResult RunPipeline(const std::string& launch, const PipelineHooks& hooks) {
  RunResult result;
  GError* error = nullptr;
  GstElement* pipeline = gst_parse_launch(launch.c_str(), &error);
  if (error) {
    result.errors.push_back(error->message);
    g_error_free(error);
    if (pipeline) gst_object_unref(pipeline);
    return result;
  }
  result.parsed = true;
  GstElement* sink = gst_bin_get_by_name(GST_BIN(pipeline), "out");
  g_object_set(sink, "sync", FALSE, "wait-on-eos", FALSE, nullptr);
  if (hooks.setup) hooks.setup(pipeline);
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  GstBus* bus = gst_element_get_bus(pipeline);
  const gint64 deadline = g_get_monotonic_time() + 30 * G_USEC_PER_SEC;
  while (!TakeMessages(bus, result)) {
    if (g_get_monotonic_time() > deadline) {
      result.errors.push_back("timeout");
      break;
    }
    GstSample* sample = gst_app_sink_try_pull_sample(GST_APP_SINK(sink), 10 * GST_MSECOND);
    if (sample == nullptr) continue;
    KeepSample(sample, result);
    if (static_cast<int>(result.frames.size()) == hooks.flushAfter)
      gst_element_seek(pipeline, 1.0, GST_FORMAT_TIME, GST_SEEK_FLAG_FLUSH, GST_SEEK_TYPE_SET, 0,
                       GST_SEEK_TYPE_SET, hooks.stopFrames * 40 * GST_MSECOND);
  }
  while (GstSample* sample = gst_app_sink_try_pull_sample(GST_APP_SINK(sink), 0)) KeepSample(sample, result);
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(bus);
  gst_object_unref(sink);
  gst_object_unref(pipeline);
  return result;
}

std::string RawCaps(const std::string& format, int width, int height) {
  return "video/x-raw,format=" + format + ",width=" + std::to_string(width) +
         ",height=" + std::to_string(height) + ",framerate=25/1";
}

RunResult TestFrames(const std::string& pattern, int count, const std::string& caps) {
  return RunPipeline("videotestsrc pattern=" + pattern + " num-buffers=" + std::to_string(count) + " ! " +
                     caps + " ! appsink name=out");
}

}  // namespace zrtest
