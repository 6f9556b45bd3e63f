// zrtransition in a pipeline: each output frame equals the library's own
// call on the same two input frames at the frame's progress, in every format
// it takes, and an input that ends holds its last frame.
#include <gst/controller/gstdirectcontrolbinding.h>
#include <gst/controller/gstinterpolationcontrolsource.h>
#include <gtest/gtest.h>
#include <zrdraw.h>

#include <algorithm>

#include "gst_pipeline.h"

namespace zrtest {
namespace {

enum class Call { kWipe, kYCbCr, kV210 };

struct TransitionCase {
  const char* format;
  int width;  // YUY2 at 42: rows the 4:2:2 adapter reads past
  Call call;
  uint32_t effectFormat;
  uint32_t wipe;
  bool reverse;
};

constexpr TransitionCase kCases[] = {
    {"RGBA", 64, Call::kWipe, 1, 3, false},      {"BGRA", 64, Call::kWipe, 3, 41, true},
    {"ARGB", 64, Call::kWipe, 2, 0, false},      {"ABGR", 64, Call::kWipe, 4, 501, false},
    {"ARGB64_LE", 64, Call::kWipe, 32, 0, true}, {"UYVY", 64, Call::kYCbCr, 0, 23, false},
    {"YUY2", 42, Call::kYCbCr, 0, 1, true},      {"v210", 48, Call::kV210, 0, 7, false},
};

constexpr int kHeight = 36;
constexpr int kFramesA = 4, kFramesB = 10;
// 8 frames of 40 ms: progress steps by 65536 / 8 a frame from sink_1's first.
constexpr int kDurationFrames = 8;
constexpr uint32_t kProgressStep = 65536 / kDurationFrames;

FrameBytes Expected(const TransitionCase& c, const GstVideoInfo& info, FrameBytes a, FrameBytes b,
                    uint32_t progress) {
  FrameBytes out(a.size(), 0);
  const auto pitch = static_cast<uint32_t>(GST_VIDEO_INFO_PLANE_STRIDE(&info, 0));
  const uint32_t code = c.wipe | (c.reverse ? 0x80000000u : 0);
  const auto w = static_cast<uint32_t>(c.width), h = static_cast<uint32_t>(kHeight);
  const auto call = c.call == Call::kWipe    ? ZrDraw_DisplayWipe
                    : c.call == Call::kYCbCr ? ZrDraw_DisplayWipeYCbCr
                                             : ZrDraw_DisplayWipeV210;
  EXPECT_EQ(0u, call(a.data(), pitch, b.data(), pitch, out.data(), pitch, code, c.effectFormat, w, h, 0, 0, 0,
                     0, 0, 0, 65536, progress));
  return out;
}

TEST(GstTransition, FramesEqualTheLibraryAndAnEndedInputHolds) {
  for (const TransitionCase& c : kCases) {
    SCOPED_TRACE(c.format);
    const std::string caps = RawCaps(c.format, c.width, kHeight);
    const RunResult a = TestFrames("smpte", kFramesA, caps), b = TestFrames("ball", kFramesB, caps);
    const RunResult out = RunPipeline(
        "videotestsrc pattern=smpte num-buffers=" + std::to_string(kFramesA) + " ! " + caps +
        " ! zrtransition name=t wipe=" + std::to_string(c.wipe) + (c.reverse ? " reverse=true" : "") +
        " duration=" + std::to_string(kDurationFrames * 40000000) +
        " ! appsink name=out videotestsrc pattern=ball num-buffers=" + std::to_string(kFramesB) + " ! " +
        caps + " ! t.sink_1");
    ASSERT_TRUE(out.errors.empty()) << out.errors[0];
    ASSERT_EQ(out.frames.size(), size_t{kFramesB});
    for (int i = 0; i < kFramesB; ++i) {
      const auto progress = static_cast<uint32_t>(std::min(i, kDurationFrames)) * kProgressStep;
      const FrameBytes want =
          Expected(c, out.info, a.frames[std::min(i, kFramesA - 1)], b.frames[i], progress);
      const size_t bytes = out.frames[i].size() - kFrameTail;
      ASSERT_TRUE(std::equal(want.begin(), want.begin() + bytes, out.frames[i].begin())) << "frame " << i;
    }
  }
}

// With position instead of a duration, and sink_1 alone missing: the first
// input passes through, with a warning.
TEST(GstTransition, PositionAndAMissingSecondInput) {
  const TransitionCase c = kCases[0];
  const std::string caps = RawCaps(c.format, c.width, kHeight);
  const RunResult a = TestFrames("smpte", 2, caps), b = TestFrames("ball", 2, caps);
  const RunResult mid = RunPipeline("videotestsrc pattern=smpte num-buffers=2 ! " + caps +
                                    " ! zrtransition name=t wipe=3 position=0.25 ! appsink name=out "
                                    "videotestsrc pattern=ball num-buffers=2 ! " +
                                    caps + " ! t.sink_1");
  ASSERT_EQ(mid.frames.size(), 2u);
  const FrameBytes want = Expected(c, mid.info, a.frames[1], b.frames[1], 16384);
  EXPECT_TRUE(std::equal(want.begin(), want.end() - kFrameTail, mid.frames[1].begin()));

  const RunResult alone = RunPipeline("videotestsrc pattern=smpte num-buffers=2 ! " + caps +
                                      " ! zrtransition position=0.5 ! appsink name=out");
  ASSERT_EQ(alone.frames.size(), 2u);
  EXPECT_EQ(alone.frames[1], a.frames[1]);
  ASSERT_FALSE(alone.warnings.empty());
  EXPECT_NE(alone.warnings[0].find("one input"), std::string::npos) << alone.warnings[0];
}

// A flushing seek in the middle of a timed transition: the frames after it
// start again from the first with no progress, as a new stream does.
TEST(GstTransition, AFlushingSeekStartsTheTransitionAgain) {
  const TransitionCase c = kCases[5];  // UYVY, through the 4:2:2 adapter
  const std::string caps = RawCaps(c.format, c.width, kHeight);
  constexpr int kBefore = 6, kAfter = 5;
  // Not smpte: its noise goes on across a seek.
  const RunResult a = TestFrames("zone-plate", kBefore, caps), b = TestFrames("ball", kBefore, caps);
  PipelineHooks hooks;
  hooks.flushAfter = kBefore;
  hooks.stopFrames = kAfter;
  const RunResult out = RunPipeline(
      "videotestsrc pattern=zone-plate ! " + caps +
          " ! zrtransition name=t wipe=23 duration=" + std::to_string(kDurationFrames * 40000000) +
          " ! appsink name=out videotestsrc pattern=ball ! " + caps + " ! t.sink_1",
      hooks);
  ASSERT_TRUE(out.errors.empty()) << out.errors[0];
  ASSERT_EQ(out.frames.size(), size_t{kBefore + kAfter});
  for (size_t k = 0; k < out.frames.size(); ++k) {
    const int i = static_cast<int>(k < kBefore ? k : k - kBefore);
    const FrameBytes want =
        Expected(c, out.info, a.frames[i], b.frames[i], static_cast<uint32_t>(i) * kProgressStep);
    EXPECT_TRUE(std::equal(want.begin(), want.end() - kFrameTail, out.frames[k].begin())) << "frame " << k;
  }
}

// position bound to a control source: each frame plays the value at its
// running time.
TEST(GstTransition, AControlledPositionSetsEachFrame) {
  const TransitionCase c = kCases[7];  // v210
  const std::string caps = RawCaps(c.format, c.width, kHeight);
  constexpr int kFrames = 5;
  const RunResult a = TestFrames("smpte", kFrames, caps), b = TestFrames("ball", kFrames, caps);
  PipelineHooks hooks;
  hooks.setup = [](GstElement* pipeline) {
    GstElement* t = gst_bin_get_by_name(GST_BIN(pipeline), "t");
    GstControlSource* ramp = gst_interpolation_control_source_new();
    g_object_set(ramp, "mode", GST_INTERPOLATION_MODE_LINEAR, nullptr);
    GstTimedValueControlSource* points = GST_TIMED_VALUE_CONTROL_SOURCE(ramp);
    gst_timed_value_control_source_set(points, 0, 0.0);
    gst_timed_value_control_source_set(points, (kFrames - 1) * 40 * GST_MSECOND, 1.0);
    gst_object_add_control_binding(GST_OBJECT(t),
                                   gst_direct_control_binding_new_absolute(GST_OBJECT(t), "position", ramp));
    gst_object_unref(ramp);
    gst_object_unref(t);
  };
  const RunResult out =
      RunPipeline("videotestsrc pattern=smpte num-buffers=" + std::to_string(kFrames) + " ! " + caps +
                      " ! zrtransition name=t wipe=7 ! appsink name=out videotestsrc pattern=ball "
                      "num-buffers=" +
                      std::to_string(kFrames) + " ! " + caps + " ! t.sink_1",
                  hooks);
  ASSERT_TRUE(out.errors.empty()) << out.errors[0];
  ASSERT_EQ(out.frames.size(), size_t{kFrames});
  for (int i = 0; i < kFrames; ++i) {
    const FrameBytes want = Expected(c, out.info, a.frames[i], b.frames[i], static_cast<uint32_t>(i) * 16384);
    EXPECT_TRUE(std::equal(want.begin(), want.end() - kFrameTail, out.frames[i].begin())) << "frame " << i;
  }
}

}  // namespace
}  // namespace zrtest
