// The application directory and the file test.
#include <unistd.h>

#include <cstring>

#include "platform/zrutil.h"

void zrOSGetAppDir(char* buffer) {
  // The caller's buffer holds 4096 bytes; leave room for a file name.
  char path[2048];
  const ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
  if (n <= 0) {
    std::strcpy(buffer, "./");
    return;
  }
  path[n] = '\0';
  char* slash = std::strrchr(path, '/');
  if (slash) slash[1] = '\0';
  std::strcpy(buffer, path);
}

int zrOSFileExists(const char* path) { return path && access(path, F_OK) == 0 ? 1 : 0; }
