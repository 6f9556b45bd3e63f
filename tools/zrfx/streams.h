// The two input streams and the output stream of `wipe`, `transition` and
// `mux`, from their options: raw frames of --raw WxH in --pix FMT, or y4m
// streams (--y4m, or inputs named *.y4m) that carry their own size and
// format, with an output that mirrors the first input's header.
#ifndef ZRFX_STREAMS_H
#define ZRFX_STREAMS_H

#include <memory>

#include "zrfx/args.h"
#include "zrfx/frame_loop.h"
#include "zrfx/stream_format.h"

namespace zrfx {

struct Streams {
  StreamFormat format;
  std::unique_ptr<FrameReader> a, b;
  std::unique_ptr<FrameWriter> out;

  LoopShape Shape() const { return {format.FrameBytes(), format.pitch}; }
};

// Whether the options (--raw, --pix, --y4m) or an input named *.y4m ask for
// streams rather than PNG pictures.
bool WantsStreams(const Args& args);

// Opens both inputs (the two positional arguments) and then the output
// (-o), once `check` (when given) has passed the inputs' format. Throws
// UsageError for options that do not go together, inputs of different sizes
// or formats, and what the readers refuse.
Streams OpenStreams(const Args& args, void (*check)(const StreamFormat&) = nullptr);

}  // namespace zrfx

#endif
