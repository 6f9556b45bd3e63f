// zrfx: shows and applies the transitions and mux modes of zrdraw.
#include <zrdraw.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>

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
    "      wipe and transition also take streams: raw frames with --raw WxH\n"
    "      --pix FMT (rgba, uyvy422, v210, rgb48le, ...), or y4m (--y4m or\n"
    "      *.y4m); mux takes raw rgba or bgra frames.\n"
    "  zrfx draw --raw WxH --pix FMT [--grid N] [--rect L,T,R,B] [--fill L,T,R,B]\n"
    "            [--safe-area] [--text STR] [--timecode] [--colour RRGGBB] [-i IN] [-o OUT]\n"
    "      Burn guides, a caption and a running timecode into a stream of raw\n"
    "      frames in their own pixel layout; zrfx draw --help lists the layouts.\n"
    "\n"
    "  zrfx list\n"
    "      Every wipe number and mux mode, with what each does.\n"
    "  zrfx help [COMMAND], zrfx --version\n"
    "\n"
    "Run zrfx COMMAND --help for the options of each. Errors in the arguments\n"
    "or the input (a missing or unreadable input, a stream that ends inside a\n"
    "frame) exit with status 2; failures to write an output, or to read an\n"
    "input that opened, with status 1.\n";

struct Command {
  const char* name;
  int (*run)(int argc, char** argv, int first);
};

constexpr Command kCommands[] = {
    {"gallery", zrfx::GalleryCommand}, {"wipe", zrfx::WipeCommand}, {"transition", zrfx::TransitionCommand},
    {"mux", zrfx::MuxCommand},         {"draw", zrfx::DrawCommand}, {"list", zrfx::ListCommand},
};

const Command* FindCommand(const char* name) {
  for (const Command& command : kCommands)
    if (std::strcmp(name, command.name) == 0) return &command;
  throw zrfx::UsageError(std::string("unknown command '") + name + "' (see zrfx --help)");
}

// zrfx help [COMMAND]: the same as zrfx [COMMAND] --help.
int Help(int argc, char** argv) {
  if (argc == 2) {
    std::fputs(kHelp, stdout);
    return zrfx::kExitOk;
  }
  if (argc > 3) throw zrfx::UsageError("zrfx help takes one command at most");
  char help[] = "--help";
  char* helpArgv[] = {argv[0], argv[2], help};
  return FindCommand(argv[2])->run(3, helpArgv, 2);
}

int Run(int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') {
    if (argc >= 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
      std::fputs(kHelp, stdout);
      return zrfx::kExitOk;
    }
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
      std::printf("zrfx (zrdraw) %d.%d.%d\n", ZRDRAW_VERSION_MAJOR, ZRDRAW_VERSION_MINOR,
                  ZRDRAW_VERSION_PATCH);
      return zrfx::kExitOk;
    }
    // Options without a command belong to the gallery.
    return zrfx::GalleryCommand(argc, argv, 1);
  }
  if (std::strcmp(argv[1], "help") == 0) return Help(argc, argv);
  return FindCommand(argv[1])->run(argc, argv, 2);
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
