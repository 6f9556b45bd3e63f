// Pipelines for the plugin's tests: run a gst-launch description to its end
// and keep what reached the appsink named "out", and the bus messages.
#ifndef ZR_TESTS_GST_GST_PIPELINE_H
#define ZR_TESTS_GST_GST_PIPELINE_H

#include <gst/gst.h>
#include <gst/video/video.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zrtest {

// A frame's bytes with room after them: the library reads and writes a
// little past some frames.
using FrameBytes = std::vector<uint8_t>;
constexpr size_t kFrameTail = 256;

struct RunResult {
  bool parsed = false;
  std::vector<FrameBytes> frames;  // each buffer's bytes, then kFrameTail zero bytes
  GstVideoInfo info{};             // the caps of the frames
  std::vector<std::string> errors, warnings;
};

struct PipelineHooks {
  // Called on the parsed pipeline before it plays.
  std::function<void(GstElement* pipeline)> setup;
  // After this many frames, a flushing seek to the start that ends the
  // stream `stopFrames` frames of 40 ms later; frames from before the seek
  // that the flush dropped are not kept.
  int flushAfter = -1;
  int stopFrames = 0;
};

// Runs `launch` until EOS or an error (30 seconds at most).
RunResult RunPipeline(const std::string& launch, const PipelineHooks& hooks = {});

// "video/x-raw,format=F,width=W,height=H,framerate=25/1"
std::string RawCaps(const std::string& format, int width, int height);

// The frames of `videotestsrc pattern=P num-buffers=N ! caps`.
RunResult TestFrames(const std::string& pattern, int count, const std::string& caps);

}  // namespace zrtest

#endif
