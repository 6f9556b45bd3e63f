// Streams of raw frames, as `ffmpeg -f rawvideo` reads and writes them:
// files, pipes, or "-" for standard input and output. One frame at a time
// passes through the caller's buffer, so a stream of any length runs in
// constant memory.
#ifndef ZRFX_RAW_IO_H
#define ZRFX_RAW_IO_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "zrfx/output_file.h"

namespace zrfx {

class RawInput {
 public:
  // Throws UsageError when the file cannot be opened.
  explicit RawInput(const std::string& path);
  ~RawInput();
  RawInput(const RawInput&) = delete;
  RawInput& operator=(const RawInput&) = delete;

  // Throws UsageError when the input is a file whose size is not a whole
  // number of frames of `bytes` bytes (`what`: "24x10 rgba frames"), so that
  // a wrong frame size shows before any output. Pipes pass.
  void ExpectWholeFrames(size_t bytes, const std::string& what) const;
  // Reads the next frame of `bytes` bytes. False at the end of the stream;
  // throws UsageError when the stream ends inside a frame, RunError when it
  // cannot be read.
  bool ReadFrame(uint8_t* frame, size_t bytes);
  // "standard input" or the path, for messages.
  const std::string& name() const { return path_; }

 private:
  std::string path_;
  int fd_;
  uint64_t framesRead_ = 0;
};

class RawOutput {
 public:
  // The output goes through an OutputFile: a file is replaced only when the
  // whole stream has been written. Throws UsageError when "-" names
  // standard output and that is a terminal, RunError when the output
  // cannot be created.
  explicit RawOutput(const std::string& path) : file_(path, "raw video") {}

  // Throws RunError when the bytes cannot be written (a closed pipe, a full
  // disk).
  void WriteFrame(const uint8_t* frame, size_t bytes);
  // Throws RunError when the output cannot be finished cleanly. Without
  // Close, a file that was being written is removed again.
  void Close() { file_.Commit(); }

 private:
  OutputFile file_;
};

// True when `fd` is a directory, which opens for reading but is no input.
bool IsDirectory(int fd);

}  // namespace zrfx

#endif
