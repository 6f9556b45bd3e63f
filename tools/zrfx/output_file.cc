#include "zrfx/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "zrfx/errors.h"

namespace zrfx {
namespace {

namespace fs = std::filesystem;

// The file that `path` names once symbolic links are followed; a link to a
// missing file gives that missing file.
fs::path FollowLinks(fs::path path) {
  std::error_code error;
  for (int hops = 0; hops < 40 && fs::is_symlink(path, error); ++hops) {
    const fs::path target = fs::read_symlink(path, error);
    if (error) break;
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path;
}

std::string Failure(const std::string& name) { return "cannot write " + name + ": " + std::strerror(errno); }

}  // namespace

OutputFile::OutputFile(const std::string& path, const char* what)
    : name_(path == "-" ? "standard output" : path) {
  if (path == "-") {
    if (isatty(STDOUT_FILENO))
      throw UsageError(std::string("refusing to write ") + what + " to a terminal; use -o FILE or a pipe");
    fd_ = STDOUT_FILENO;
    return;
  }
  const fs::path target = FollowLinks(path);
  struct stat info;
  const bool exists = stat(target.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) {
    fd_ = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (fd_ < 0) throw RunError(Failure(name_));
    return;
  }
  // The process id and a counter make the name unique among runs; O_EXCL
  // makes sure that no file of someone else's is ever taken over.
  const std::string prefix = (target.parent_path() / ".").string() + target.filename().string() + ".zrfx-" +
                             std::to_string(getpid()) + "-";
  for (int attempt = 0; fd_ < 0 && attempt < 100; ++attempt) {
    temp_ = prefix + std::to_string(attempt);
    fd_ = open(temp_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd_ < 0 && errno != EEXIST) break;
  }
  if (fd_ < 0) {
    temp_.clear();
    throw RunError(Failure(name_));
  }
  target_ = target.string();
  if (exists) (void)fchmod(fd_, info.st_mode & 07777);  // the new file keeps the old one's permissions
}

OutputFile::~OutputFile() { Discard(); }

bool OutputFile::Write(const void* data, size_t bytes) {
  const auto* p = static_cast<const uint8_t*>(data);
  while (bytes > 0) {
    const ssize_t n = write(fd_, p, bytes);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    p += n;
    bytes -= static_cast<size_t>(n);
  }
  return true;
}

void OutputFile::Commit() {
  if (fd_ == STDOUT_FILENO) return;
  const int closed = close(fd_);
  fd_ = -1;
  if (closed == 0 && (target_.empty() || std::rename(temp_.c_str(), target_.c_str()) == 0)) {
    temp_.clear();
    return;
  }
  const std::string message = Failure(name_);
  Discard();
  throw RunError(message);
}

void OutputFile::Discard() {
  if (fd_ >= 0 && fd_ != STDOUT_FILENO) close(fd_);
  fd_ = -1;
  if (!temp_.empty()) unlink(temp_.c_str());
  temp_.clear();
}

}  // namespace zrfx
