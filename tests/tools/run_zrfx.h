// Runs the zrfx binary as a user would, with its output captured, and gives
// each test a scratch directory of its own.
#ifndef ZR_TESTS_TOOLS_RUN_ZRFX_H
#define ZR_TESTS_TOOLS_RUN_ZRFX_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "common/test_random.h"
#include "zrfx/frame.h"

namespace zrfx::test {

inline std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// A frame of seeded random bytes, and its bytes as a string.
inline Frame RandomFrame(uint32_t width, uint32_t height, uint64_t seed) {
  Frame frame(width, height);
  zr::test::Rng(seed).Fill(frame.data(), frame.bytes());
  return frame;
}
inline std::string Bytes(const Frame& f) {
  return std::string(reinterpret_cast<const char*>(f.data()), f.bytes());
}

// An empty directory named after the running test, removed at the end.
class ScratchDir {
 public:
  ScratchDir() {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    path_ = std::filesystem::temp_directory_path() /
            ("zrfx_test_" + std::string(info->name()) + "_" + std::to_string(getpid()));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~ScratchDir() { std::filesystem::remove_all(path_); }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

struct RunResult {
  int exitStatus;  // -1 when the process did not exit normally
  std::string out, err;
};

// Runs zrfx with `args` through the shell, standard input from `stdinPath`.
inline RunResult RunZrfx(const ScratchDir& dir, const std::vector<std::string>& args,
                         const std::string& stdinPath = "/dev/null") {
  std::string command = ZRFX_BINARY;
  for (const std::string& a : args) command += " '" + a + "'";
  const int status =
      std::system((command + " <" + stdinPath + " >" + (dir / "stdout") + " 2>" + (dir / "stderr")).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(dir / "stdout"), ReadFile(dir / "stderr")};
}

}  // namespace zrfx::test

#endif
