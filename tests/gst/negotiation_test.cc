// Caps the elements cannot take are refused at negotiation, before any
// frame: formats outside their lists, widths a layout cannot hold, and two
// inputs that differ.
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

}  // namespace
}  // namespace zrtest
