// zrfx gallery (also zrfx with no command): renders every transition, mux
// mode and canvas drawing on the built-in pictures into a contact sheet.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/contact_sheet.h"
#include "zrfx/errors.h"
#include "zrfx/gallery.h"
#include "zrfx/numbers.h"
#include "zrfx/test_pictures.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"out", "-o", true, false},
    {"size", nullptr, true, false},
    {"sheet-png", nullptr, false, false},
    {"help", "-h", false, false},
};

constexpr const char* kHelp =
    "usage: zrfx [gallery] [--out DIR] [--size WxH] [--sheet-png]\n"
    "\n"
    "Renders every wipe family (at 25, 50 and 75 percent), the 4:2:2 and v210\n"
    "adapters, every mux mode with the flags that change it, the grid overlay,\n"
    "the canvas drawing on every pixel type, and curves and text at several\n"
    "sizes on one pixel type of each family, from two built-in pictures, as\n"
    "PNG files with an index.html contact sheet.\n"
    "\n"
    "  --out DIR     where to write (default ./zrfx-gallery; created if needed)\n"
    "  --size WxH    picture size (default 384x216, at least 64x48)\n"
    "  --sheet-png   also write one PNG montage per section (sheet-N.png)\n";

constexpr FrameSize kDefaultSize = {384, 216};
constexpr FrameSize kMinimumSize = {64, 48};

}  // namespace

int GalleryCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::fputs(kHelp, stdout);
    return kExitOk;
  }
  args.ExpectPositional(0, "no arguments beside the options");
  const FrameSize size = args.Has("size") ? ParseFrameSize(*args.Value("size")) : kDefaultSize;
  if (size.width < kMinimumSize.width || size.height < kMinimumSize.height)
    throw UsageError("the gallery needs pictures of at least 64x48");
  const std::filesystem::path dir = args.Value("out").value_or("zrfx-gallery");
  std::error_code error;
  std::filesystem::create_directories(dir, error);
  if (error) throw RunError("cannot create " + dir.string() + ": " + error.message());

  const auto start = std::chrono::steady_clock::now();
  const Frame a = MakeColourBars(size.width, size.height);
  const Frame b = MakeZonePlate(size.width, size.height);
  ContactSheet sheet(dir.string(), args.Has("sheet-png"));
  AddWipeGallery(sheet, a, b);
  AddMuxGallery(sheet, a, b, MakeChangedCopy(a));
  AddCanvasGallery(sheet, size.width, size.height);
  AddCurvesGallery(sheet, size.width, size.height);
  const std::string index = sheet.WriteIndex(
      "zrfx gallery",
      "Every transition and mux mode of zrdraw on two built-in " + std::to_string(size.width) + "x" +
          std::to_string(size.height) +
          " pictures, rendered by zrfx. Click a picture for "
          "the file; the caption names the call, the wipe number or mode, the flags and the progress.");
  for (const std::string& montage : sheet.WriteMontages()) std::printf("zrfx: montage %s\n", montage.c_str());
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("zrfx: %zu pictures in %.1f s; contact sheet: %s\n", sheet.PictureCount(), seconds,
              std::filesystem::absolute(index).lexically_normal().c_str());
  return kExitOk;
}

}  // namespace zrfx
