// Caps the elements cannot take are refused at negotiation, before any
// frame: formats outside their lists, widths a layout cannot hold, and two
// inputs that differ.
#include <gst/app/gstappsrc.h>
#include <gst/check/gstharness.h>
#include <gtest/gtest.h>

#include "gst_pipeline.h"

namespace zrtest {
namespace {

GstFlowReturn PushOneFrame(const char* element, const std::string& caps) {
  GstHarness* h = gst_harness_new(element);
  gst_harness_set_src_caps_str(h, caps.c_str());
  const GstFlowReturn ret = gst_harness_push(h, gst_buffer_new_allocate(nullptr, 1 << 16, nullptr));
  gst_harness_teardown(h);
  return ret;
}

TEST(GstNegotiation, OverlayRefusesWhatNoCanvasHolds) {
  EXPECT_EQ(GST_FLOW_NOT_NEGOTIATED, PushOneFrame("zroverlay", RawCaps("I420", 16, 16)));
  EXPECT_EQ(GST_FLOW_NOT_NEGOTIATED, PushOneFrame("zroverlay", RawCaps("UYVY", 15, 16)));
  EXPECT_EQ(GST_FLOW_OK, PushOneFrame("zroverlay", RawCaps("UYVY", 16, 16)));
}

TEST(GstNegotiation, TwoInputElementsRefuseOtherFormatsAndDifferentInputs) {
  const RunResult yuv = RunPipeline("videotestsrc num-buffers=1 ! " + RawCaps("UYVY", 16, 16) +
                                    " ! zrcompare name=c ! appsink name=out videotestsrc num-buffers=1 ! " +
                                    RawCaps("UYVY", 16, 16) + " ! c.");
  EXPECT_FALSE(yuv.parsed);
  EXPECT_FALSE(RunPipeline("videotestsrc num-buffers=1 ! " + RawCaps("I420", 16, 16) +
                           " ! zrtransition ! appsink name=out")
                   .parsed);

  const RunResult sizes =
      RunPipeline("videotestsrc num-buffers=3 ! " + RawCaps("UYVY", 32, 16) +
                  " ! zrtransition name=t ! appsink name=out videotestsrc num-buffers=3 ! " +
                  RawCaps("UYVY", 16, 16) + " ! t.");
  EXPECT_TRUE(sizes.frames.empty());
  ASSERT_FALSE(sizes.errors.empty());
  EXPECT_NE(sizes.errors[0].find("differ"), std::string::npos) << sizes.errors[0];
}

// Pushes `frames` RGBA frames, the first `changeAt` of them 32x16 and the
// rest 16x16, then the end of the stream.
void PushFrames(GstElement* pipeline, const char* name, int frames, int changeAt) {
  GstElement* src = gst_bin_get_by_name(GST_BIN(pipeline), name);
  for (int i = 0; i < frames; ++i) {
    const int width = i < changeAt ? 32 : 16;
    GstCaps* caps = gst_caps_from_string(RawCaps("RGBA", width, 16).c_str());
    GstBuffer* buffer = gst_buffer_new_allocate(nullptr, static_cast<gsize>(width) * 16 * 4, nullptr);
    gst_buffer_memset(buffer, 0, static_cast<guint8>(i * 40), static_cast<gsize>(width) * 16 * 4);
    GST_BUFFER_PTS(buffer) = static_cast<GstClockTime>(i) * 40 * GST_MSECOND;
    GST_BUFFER_DURATION(buffer) = 40 * GST_MSECOND;
    GstSample* sample = gst_sample_new(buffer, caps, nullptr, nullptr);
    gst_app_src_push_sample(GST_APP_SRC(src), sample);
    gst_sample_unref(sample);
    gst_buffer_unref(buffer);
    gst_caps_unref(caps);
  }
  gst_app_src_end_of_stream(GST_APP_SRC(src));
  gst_object_unref(src);
}

// One input that changes its size mid-stream: its new caps are refused with
// a warning that says why, its stream stops with an error, and every frame
// that came out has the size the output was negotiated at.
TEST(GstNegotiation, AnInputThatChangesSizeMidStreamIsRefusedWithAClearWarning) {
  for (const char* element : {"zrtransition position=0.5", "zrcompare"}) {
    SCOPED_TRACE(element);
    PipelineHooks hooks;
    hooks.setup = [](GstElement* pipeline) {
      PushFrames(pipeline, "a", 6, 3);
      PushFrames(pipeline, "b", 6, 6);
    };
    const RunResult out = RunPipeline(std::string("appsrc name=a format=time ! ") + element +
                                          " name=t ! appsink name=out appsrc name=b format=time ! t.sink_1",
                                      hooks);
    EXPECT_FALSE(out.errors.empty());
    ASSERT_FALSE(out.warnings.empty());
    EXPECT_NE(out.warnings[0].find("sink_0 offered RGBA 16x16 frames for RGBA 32x16 output"),
              std::string::npos)
        << out.warnings[0];
    for (const FrameBytes& frame : out.frames) EXPECT_EQ(frame.size(), 32u * 16 * 4 + kFrameTail);
  }
}

}  // namespace
}  // namespace zrtest
