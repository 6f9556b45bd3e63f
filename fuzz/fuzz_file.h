// What every reader target shares: the input goes to a temporary file, as a
// host hands the library a path, and no descriptor may stay open after the
// call (the lowest free descriptor must be the one seen at start-up).
#ifndef ZR_FUZZ_FUZZ_FILE_H
#define ZR_FUZZ_FUZZ_FILE_H

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace zr::fuzz {

class InputFile {
 public:
  InputFile() {
    char pattern[] = "/tmp/zrdraw-fuzz-XXXXXX";
    const int fd = mkstemp(pattern);
    if (fd < 0) abort();
    close(fd);
    path_ = pattern;
    freeFd_ = LowestFreeFd();
  }
  ~InputFile() { unlink(path_.c_str()); }

  const char* Write(const uint8_t* bytes, size_t size) {
    FILE* file = std::fopen(path_.c_str(), "wb");
    if (!file || std::fwrite(bytes, 1, size, file) != size || std::fclose(file) != 0) abort();
    return path_.c_str();
  }
  // Aborts when the reader left a descriptor open.
  void CheckNoneLeft() const {
    if (LowestFreeFd() != freeFd_) abort();
  }

 private:
  static int LowestFreeFd() {
    const int fd = open("/dev/null", O_RDONLY);
    close(fd);
    return fd;
  }
  std::string path_;
  int freeFd_;
};

}  // namespace zr::fuzz

#endif
