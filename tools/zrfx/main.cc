// zrfx: shows and applies the transitions and mux modes of zrdraw.
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "zrfx/commands.h"
#include "zrfx/errors.h"

namespace {

constexpr const char* kHelp =
    "usage: zrfx [COMMAND] [OPTIONS]\n"
    "\n"
    "See and apply the transitions and mux modes of zrdraw, and draw on raw frames.\n"
    "\n"
    "  zrfx [gallery] [--out DIR] [--size WxH] [--sheet-png]\n"
    "      Render every wipe, mux mode and canvas drawing on two built-in\n"
    "      pictures into DIR (default ./zrfx-gallery) with an index.html sheet.\n"
    "  zrfx wipe --code N --progress P [--span S] [--reverse] A.png B.png -o OUT.png\n"
    "  zrfx transition --code N --frames F A.png B.png -o OUT_%03d.png\n"
    "  zrfx mux --mode NAME [--flag F]... A.png B.png -o OUT.png\n"
    "      transition and mux also take --raw WxH: streams of packed RGBA frames.\n"
    "  zrfx draw --raw WxH --pix FMT [--grid N] [--rect L,T,R,B] [--fill L,T,R,B]\n"
    "            [--colour RRGGBB] [-i IN] [-o OUT]\n"
    "      Draw a grid and rectangles on a stream of raw frames in their own\n"
    "      pixel layout; zrfx draw --help lists the layouts.\n"
    "\n"
    "Run zrfx COMMAND --help for the options of each. Errors in the arguments\n"
    "or the input, a stream that ends inside a frame included, exit with\n"
    "status 2; failures to read or write with status 1.\n";

struct Command {
  const char* name;
  int (*run)(int argc, char** argv, int first);
};

constexpr Command kCommands[] = {
    {"gallery", zrfx::GalleryCommand}, {"wipe", zrfx::WipeCommand}, {"transition", zrfx::TransitionCommand},
    {"mux", zrfx::MuxCommand},         {"draw", zrfx::DrawCommand},
};

int Run(int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') {
    if (argc >= 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
      std::fputs(kHelp, stdout);
      return zrfx::kExitOk;
    }
    // Options without a command belong to the gallery.
    return zrfx::GalleryCommand(argc, argv, 1);
  }
  for (const Command& command : kCommands)
    if (std::strcmp(argv[1], command.name) == 0) return command.run(argc, argv, 2);
  throw zrfx::UsageError(std::string("unknown command '") + argv[1] + "' (see zrfx --help)");
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that goes away (ffmpeg closing its input) shows as a write
  // error, reported like any other, not as a silent death by signal.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return Run(argc, argv);
  } catch (const zrfx::UsageError& e) {
    std::fprintf(stderr, "zrfx: %s\n", e.what());
    return zrfx::kExitUsage;
  } catch (const zrfx::RunError& e) {
    std::fprintf(stderr, "zrfx: %s\n", e.what());
    return zrfx::kExitRunError;
  } catch (const std::bad_alloc&) {
    std::fprintf(stderr, "zrfx: out of memory\n");
    return zrfx::kExitRunError;
  } catch (const std::exception& e) {
    std::fprintf(stderr, "zrfx: %s\n", e.what());
    return zrfx::kExitRunError;
  }
}
