// zrfx wipe: one frame of a transition between two pictures, or every frame
// of two streams at one progress.
#include <cstdio>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/inputs.h"
#include "zrfx/numbers.h"
#include "zrfx/operations.h"
#include "zrfx/png_io.h"
#include "zrfx/streams.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"code", nullptr, true, false},     {"progress", nullptr, true, false}, {"span", nullptr, true, false},
    {"reverse", nullptr, false, false}, {"layout", nullptr, true, false},   {"out", "-o", true, false},
    {"raw", nullptr, true, false},      {"pix", nullptr, true, false},      {"y4m", nullptr, false, false},
    {"help", "-h", false, false},
};

constexpr const char* kHelp =
    "usage: zrfx wipe --code N --progress P [--span S] [--reverse] [--layout L] A.png B.png -o OUT.png\n"
    "       zrfx wipe --code N --progress P [--span S] [--reverse] --raw WxH [--pix FMT] A B -o OUT|-\n"
    "       zrfx wipe --code N --progress P [--span S] [--reverse] A.y4m B.y4m -o OUT.y4m|-\n"
    "\n"
    "One frame of the transition from A (outgoing) to B (incoming), through\n"
    "ZrDraw_DisplayWipe on 8-bit RGBA.\n"
    "\n"
    "  --code N      wipe number, 0 to 2147483647 (the numbers are listed below)\n"
    "  --progress P  how far the transition is, 0 to S\n"
    "  --span S      the end of the progress scale (default 100, so P is a percentage)\n"
    "  --reverse     set bit 31 of the wipe code: A and B exchange roles\n"
    "  --layout L    rgba (default), ycbcr (through ZrDraw_DisplayWipeYCbCr on\n"
    "                8-bit 4:2:2) or v210 (through ZrDraw_DisplayWipeV210)\n"
    "  -o OUT.png    the output (- for standard output); it has an alpha\n"
    "                channel when an input has one\n"
    "  --raw WxH     raw streams instead of pictures, with --pix FMT, or y4m\n"
    "                streams with --y4m, as in zrfx transition: each pair of\n"
    "                frames gives one output frame at progress P, until the\n"
    "                shorter stream ends\n"
    "\n"
    "Wipe numbers and the effect each plays as:\n";

}  // namespace

int WipeCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::printf("%s%s", kHelp, WipeNumberHelp().c_str());
    return kExitOk;
  }
  const uint32_t code = WipeCodeOption(args);
  const uint32_t progress = ParseU32(args.Required("progress"), "progress");
  const uint32_t span = args.Has("span") ? ParseU32(*args.Value("span"), "span") : 100;
  if (span == 0) throw UsageError("span must be at least 1");
  if (progress > span)
    throw UsageError("progress " + std::to_string(progress) + " is beyond the span " + std::to_string(span));
  if (WantsStreams(args)) {
    args.ExpectPositional(2, "two inputs A and B");
    if (args.Has("layout"))
      throw UsageError("--layout is for PNG pictures; give a stream's layout with --pix");
    Streams s = OpenStreams(args);
    RunPairLoop(*s.a, *s.b, *s.out, s.Shape(), [&](uint8_t* a, uint8_t* b, uint8_t* out, uint64_t) {
      WipeFrames(s.format, a, b, out, code, span, progress);
    });
    return kExitOk;
  }
  const std::string layout = WipeLayoutOption(args);
  const std::string out = args.Required("out");
  args.ExpectPositional(2, "two input pictures A.png B.png");

  PicturePair pair = ReadPicturePair(args.Positional()[0], args.Positional()[1]);
  Frame result;
  if (layout == "ycbcr") {
    result = RunWipeYCbCr(pair.a.frame, pair.b.frame, code, span, progress);
  } else if (layout == "v210") {
    result = RunWipeV210(pair.a.frame, pair.b.frame, code, span, progress);
  } else {
    result = Frame(pair.a.frame.width(), pair.a.frame.height());
    RunWipe(pair.a.frame, pair.b.frame, result, code, span, progress);
  }
  WritePng(out, result, pair.HasAlpha() && layout == "rgba");
  return kExitOk;
}

}  // namespace zrfx
