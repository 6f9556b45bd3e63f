// zrfx transition: every frame of a transition, as numbered PNG files or as
// a raw or y4m stream.
#include <cstdio>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/frame_pattern.h"
#include "zrfx/inputs.h"
#include "zrfx/numbers.h"
#include "zrfx/operations.h"
#include "zrfx/progress_line.h"
#include "zrfx/streams.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"code", nullptr, true, false}, {"frames", nullptr, true, false}, {"reverse", nullptr, false, false},
    {"span", nullptr, true, false}, {"layout", nullptr, true, false}, {"raw", nullptr, true, false},
    {"pix", nullptr, true, false},  {"y4m", nullptr, false, false},   {"out", "-o", true, false},
    {"help", "-h", false, false},
};

constexpr const char* kHelp =
    "usage: zrfx transition --code N --frames F [options] A.png B.png -o OUT_%03d.png\n"
    "       zrfx transition --code N --frames F [options] --raw WxH [--pix FMT] A B -o OUT|-\n"
    "       zrfx transition --code N --frames F [options] A.y4m B.y4m -o OUT.y4m|-\n"
    "\n"
    "The whole transition from A to B in F frames. Frame k (from 0) is one call\n"
    "of ZrDraw_DisplayWipe with progress k * S / (F-1), rounded down, on a\n"
    "scale from 0 to S, as a host plays a transition: frame 0 shows A, frame\n"
    "F-1 shows B.\n"
    "\n"
    "  --code N      wipe number, 0 to 2147483647 (see zrfx wipe --help)\n"
    "  --frames F    number of frames, at least 2\n"
    "  --span S      the end of the progress scale (default 65536, the mux's\n"
    "                scale, on which the library mixes dissolves in integers)\n"
    "  --reverse     set bit 31 of the wipe code: A and B exchange roles\n"
    "  --layout L    PNG mode: rgba (default), ycbcr or v210, as in zrfx wipe\n"
    "  -o PATTERN    PNG mode: file names with one %d, %4d or %03d for k\n"
    "  --raw WxH     A and B are files or pipes of raw frames of that size ('-'\n"
    "                is standard input); frame k of the output mixes frame k of\n"
    "                each. A stream that ends early holds its last frame, so a\n"
    "                single frame serves as a still. The F frames go to the\n"
    "                file OUT, or to standard output with -o -.\n"
    "  --pix FMT     the raw frames' layout, by its ffmpeg name (default rgba):\n";

constexpr const char* kHelpTail =
    ".\n"
    "                4:2:2 goes through ZrDraw_DisplayWipeYCbCr, v210 through\n"
    "                ZrDraw_DisplayWipeV210, so the output keeps the input's layout.\n"
    "  --y4m         A and B are YUV4MPEG2 streams (implied by names ending in\n"
    "                .y4m), progressive C422, C422p10, C444 or C444p10, of one\n"
    "                size; the output has A's header. 4:2:2 is wiped as uyvy422\n"
    "                or v210, 4:4:4 as Y Cb Cr samples side by side.\n";

// The default progress scale: a power of two, where the library's dissolve
// mixes in integers, and fine enough for any frame count.
constexpr uint32_t kDefaultSpan = 65536;

// Progress of frame k of `frames` on a scale from 0 to `span`.
uint32_t FrameProgress(uint64_t k, uint32_t frames, uint32_t span) {
  return static_cast<uint32_t>(k * span / (frames - 1));
}

void RunPngTransition(const Args& args, uint32_t code, uint32_t frames, uint32_t span) {
  const FramePattern pattern(args.Required("out"));
  const std::string layout = WipeLayoutOption(args);
  PicturePair pair = ReadPicturePair(args.Positional()[0], args.Positional()[1]);
  Frame result(pair.a.frame.width(), pair.a.frame.height());
  for (uint32_t k = 0; k < frames; ++k) {
    const uint32_t progress = FrameProgress(k, frames, span);
    if (layout == "ycbcr")
      result = RunWipeYCbCr(pair.a.frame, pair.b.frame, code, span, progress);
    else if (layout == "v210")
      result = RunWipeV210(pair.a.frame, pair.b.frame, code, span, progress);
    else
      RunWipe(pair.a.frame, pair.b.frame, result, code, span, progress);
    WritePng(pattern.Format(k), result, pair.HasAlpha() && layout == "rgba");
  }
}

void RunStreamTransition(const Args& args, uint32_t code, uint32_t frames, uint32_t span) {
  if (args.Has("layout")) throw UsageError("--layout is for PNG pictures; give a stream's layout with --pix");
  Streams s = OpenStreams(args);
  RunHeldLoop(*s.a, *s.b, *s.out, s.Shape(), frames, [&](uint8_t* a, uint8_t* b, uint8_t* out, uint64_t k) {
    WipeFrames(s.format, a, b, out, code, span, FrameProgress(k, frames, span));
  });
}

}  // namespace

int TransitionCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::printf("%s%s%s", kHelp, StreamFormatHelp(), kHelpTail);
    return kExitOk;
  }
  const uint32_t code = WipeCodeOption(args);
  const uint32_t frames = ParseU32(args.Required("frames"), "frame count");
  if (frames < 2) throw UsageError("a transition needs at least 2 frames");
  const uint32_t span = args.Has("span") ? ParseU32(*args.Value("span"), "span") : kDefaultSpan;
  if (span == 0) throw UsageError("span must be at least 1");
  args.ExpectPositional(2, "two inputs A and B");
  if (WantsStreams(args))
    RunStreamTransition(args, code, frames, span);
  else
    RunPngTransition(args, code, frames, span);
  return kExitOk;
}

}  // namespace zrfx
