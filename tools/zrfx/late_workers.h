// The transition driver stops waiting for its four workers after a bounded
// time, and a worker that is still running then goes on reading the
// sources and writing the output. A host keeps its frames alive until such
// workers are through; so do zrfx and the fuzz targets, by waiting until the
// process has no more threads than before the call.
#ifndef ZRFX_LATE_WORKERS_H
#define ZRFX_LATE_WORKERS_H

#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace zrfx {

// The number of threads of this process, or -1 when it cannot be read.
inline int ThreadCount() {
  FILE* status = std::fopen("/proc/self/status", "r");
  if (status == nullptr) return -1;
  char line[256];
  int count = -1;
  while (std::fgets(line, sizeof line, status) != nullptr)
    if (std::strncmp(line, "Threads:", 8) == 0) {
      std::sscanf(line + 8, "%d", &count);
      break;
    }
  std::fclose(status);
  return count;
}

// Returns once the process is back to `before` threads.
inline void WaitForLateWorkers(int before) {
  while (ThreadCount() > before) usleep(1000);
}

}  // namespace zrfx

#endif
