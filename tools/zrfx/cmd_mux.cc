// zrfx mux: two pictures or two raw streams through ZrDraw_DisplayMuxRGBA.
#include <zrdraw.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/inputs.h"
#include "zrfx/mux_names.h"
#include "zrfx/numbers.h"
#include "zrfx/operations.h"
#include "zrfx/progress_line.h"
#include "zrfx/streams.h"
#include "zrfx/wipe_names.h"
#include "zrfx/wipe_probe.h"

namespace zrfx {
namespace {

constexpr uint32_t kWholePosition = 65536;

const std::vector<Option> kOptions = {
    {"mode", nullptr, true, false},     {"flag", nullptr, true, true},     {"level", nullptr, true, false},
    {"position", nullptr, true, false}, {"split-x", nullptr, true, false}, {"split-y", nullptr, true, false},
    {"grid", nullptr, true, false},     {"code", nullptr, true, false},    {"reverse", nullptr, false, false},
    {"raw", nullptr, true, false},      {"pix", nullptr, true, false},     {"y4m", nullptr, false, false},
    {"out", "-o", true, false},         {"help", "-h", false, false},
};

constexpr const char* kHelp =
    "usage: zrfx mux --mode NAME [options] A.png B.png -o OUT.png\n"
    "       zrfx mux --mode NAME [options] --raw WxH [--pix rgba|bgra] A B -o OUT|-\n"
    "\n"
    "Combines A and B with ZrDraw_DisplayMuxRGBA.\n"
    "\n"
    "  --mode NAME     a mode below (without MUX_, any case) or its number\n"
    "  --flag NAME     a flag below (without MUXF_); repeat or separate by commas\n"
    "  --level L       mixLevel: gain, tolerance or channel mask (default 0)\n"
    "  --position P    mixPosition, 65536 being the whole (default 32768)\n"
    "  --split-x X     splitX (default: the middle column; CROP_PAIR: a quarter)\n"
    "  --split-y Y     splitY (default: the middle row; CROP_PAIR: a quarter)\n"
    "  --grid P%       grid overlay cutting the picture into 100/P parts\n"
    "  --grid XxY      grid overlay with lines every X columns and Y rows\n"
    "  --code N        wipe number for the WIPE mode (default 0, a dissolve)\n"
    "  --reverse       set bit 31 of that wipe code\n"
    "  --raw WxH       A and B are files or pipes of packed 8-bit RGBA frames of\n"
    "                  that size ('-' is standard input); each pair of frames\n"
    "                  gives one output frame until the shorter stream ends. The\n"
    "                  frames go to the file OUT, or to standard output with -o -.\n"
    "  --pix FMT       the raw frames' layout: rgba (default) or bgra. The mux\n"
    "                  takes four bytes a pixel with alpha last, so no other\n"
    "                  layout and no y4m stream; convert those to rgba first.\n"
    "  -o OUT.png      the output (- for standard output); it has an alpha\n"
    "                  channel when an input has one\n"
    "\n";

// Everything but the defaults that depend on the picture size.
struct MuxOptions {
  MuxSettings settings;
  std::optional<uint32_t> splitX, splitY;
};

MuxOptions ParseOptions(const Args& args) {
  MuxOptions o;
  MuxSettings& s = o.settings;
  s.flags = ParseMuxMode(args.Required("mode"));
  for (const std::string& list : args.Values("flag")) {
    size_t start = 0;
    while (start <= list.size()) {
      const size_t comma = std::min(list.find(',', start), list.size());
      s.flags |= ParseMuxFlag(list.substr(start, comma - start));
      start = comma + 1;
    }
  }
  s.level = args.Has("level") ? ParseU32(*args.Value("level"), "level") : 0;
  s.position = args.Has("position") ? ParseU32(*args.Value("position"), "position") : 32768;
  // Above the whole, the cross-fade's weights wrap and scramble the picture.
  if (s.position > kWholePosition)
    throw UsageError("position " + std::to_string(s.position) + " is beyond the whole, 65536");
  if (args.Has("split-x")) o.splitX = ParseU32(*args.Value("split-x"), "split-x");
  if (args.Has("split-y")) o.splitY = ParseU32(*args.Value("split-y"), "split-y");
  s.wipeCode = args.Has("code") ? ParseWipeNumber(*args.Value("code")) : 0;
  if (args.Has("reverse")) s.wipeCode |= kWipeReverse;
  if ((s.flags & MUX_MODE_MASK) == MUX_WIPE) RefuseSilentWipe(s.wipeCode);
  if (const std::optional<std::string> grid = args.Value("grid")) {
    if (!grid->empty() && grid->back() == '%') {
      s.gridMode = 1;
      s.gridStepX = ParseU32(grid->substr(0, grid->size() - 1), "grid percentage");
    } else {
      const size_t x = grid->find_first_of("xX");
      if (x == std::string::npos) throw UsageError("grid '" + *grid + "' is neither P% nor XxY");
      s.gridMode = 2;
      s.gridStepX = ParseU32(grid->substr(0, x), "grid column step");
      s.gridStepY = ParseU32(grid->substr(x + 1), "grid row step");
    }
  } else if (s.flags & MUXF_GRID) {
    throw UsageError("the grid flag needs --grid P% or --grid XxY for its steps");
  }
  return o;
}

// The settings for pictures of this size: the split defaults to the middle
// (CROP_PAIR: a quarter in, so that the crops show the centre).
MuxSettings SettingsFor(const MuxOptions& o, uint32_t width, uint32_t height) {
  MuxSettings s = o.settings;
  const uint32_t divisor = (s.flags & MUX_MODE_MASK) == MUX_CROP_PAIR ? 4 : 2;
  s.splitX = o.splitX.value_or(width / divisor);
  s.splitY = o.splitY.value_or(height / divisor);
  CheckMuxSettings(s, width, height);
  return s;
}

void RunPngMux(const Args& args, const MuxOptions& options) {
  const std::string out = args.Required("out");
  PicturePair pair = ReadPicturePair(args.Positional()[0], args.Positional()[1]);
  const MuxSettings settings = SettingsFor(options, pair.a.frame.width(), pair.a.frame.height());
  Frame result(pair.a.frame.width(), pair.a.frame.height());
  RunMux(pair.a.frame, pair.b.frame, result, settings);
  WritePng(out, result, pair.HasAlpha());
}

void RunStreamMux(const Args& args, const MuxOptions& options) {
  Streams s = OpenStreams(args, CheckMuxable);
  const uint32_t width = s.format.width, height = s.format.height;
  const MuxSettings settings = SettingsFor(options, width, height);
  RunPairLoop(*s.a, *s.b, *s.out, s.Shape(), [&](uint8_t* a, uint8_t* b, uint8_t* out, uint64_t) {
    RunMux(a, b, out, width, height, settings);
  });
}

}  // namespace

int MuxCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::printf("%s%s", kHelp, MuxHelp().c_str());
    return kExitOk;
  }
  const MuxOptions options = ParseOptions(args);
  args.ExpectPositional(2, "two inputs A and B");
  if (WantsStreams(args))
    RunStreamMux(args, options);
  else
    RunPngMux(args, options);
  return kExitOk;
}

}  // namespace zrfx
