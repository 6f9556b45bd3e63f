#include "zrfx/y4m_io.h"

#include <cstring>

#include "zrfx/errors.h"
#include "zrfx/y4m_convert.h"

namespace zrfx {
namespace {

constexpr size_t kMaxLine = 1024;
constexpr char kFrameLine[] = "FRAME\n";
constexpr size_t kFrameLineBytes = sizeof kFrameLine - 1;

}  // namespace

Y4mReader::Y4mReader(const std::string& path) : name_(path == "-" ? "standard input" : path), input_(path) {
  std::string line;
  if (!ReadLine(line)) throw UsageError(name_ + " is empty, not a YUV4MPEG2 stream");
  header_ = ParseY4mHeader(line, name_);
  packed_ = header_.PackedFormat();
  planes_.resize(header_.PlanarBytes());
}

bool Y4mReader::ReadLine(std::string& line) {
  line.clear();
  for (uint8_t c; input_.ReadFrame(&c, 1);) {
    if (c == '\n') return true;
    if (line.size() == kMaxLine) break;
    line.push_back(static_cast<char>(c));
  }
  if (line.empty()) return false;
  throw UsageError(name_ + " is not a YUV4MPEG2 stream: a line is cut off or too long");
}

bool Y4mReader::Read(uint8_t* frame) {
  std::string line;
  if (!ReadLine(line)) return false;
  if (line.compare(0, 5, "FRAME") != 0)
    throw UsageError(name_ + " holds no FRAME line where y4m frame " + std::to_string(frames_) + " starts");
  bool whole = false;
  try {
    whole = input_.ReadFrame(planes_.data(), planes_.size());
  } catch (const UsageError&) {
  }
  if (!whole)
    throw UsageError(name_ + " ends inside y4m frame " + std::to_string(frames_) + " of " +
                     std::to_string(planes_.size()) + " bytes");
  PlanarToPacked(header_, planes_.data(), frame, packed_.pitch);
  ++frames_;
  return true;
}

Y4mWriter::Y4mWriter(const std::string& path, const Y4mHeader& header)
    : output_(path), header_(header), packed_(header.PackedFormat()) {
  const std::string line = header_.line + "\n";
  output_.WriteFrame(reinterpret_cast<const uint8_t*>(line.data()), line.size());
  frame_.resize(kFrameLineBytes + header_.PlanarBytes());
  std::memcpy(frame_.data(), kFrameLine, kFrameLineBytes);
}

void Y4mWriter::Write(const uint8_t* frame) {
  PackedToPlanar(header_, frame, packed_.pitch, frame_.data() + kFrameLineBytes);
  output_.WriteFrame(frame_.data(), frame_.size());
}

}  // namespace zrfx
