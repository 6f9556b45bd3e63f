#include "zrfx/raw_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "zrfx/errors.h"

namespace zrfx {
namespace {

std::string Describe(const std::string& path) { return path == "-" ? "standard input" : path; }

}  // namespace

RawInput::RawInput(const std::string& path) : path_(Describe(path)) {
  fd_ = path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd_ < 0) throw UsageError("cannot open " + path + ": " + std::strerror(errno));
}

RawInput::~RawInput() {
  if (fd_ != STDIN_FILENO) close(fd_);
}

void RawInput::ExpectWholeFrames(size_t bytes, const std::string& what) const {
  struct stat info;
  if (fstat(fd_, &info) != 0 || !S_ISREG(info.st_mode)) return;
  const off_t at = lseek(fd_, 0, SEEK_CUR);  // standard input may start inside the file
  if (at < 0 || at > info.st_size || (info.st_size - at) % bytes == 0) return;
  throw UsageError(path_ + " holds " + std::to_string(info.st_size - at) + " bytes, not a whole number of " +
                   what + " of " + std::to_string(bytes) + " bytes");
}

bool RawInput::ReadFrame(uint8_t* frame, size_t bytes) {
  size_t got = 0;
  while (got < bytes) {
    const ssize_t n = read(fd_, frame + got, bytes - got);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) throw RunError("cannot read " + path_ + ": " + std::strerror(errno));
    if (n == 0) break;
    got += static_cast<size_t>(n);
  }
  if (got == 0) return false;
  if (got < bytes)
    throw UsageError(path_ + " ends inside frame " + std::to_string(framesRead_) + " (" +
                     std::to_string(got) + " of " + std::to_string(bytes) +
                     " bytes): is the frame size right?");
  ++framesRead_;
  return true;
}

RawOutput::RawOutput(const std::string& path) : path_(path == "-" ? "standard output" : path) {
  if (path == "-") {
    if (isatty(STDOUT_FILENO))
      throw UsageError("refusing to write raw video to a terminal; use -o FILE or a pipe");
    fd_ = STDOUT_FILENO;
  } else {
    fd_ = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd_ < 0) throw UsageError("cannot create " + path + ": " + std::strerror(errno));
  }
}

RawOutput::~RawOutput() {
  if (fd_ >= 0 && fd_ != STDOUT_FILENO) close(fd_);
}

void RawOutput::WriteFrame(const uint8_t* frame, size_t bytes) {
  size_t done = 0;
  while (done < bytes) {
    const ssize_t n = write(fd_, frame + done, bytes - done);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) throw RunError("cannot write " + path_ + ": " + std::strerror(errno));
    done += static_cast<size_t>(n);
  }
}

void RawOutput::Close() {
  if (fd_ == STDOUT_FILENO) return;
  const int result = close(fd_);
  fd_ = -1;
  if (result != 0) throw RunError("cannot write " + path_ + ": " + std::strerror(errno));
}

}  // namespace zrfx
