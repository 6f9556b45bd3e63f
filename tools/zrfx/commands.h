// The subcommands of zrfx. Each parses argv[first..argc), does its work and
// returns the exit status; errors are thrown (errors.h).
#ifndef ZRFX_COMMANDS_H
#define ZRFX_COMMANDS_H

namespace zrfx {

int GalleryCommand(int argc, char** argv, int first);
int WipeCommand(int argc, char** argv, int first);
int TransitionCommand(int argc, char** argv, int first);
int MuxCommand(int argc, char** argv, int first);
int DrawCommand(int argc, char** argv, int first);
int ListCommand(int argc, char** argv, int first);

}  // namespace zrfx

#endif
