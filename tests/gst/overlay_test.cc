// zroverlay in a pipeline: in every layout it takes, each frame equals the
// input with zrfx's burn-in drawn on it through the library's canvas, with
// the default places of the title-safe area and the timecode of the frame's
// running time.
#include "zrfx/overlay.h"

#include <gtest/gtest.h>
#include <zrdraw.h>

#include "gst_pipeline.h"
#include "zrfx/canvas_handle.h"

namespace zrtest {
namespace {

struct OverlayCase {
  const char* format;
  unsigned int type;
};

constexpr OverlayCase kCases[] = {
    {"RGBA", pixelRGBA32}, {"ARGB", pixelARGB32}, {"BGRA", pixelBGRA32}, {"ABGR", pixelABGR32},
    {"RGB", pixelRGB24},   {"BGR", pixelBGR24},   {"YUY2", pixelYUYV},   {"UYVY", pixelUYVY},
    {"YVYU", pixelYVYU},   {"VYUY", pixelVYUY},   {"v210", pixelV210},   {"ARGB64_LE", pixelARGB64},
};

constexpr int kWidth = 96, kHeight = 60, kFrames = 3;

// The burn-in of `text=Zr1 timecode=true safe-area=true grid=32 color=0xFFC000
// text-size=1` on 96x60 frames: the title-safe area starts at 4,3 and ends
// on row 56, where the timecode's last row lies.
zrfx::Overlay ExpectedOverlay() {
  zrfx::Overlay o;
  o.rgba = 0xFF00C0FFu;
  o.gridStep = 32;
  o.burnIn.textSize = 1;
  o.burnIn.caption = "Zr1";
  o.burnIn.captionAt = zrfx::TextPlace{4, 3};
  o.burnIn.timecodeAt = zrfx::TextPlace{4, 47};
  o.burnIn.safeArea = true;
  return o;
}

TEST(GstOverlay, FramesEqualTheCanvasDrawnDirectly) {
  for (const OverlayCase& c : kCases) {
    SCOPED_TRACE(c.format);
    const std::string caps = RawCaps(c.format, kWidth, kHeight);
    const RunResult in = TestFrames("smpte", kFrames, caps);
    const RunResult out =
        RunPipeline("videotestsrc pattern=smpte num-buffers=" + std::to_string(kFrames) + " ! " + caps +
                    " ! zroverlay text=Zr1 timecode=true safe-area=true grid=32 color=0xFFC000 "
                    "text-size=1 ! appsink name=out");
    ASSERT_TRUE(out.errors.empty()) << out.errors[0];
    ASSERT_EQ(out.frames.size(), size_t{kFrames});
    for (int i = 0; i < kFrames; ++i) {
      FrameBytes want = in.frames[i];
      {
        zrfx::CanvasHandle canvas(c.type, kWidth, kHeight, GST_VIDEO_INFO_PLANE_STRIDE(&out.info, 0),
                                  want.data());
        canvas.SetColour(0xFF00C0FFu);
        zrfx::DrawOverlay(canvas, c.type, ExpectedOverlay(), kWidth, kHeight, i);
      }
      EXPECT_NE(want, in.frames[i]);
      ASSERT_EQ(want, out.frames[i]) << "frame " << i;
    }
  }
}

}  // namespace
}  // namespace zrtest
