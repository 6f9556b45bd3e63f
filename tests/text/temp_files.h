// Small files in a private temporary directory, and the count of open file
// descriptors, for the tests of the readers.
#ifndef ZR_TESTS_TEXT_TEMP_FILES_H
#define ZR_TESTS_TEXT_TEMP_FILES_H

#include <dirent.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zr::test {

using Bytes = std::vector<uint8_t>;

// A directory under the system's temporary place, removed with its files.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zrdraw-XXXXXX").string();
    EXPECT_NE(nullptr, mkdtemp(pattern.data()));
    path_ = pattern;
  }
  ~TempDir() { std::filesystem::remove_all(path_); }
  const std::string& path() const { return path_; }
  // Writes `bytes` to `name` in the directory and returns the full path.
  std::string Write(const std::string& name, const Bytes& bytes) const {
    const std::string file = path_ + "/" + name;
    std::ofstream(file, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return file;
  }

 private:
  std::string path_;
};

// The entries of /proc/self/fd, the one used to list them included.
inline int OpenFds() {
  DIR* dir = opendir("/proc/self/fd");
  int n = 0;
  while (dir && readdir(dir)) ++n;
  if (dir) closedir(dir);
  return n;
}

inline void PutLE(Bytes& b, size_t at, uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) b[at + i] = static_cast<uint8_t>(value >> (8 * i));
}

inline Bytes Cut(Bytes b, size_t n) {
  b.resize(std::min(n, b.size()));
  return b;
}

inline Bytes Set(Bytes b, size_t at, const std::string& bytes) {
  std::copy(bytes.begin(), bytes.end(), b.begin() + at);
  return b;
}

}  // namespace zr::test

#endif
