// Runs the zrfx binary as a user would, with its output captured, and gives
// each test a scratch directory of its own.
#ifndef ZR_TESTS_TOOLS_RUN_ZRFX_H
#define ZR_TESTS_TOOLS_RUN_ZRFX_H

#include <filesystem>
#include <string>
#include <vector>

#include "zrfx/frame.h"

namespace zrfx::test {

struct RunResult {
  int exitStatus;  // -1 when the process did not exit normally (a signal)
  std::string out;
  std::string err;
  // Lines of standard error.
  size_t ErrLines() const;
};

// Runs zrfx with `args`; standard input comes from `stdinPath` when given.
RunResult RunZrfx(const std::vector<std::string>& args, const std::string& stdinPath = "");

// An empty directory named after the running test, removed at the end.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// A frame of seeded random bytes.
Frame RandomFrame(uint32_t width, uint32_t height, uint64_t seed);

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);

}  // namespace zrfx::test

#endif
