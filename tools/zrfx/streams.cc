#include "zrfx/streams.h"

#include <algorithm>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/raw_io.h"
#include "zrfx/y4m_io.h"

namespace zrfx {
namespace {

class RawReader : public FrameReader {
 public:
  RawReader(const std::string& path, const StreamFormat& format)
      : name_(path == "-" ? "standard input" : path), input_(path), bytes_(format.FrameBytes()) {
    input_.ExpectWholeFrames(bytes_, format.Describe());
  }
  bool Read(uint8_t* frame) override { return input_.ReadFrame(frame, bytes_); }
  const std::string& Name() const override { return name_; }

 private:
  std::string name_;
  RawInput input_;
  size_t bytes_;
};

class RawWriter : public FrameWriter {
 public:
  RawWriter(const std::string& path, size_t bytes) : output_(path), bytes_(bytes) {}
  void Write(const uint8_t* frame) override { output_.WriteFrame(frame, bytes_); }
  void Close() override { output_.Close(); }

 private:
  RawOutput output_;
  size_t bytes_;
};

bool IsY4mName(const std::string& path) { return path.ends_with(".y4m"); }

std::string Describe(const Y4mHeader& h) {
  return std::to_string(h.width) + "x" + std::to_string(h.height) + " " + h.colour;
}

}  // namespace

bool WantsStreams(const Args& args) {
  const auto& names = args.Positional();
  return args.Has("raw") || args.Has("pix") || args.Has("y4m") ||
         std::any_of(names.begin(), names.end(), IsY4mName);
}

Streams OpenStreams(const Args& args, void (*check)(const StreamFormat&)) {
  const std::string& nameA = args.Positional()[0];
  const std::string& nameB = args.Positional()[1];
  if (nameA == "-" && nameB == "-") throw UsageError("only one input can be standard input");
  Streams s;
  if (args.Has("y4m") || IsY4mName(nameA) || IsY4mName(nameB)) {
    if (args.Has("raw") || args.Has("pix"))
      throw UsageError("--raw and --pix do not apply to y4m streams, which carry their size and format");
    auto a = std::make_unique<Y4mReader>(nameA);
    auto b = std::make_unique<Y4mReader>(nameB);
    if (Describe(a->Header()) != Describe(b->Header()))
      throw UsageError(a->Name() + " holds " + Describe(a->Header()) + " frames but " + b->Name() +
                       " holds " + Describe(b->Header()));
    s.format = a->Header().PackedFormat();
    if (check) check(s.format);
    s.out = std::make_unique<Y4mWriter>(args.Required("out"), a->Header());
    s.a = std::move(a);
    s.b = std::move(b);
    return s;
  }
  if (!args.Has("raw")) throw UsageError("raw streams need their frame size: --raw WxH");
  s.format = RawStreamFormat(ParsePixelFormat(args.Value("pix").value_or("rgba")),
                             ParseFrameSize(*args.Value("raw")));
  if (check) check(s.format);
  s.a = std::make_unique<RawReader>(nameA, s.format);
  s.b = std::make_unique<RawReader>(nameB, s.format);
  s.out = std::make_unique<RawWriter>(args.Required("out"), s.format.FrameBytes());
  return s;
}

}  // namespace zrfx
