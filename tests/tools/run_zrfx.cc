#include "run_zrfx.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "common/test_random.h"

extern char** environ;

namespace zrfx::test {

size_t RunResult::ErrLines() const {
  size_t lines = 0;
  for (char c : err) lines += c == '\n';
  return lines;
}

RunResult RunZrfx(const std::vector<std::string>& args, const std::string& stdinPath) {
  const std::filesystem::path dir = std::filesystem::temp_directory_path();
  const std::string tag = std::to_string(getpid());
  const std::string outPath = (dir / ("zrfx_out_" + tag)).string();
  const std::string errPath = (dir / ("zrfx_err_" + tag)).string();

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO,
                                   stdinPath.empty() ? "/dev/null" : stdinPath.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  std::vector<std::string> argvStrings = {ZRFX_BINARY};
  argvStrings.insert(argvStrings.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& s : argvStrings) argv.push_back(s.data());
  argv.push_back(nullptr);

  RunResult result{-1, "", ""};
  pid_t pid;
  const int spawned = posix_spawn(&pid, ZRFX_BINARY, &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (spawned != 0) {
    ADD_FAILURE() << "cannot start " << ZRFX_BINARY;
    return result;
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status)) result.exitStatus = WEXITSTATUS(status);
  result.out = ReadFile(outPath);
  result.err = ReadFile(errPath);
  std::filesystem::remove(outPath);
  std::filesystem::remove(errPath);
  return result;
}

ScratchDir::ScratchDir() {
  const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
  path_ = std::filesystem::temp_directory_path() / ("zrfx_test_" + std::string(info->test_suite_name()) +
                                                    "_" + info->name() + "_" + std::to_string(getpid()));
  std::filesystem::remove_all(path_);
  std::filesystem::create_directories(path_);
}

ScratchDir::~ScratchDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

Frame RandomFrame(uint32_t width, uint32_t height, uint64_t seed) {
  Frame frame(width, height);
  zr::test::Rng rng(seed);
  rng.Fill(frame.data(), frame.bytes());
  return frame;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace zrfx::test
