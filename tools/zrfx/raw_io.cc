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
  if (fd_ >= 0 && IsDirectory(fd_)) {
    if (fd_ != STDIN_FILENO) close(fd_);
    fd_ = -1;
    errno = EISDIR;
  }
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

void RawOutput::WriteFrame(const uint8_t* frame, size_t bytes) {
  if (!file_.Write(frame, bytes))
    throw RunError("cannot write " + file_.name() + ": " + std::strerror(errno));
}

bool IsDirectory(int fd) {
  struct stat info;
  return fstat(fd, &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace zrfx
