// zrfx draw: an overlay drawn on each frame of a raw stream, in the frame's
// own pixel layout, through a canvas of that layout over the frame.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "zrfx/args.h"
#include "zrfx/canvas_handle.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/overlay.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/progress_line.h"
#include "zrfx/raw_io.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"raw", nullptr, true, false},       {"pix", nullptr, true, false},
    {"grid", nullptr, true, false},      {"rect", nullptr, true, false},
    {"fill", nullptr, true, false},      {"colour", nullptr, true, false},
    {"in", "-i", true, false},           {"out", "-o", true, false},
    {"help", "-h", false, false},        {"text", nullptr, true, false},
    {"text-at", nullptr, true, false},   {"text-size", nullptr, true, false},
    {"timecode", nullptr, false, false}, {"timecode-at", nullptr, true, false},
    {"fps", nullptr, true, false},       {"safe-area", nullptr, false, false},
};

constexpr const char* kHelp =
    "usage: zrfx draw --raw WxH --pix FMT [--grid N] [--rect L,T,R,B]\n"
    "                 [--fill L,T,R,B] [--safe-area] [--text STR [--text-at X,Y]]\n"
    "                 [--timecode [--timecode-at X,Y] [--fps N]] [--text-size N]\n"
    "                 [--colour RRGGBB] [-i IN] [-o OUT]\n"
    "\n"
    "Draws an overlay on every frame of a raw video stream, in the frame's own\n"
    "pixel layout: a canvas of that layout from qtGetDraw over the frame, as a\n"
    "host burns in a guide, with no conversion of the picture.\n"
    "\n"
    "  --raw WxH        frame size in pixels\n"
    "  --pix FMT        pixel layout: a name, enumerator or number from the list below\n"
    "  --grid N         lines every N pixels, on columns and rows 0, N, 2N, ...\n"
    "  --rect L,T,R,B   the outline of the rectangle from column L, row T to column\n"
    "                   R, row B, all four edges included; it must lie in the frame\n"
    "  --fill L,T,R,B   the same rectangle, filled\n"
    "  --safe-area      the outlines of the action-safe (93%) and title-safe (90%)\n"
    "                   areas, centred: margins of 3.5% and 5% of the width and\n"
    "                   of the height on each side, rounded down\n"
    "  --text STR       a caption in the library's 8x10 font (printable ASCII)\n"
    "  --text-at X,Y    the top left of its first character (default: the top left\n"
    "                   corner of the title-safe area)\n"
    "  --timecode       the frame count as HH:MM:SS:FF, from 00:00:00:00 on the\n"
    "                   first frame, whole frames without drop-frame counting\n"
    "  --timecode-at X,Y  its place (default: the bottom left corner of the\n"
    "                   title-safe area)\n"
    "  --fps N          frames a second of the timecode, 1 to 100 (default 25)\n"
    "  --text-size N    the magnification of the font for both, 1 to 100: a\n"
    "                   character is 8N by 10N pixels (default 2)\n"
    "  --colour RRGGBB  the colour in hexadecimal (default FFFFFF), opaque\n"
    "  -i IN            frames from the file or pipe IN (default '-', standard input)\n"
    "  -o OUT           frames to the file OUT (default '-', standard output)\n"
    "\n"
    "Text is drawn with Label, ink only. A place must lie in the frame with the\n"
    "10N rows of a line below it; text that runs past the right edge is cut\n"
    "before the first character that does not fit whole with one column to\n"
    "spare, since a canvas itself writes wherever it is told.\n"
    "\n"
    "The grid goes first, then the filled rectangle, the outline, the safe\n"
    "areas, the caption and the timecode. Only the bytes of the drawn pixels\n"
    "change, and where pixels share bytes (4:2:2 and Bayer pairs, v210 groups\n"
    "of six) those of the group; every other byte comes out bit-identical.\n"
    "Rows are packed, except that v210 rows are padded to 48 pixels. A file\n"
    "that is not a whole number of frames is refused before any output; a pipe\n"
    "that ends inside a frame stops after the last whole frame.\n"
    "Both exit with status 2, as do a bad option, an unknown format and a width\n"
    "that the layout cannot have (4:2:2 and Bayer need an even width).\n"
    "\n"
    "Formats (name, enumerator, number: memory of a pixel or group):\n";

// The formats that this build of the library draws on, one a line, then
// the others by name, wrapped.
std::string FormatList() {
  std::string list, missing = "This build of the library has no canvas for";
  size_t lineStart = 0;
  for (const PixelFormat& f : PixelFormats()) {
    if (CanvasHandle::Supports(f.type)) {
      char line[160];
      std::snprintf(line, sizeof line, "  %-8s %-16s %5u: %s\n", f.rawName ? f.rawName : "", f.enumerator,
                    f.type, f.layout);
      list += line;
      continue;
    }
    if (missing.size() - lineStart + std::strlen(f.Name()) > 76) {
      missing += "\n ";
      lineStart = missing.size();
    }
    missing.append(" ").append(f.Name()).append(",");
  }
  if (missing.back() == ',') list += missing.substr(0, missing.size() - 1) + ".\n";
  return list;
}

}  // namespace

int DrawCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::printf("%s%s", kHelp, FormatList().c_str());
    return kExitOk;
  }
  args.ExpectPositional(0, "no arguments beside the options");
  const FrameSize size = ParseFrameSize(args.Required("raw"));
  const PixelFormat& format = ParsePixelFormat(args.Required("pix"));
  if (!format.FitsWidth(size.width))
    throw UsageError(format.Name() + std::string(" needs a width that is a multiple of ") +
                     std::to_string(format.groupPixels) + ", not " + std::to_string(size.width));
  const uint64_t bytes = format.FrameBytes(size.width, size.height);
  if (bytes > kMaxFrameBytes)
    throw UsageError("a " + std::to_string(size.width) + "x" + std::to_string(size.height) + " frame of " +
                     format.Name() + " is more than 1 GiB");
  const Overlay overlay = ParseOverlay(args, size.width, size.height);
  if (!CanvasHandle::Supports(format.type))
    throw UsageError(std::string("this build of the library has no canvas for ") + format.Name() +
                     (format.rawName ? std::string(" (") + format.enumerator + ")" : ""));

  RawInput input(args.Value("in").value_or("-"));
  input.ExpectWholeFrames(bytes, std::to_string(size.width) + "x" + std::to_string(size.height) + " " +
                                     format.Name() + " frames");
  RawOutput output(args.Value("out").value_or("-"));
  std::vector<uint8_t> frame(bytes);
  CanvasHandle canvas(format.type, size.width, size.height,
                      static_cast<uint32_t>(format.RowBytes(size.width)), frame.data());
  canvas.SetColour(overlay.rgba);
  ProgressLine progress(0);
  for (uint64_t k = 1; input.ReadFrame(frame.data(), frame.size()); ++k) {
    DrawOverlay(canvas, format.type, overlay, size.width, size.height, k - 1);
    output.WriteFrame(frame.data(), frame.size());
    progress.Update(k);
  }
  output.Close();
  return kExitOk;
}

}  // namespace zrfx
