// zrfx transition: every frame of a transition, as numbered PNG files or as
// a raw RGBA stream.
#include <cstdio>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/frame_pattern.h"
#include "zrfx/inputs.h"
#include "zrfx/numbers.h"
#include "zrfx/operations.h"
#include "zrfx/progress_line.h"
#include "zrfx/raw_io.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"code", nullptr, true, false}, {"frames", nullptr, true, false}, {"reverse", nullptr, false, false},
    {"raw", nullptr, true, false},  {"out", "-o", true, false},       {"help", "-h", false, false},
};

constexpr const char* kHelp =
    "usage: zrfx transition --code N --frames F [--reverse] A.png B.png -o OUT_%03d.png\n"
    "       zrfx transition --code N --frames F [--reverse] --raw WxH A B -o OUT|-\n"
    "\n"
    "The whole transition from A to B in F frames. Frame k (from 0) is one call\n"
    "of ZrDraw_DisplayWipe with progress k on a scale from 0 to F-1, as a host\n"
    "plays a transition: frame 0 shows A, frame F-1 shows B.\n"
    "\n"
    "  --code N      wipe number, 0 to 2147483647 (see zrfx wipe --help)\n"
    "  --frames F    number of frames, at least 2\n"
    "  --reverse     set bit 31 of the wipe code: A and B exchange roles\n"
    "  -o PATTERN    PNG mode: file names with one %d, %4d or %03d for k\n"
    "  --raw WxH     A and B are files or pipes of packed 8-bit RGBA frames of\n"
    "                that size ('-' is standard input); frame k of the output\n"
    "                mixes frame k of each. A stream that ends early holds its\n"
    "                last frame, so a single frame serves as a still. The F\n"
    "                frames go to the file OUT, or to standard output with -o -.\n";

void RunPngTransition(const Args& args, uint32_t code, uint32_t frames) {
  const FramePattern pattern(args.Required("out"));
  PicturePair pair = ReadPicturePair(args.Positional()[0], args.Positional()[1]);
  Frame result(pair.a.frame.width(), pair.a.frame.height());
  for (uint32_t k = 0; k < frames; ++k) {
    RunWipe(pair.a.frame, pair.b.frame, result, code, frames - 1, k);
    WritePng(pattern.Format(k), result, pair.HasAlpha());
  }
}

// Reads the next frame of `input` into `frame`, keeping what it holds when
// the stream has ended. Throws UsageError when the first frame is missing.
void NextFrame(RawInput& input, Frame& frame, bool& ended, uint32_t k) {
  if (ended) return;
  if (input.ReadFrame(frame.data(), frame.bytes())) return;
  if (k == 0) throw UsageError(input.name() + " holds no frame");
  ended = true;
}

void RunRawTransition(const Args& args, uint32_t code, uint32_t frames) {
  const FrameSize size = ParseFrameSize(*args.Value("raw"));
  const std::string& nameA = args.Positional()[0];
  const std::string& nameB = args.Positional()[1];
  if (nameA == "-" && nameB == "-") throw UsageError("only one input can be standard input");
  RawInput inputA(nameA), inputB(nameB);
  RawOutput output(args.Required("out"));
  Frame a(size.width, size.height), b(size.width, size.height), result(size.width, size.height);
  bool endedA = false, endedB = false;
  ProgressLine progress(frames);
  for (uint32_t k = 0; k < frames; ++k) {
    NextFrame(inputA, a, endedA, k);
    NextFrame(inputB, b, endedB, k);
    RunWipe(a, b, result, code, frames - 1, k);
    output.WriteFrame(result.data(), result.bytes());
    progress.Update(k + 1);
  }
  output.Close();
}

}  // namespace

int TransitionCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::fputs(kHelp, stdout);
    return kExitOk;
  }
  const uint32_t code = WipeCodeOption(args);
  const uint32_t frames = ParseU32(args.Required("frames"), "frame count");
  if (frames < 2) throw UsageError("a transition needs at least 2 frames");
  args.ExpectPositional(2, "two inputs A and B");
  if (args.Has("raw"))
    RunRawTransition(args, code, frames);
  else
    RunPngTransition(args, code, frames);
  return kExitOk;
}

}  // namespace zrfx
