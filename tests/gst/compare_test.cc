// zrcompare in a pipeline: each output frame equals the library's mux on
// copies of the same two frames, across modes, flags and the grid, on odd
// sizes where some modes reach one row or pixel past the frame.
#include <gtest/gtest.h>
#include <zrdraw.h>

#include <algorithm>
#include <cstring>

#include "gst_pipeline.h"

namespace zrtest {
namespace {

struct CompareCase {
  const char* format;
  const char* properties;
  uint32_t flags, wipe, position, level, splitX, gridMode, gridStepX, gridStepY;
  bool warns;  // a grid that does not fit is left out, with a warning
};

constexpr uint32_t kPos = 32768;  // the default position
constexpr CompareCase kCases[] = {
    {"RGBA", "", MUX_SIDE_BY_SIDE, 1, kPos, 0, 0, 0, 25, 25, false},
    {"BGRA", "mode=split divider=true split-x=33", MUX_SPLIT | MUXF_DIVIDER, 1, kPos, 0, 33, 0, 25, 25,
     false},
    {"ARGB", "mode=checker swap=true flip-v-a=true flip-h-b=true",
     MUX_CHECKER | MUXF_SWAP | MUXF_FLIP_V_A | MUXF_FLIP_H_B, 1, kPos, 0, 0, 0, 25, 25, false},
    {"ABGR", "mode=difference level=8 grid-mode=2 grid-step-x=10 grid-step-y=5", MUX_DIFFERENCE, 1, kPos, 8,
     0, 2, 10, 5, false},
    {"RGBA", "mode=wipe wipe=3 reverse=true position=20000", MUX_WIPE, 0x80000003u, 20000, 0, 0, 0, 25, 25,
     false},
    {"BGRA", "mode=crossfade position=16384 grid=true", MUX_CROSSFADE | MUXF_GRID, 1, 16384, 0, 0, 0, 25, 25,
     false},
    {"RGBA", "mode=block-checker position=768 grid=true grid-step-x=1", MUX_BLOCK_CHECKER, 1, 768, 0, 0, 0, 1,
     25, true},
};

constexpr int kWidth = 33, kHeight = 17;

FrameBytes Expected(const CompareCase& c, const FrameBytes& a, const FrameBytes& b) {
  const size_t words = size_t{kWidth} * (kHeight + 1) + 16, bytes = size_t{kWidth} * kHeight * 4;
  std::vector<uint32_t> ca(words, 0), cb(words, 0), out(words, 0);
  std::memcpy(ca.data(), a.data(), bytes);
  std::memcpy(cb.data(), b.data(), bytes);
  ZrDraw_DisplayMuxRGBA(ca.data(), bytes, cb.data(), bytes, out.data(), bytes, c.flags, c.wipe, c.position,
                        c.level, c.splitX, 0, c.gridMode, c.gridStepX, c.gridStepY, kWidth, kHeight,
                        kWidth * 4);
  const auto* p = reinterpret_cast<const uint8_t*>(out.data());
  return FrameBytes(p, p + bytes);
}

TEST(GstCompare, FramesEqualTheLibrarysMux) {
  for (const CompareCase& c : kCases) {
    SCOPED_TRACE(c.properties);
    const std::string caps = RawCaps(c.format, kWidth, kHeight);
    // A ends first: its last frame is held.
    const RunResult a = TestFrames("smpte", 2, caps), b = TestFrames("ball", 3, caps);
    const RunResult out = RunPipeline(
        "videotestsrc pattern=smpte num-buffers=2 ! " + caps + " ! zrcompare name=c " + c.properties +
        " ! appsink name=out videotestsrc pattern=ball num-buffers=3 ! " + caps + " ! c.sink_1");
    ASSERT_TRUE(out.errors.empty()) << out.errors[0];
    ASSERT_EQ(out.frames.size(), 3u);
    EXPECT_EQ(!out.warnings.empty(), c.warns);
    for (size_t i = 0; i < 3; ++i) {
      const FrameBytes want = Expected(c, a.frames[std::min<size_t>(i, 1)], b.frames[i]);
      ASSERT_TRUE(std::equal(want.begin(), want.end(), out.frames[i].begin())) << "frame " << i;
    }
  }
}

}  // namespace
}  // namespace zrtest
