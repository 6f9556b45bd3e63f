// zrfx's parsing of what a user gives it: the options of a subcommand and
// the numbers, sizes, layouts, wipe and mux names in them, and the raw and
// y4m streams it reads. A UsageError or RunError is the tool refusing the
// input, which is the expected outcome; anything else is a fault.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "zrfx/args.h"
#include "zrfx/errors.h"
#include "zrfx/inputs.h"
#include "zrfx/mux_names.h"
#include "zrfx/numbers.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/raw_io.h"
#include "zrfx/stream_format.h"
#include "zrfx/wipe_names.h"
#include "zrfx/y4m_convert.h"
#include "zrfx/y4m_header.h"
#include "zrfx/y4m_io.h"

namespace {

using namespace zrfx;

// Frames above this are accepted by the tool but only cost time here.
constexpr size_t kMaxFrameBytes = 1 << 20;

// The options of wipe, transition and mux together.
const std::vector<Option> kOptions = {
    {"code", nullptr, true, false},     {"progress", nullptr, true, false}, {"span", nullptr, true, false},
    {"reverse", nullptr, false, false}, {"layout", nullptr, true, false},   {"out", "-o", true, false},
    {"raw", nullptr, true, false},      {"pix", nullptr, true, false},      {"y4m", nullptr, false, false},
    {"mode", nullptr, true, false},     {"flag", nullptr, true, true},      {"level", nullptr, true, false},
    {"frames", nullptr, true, false},   {"help", "-h", false, false},
};

// Runs `step`; the tool's own refusals end it quietly.
template <typename Step>
void Refusable(Step step) {
  try {
    step();
  } catch (const UsageError&) {
  } catch (const RunError&) {
  }
}

void ParseOptions(const std::string& text) {
  std::vector<std::string> words;
  size_t start = 0;
  for (size_t end; (end = text.find('\0', start)) != std::string::npos; start = end + 1)
    words.push_back(text.substr(start, end - start));
  words.push_back(text.substr(start));
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const int argc = static_cast<int>(words.size());

  Refusable([&] {
    const Args args(kOptions, argc, argv.data(), 0);
    for (const char* name : {"progress", "span", "level", "frames"})
      if (const auto value = args.Value(name)) Refusable([&] { ParseU32(*value, name); });
    Refusable([&] { WipeCodeOption(args); });
    Refusable([&] { WipeLayoutOption(args); });
    if (const auto mode = args.Value("mode")) Refusable([&] { MuxModeName(ParseMuxMode(*mode)); });
    for (const std::string& flag : args.Values("flag")) Refusable([&] { MuxFlagNames(ParseMuxFlag(flag)); });
    Refusable([&] { args.ExpectPositional(2, "inputs"); });
    Refusable([&] {
      const FrameSize size = ParseFrameSize(args.Value("raw").value_or(""));
      const PixelFormat& format = ParsePixelFormat(args.Value("pix").value_or("rgba"));
      const StreamFormat stream = RawStreamFormat(format, size);
      stream.Describe();
      CheckMuxable(stream);
    });
    for (const std::string& word : args.Positional()) Refusable([&] { DescribeWipe(ParseWipeNumber(word)); });
  });
}

// The bytes as a file that the readers open by name, as a host's pipe or
// file would be.
class MemoryFile {
 public:
  explicit MemoryFile(const std::string& bytes) : fd_(memfd_create("zrfx-input", 0)) {
    if (fd_ < 0) return;
    for (size_t done = 0; done < bytes.size();) {
      const ssize_t n = write(fd_, bytes.data() + done, bytes.size() - done);
      if (n <= 0) break;
      done += static_cast<size_t>(n);
    }
    lseek(fd_, 0, SEEK_SET);
  }
  ~MemoryFile() {
    if (fd_ >= 0) close(fd_);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  bool ok() const { return fd_ >= 0; }
  std::string Path() const { return "/proc/self/fd/" + std::to_string(fd_); }

 private:
  int fd_;
};

void ReadY4m(const std::string& text) {
  Refusable([&] {
    const Y4mHeader header = ParseY4mHeader(text.substr(0, text.find('\n')), "input");
    const StreamFormat packed = header.PackedFormat();
    if (header.PlanarBytes() > kMaxFrameBytes || packed.FrameBytes() > kMaxFrameBytes) return;
    MemoryFile file(text);
    if (!file.ok()) return;
    Y4mReader reader(file.Path());
    std::vector<uint8_t> frame(packed.FrameBytes());
    std::vector<uint8_t> planes(header.PlanarBytes());
    for (int k = 0; k < 4 && reader.Read(frame.data()); ++k)
      PackedToPlanar(header, frame.data(), packed.pitch, planes.data());
  });
}

// "WxH FMT" on the first line, then raw frames.
void ReadRaw(const std::string& text) {
  Refusable([&] {
    const size_t newline = text.find('\n');
    const std::string line = text.substr(0, newline);
    const size_t space = line.find(' ');
    const FrameSize size = ParseFrameSize(line.substr(0, space));
    const PixelFormat& format =
        ParsePixelFormat(space == std::string::npos ? "rgba" : line.substr(space + 1));
    const StreamFormat stream = RawStreamFormat(format, size);
    if (stream.FrameBytes() > kMaxFrameBytes) return;
    MemoryFile file(newline == std::string::npos ? std::string() : text.substr(newline + 1));
    if (!file.ok()) return;
    RawInput input(file.Path());
    input.ExpectWholeFrames(stream.FrameBytes(), stream.Describe());
    std::vector<uint8_t> frame(stream.FrameBytes());
    for (int k = 0; k < 4 && input.ReadFrame(frame.data(), frame.size()); ++k) {
    }
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 3) {
    case 0:
      ParseOptions(text);
      break;
    case 1:
      ReadY4m(text);
      break;
    default:
      ReadRaw(text);
      break;
  }
  return 0;
}
