// Where an output goes, written so that a failed run never harms what was
// there before. A regular file, or a name that does not exist yet, is written
// to a new temporary file in the same directory and renamed into place only
// when all of it has been written; on a failure the temporary file is
// removed and the old file stays as it was. A symbolic link is followed, so
// the link stays and its target is replaced. Anything else (a device, a pipe,
// a socket, "-" for standard output) is written directly and never removed.
#ifndef ZRFX_OUTPUT_FILE_H
#define ZRFX_OUTPUT_FILE_H

#include <cstddef>
#include <string>

namespace zrfx {

class OutputFile {
 public:
  // `what` names the contents for the refusal to write to a terminal:
  // "raw video", "a PNG picture". Throws UsageError when "-" names standard
  // output and that is a terminal, RunError when the output cannot be
  // opened or created.
  OutputFile(const std::string& path, const char* what);
  // Without Commit, removes the temporary file.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Writes all `bytes`; false with errno set when that fails. Never throws,
  // so that libpng's callbacks can call it.
  bool Write(const void* data, size_t bytes);
  // Closes the output and renames the temporary file into place. Throws
  // RunError when that fails; the old file then stays as it was.
  void Commit();
  // "standard output" or the path, for messages.
  const std::string& name() const { return name_; }

 private:
  void Discard();

  std::string name_;
  std::string target_;  // the file that Commit replaces; empty when written directly
  std::string temp_;
  int fd_ = -1;
};

}  // namespace zrfx

#endif
