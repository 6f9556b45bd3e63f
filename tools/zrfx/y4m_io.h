// YUV4MPEG2 streams, as `ffmpeg -f yuv4mpegpipe` reads and writes them: a
// header line, then each frame as a "FRAME" line and three planes. Frames
// pass through the frame loop in the packed layout of the stream's header.
#ifndef ZRFX_Y4M_IO_H
#define ZRFX_Y4M_IO_H

#include <string>
#include <vector>

#include "zrfx/frame_loop.h"
#include "zrfx/raw_io.h"
#include "zrfx/y4m_header.h"

namespace zrfx {

class Y4mReader : public FrameReader {
 public:
  // Reads the header. Throws UsageError when the file cannot be opened or
  // the header is not one the tool takes.
  explicit Y4mReader(const std::string& path);
  const Y4mHeader& Header() const { return header_; }
  bool Read(uint8_t* frame) override;
  const std::string& Name() const override { return name_; }

 private:
  // The next line, without its newline; false at the end of the stream.
  bool ReadLine(std::string& line);

  std::string name_;
  RawInput input_;
  Y4mHeader header_;
  StreamFormat packed_;
  std::vector<uint8_t> planes_;
  uint64_t frames_ = 0;
};

class Y4mWriter : public FrameWriter {
 public:
  // Writes `header`'s line at once: an output mirrors its input's header.
  Y4mWriter(const std::string& path, const Y4mHeader& header);
  void Write(const uint8_t* frame) override;
  void Close() override { output_.Close(); }

 private:
  RawOutput output_;
  Y4mHeader header_;
  StreamFormat packed_;
  std::vector<uint8_t> frame_;  // "FRAME\n" and the planes, written at once
};

}  // namespace zrfx

#endif
