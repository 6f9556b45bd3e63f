// The transition driver waits at most 100 ms for its four worker threads; a
// worker still running after that goes on reading the sources and writing
// the output. A host keeps its frames alive until such workers are through:
// zrfx, the plugin and the fuzz targets do it with RunAndJoinWorkers.
#ifndef ZRFX_LATE_WORKERS_H
#define ZRFX_LATE_WORKERS_H

#include <dirent.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

namespace zrfx {

// Whether a thread named "dffx" (the library's workers) is running.
inline bool AnyLibraryWorker() {
  DIR* tasks = opendir("/proc/self/task");
  if (tasks == nullptr) return false;
  bool found = false;
  while (const dirent* entry = readdir(tasks)) {
    if (entry->d_name[0] == '.') continue;
    const std::string path = std::string("/proc/self/task/") + entry->d_name + "/comm";
    if (FILE* comm = std::fopen(path.c_str(), "r")) {
      char name[32] = {};
      found = std::fgets(name, sizeof name, comm) != nullptr && std::strncmp(name, "dffx\n", 5) == 0;
      std::fclose(comm);
    }
    if (found) break;
  }
  closedir(tasks);
  return found;
}

// The driver returns before its time limit only when every worker is
// through; a call that took this long may have left workers behind.
inline constexpr std::chrono::milliseconds kDriverPatience{90};

// Runs `call` (a library call that may start workers) and, when it took long
// enough for the driver to have given up waiting, returns only once no
// worker of the library is left. Threads of the caller's own do not matter.
template <class Call>
void RunAndJoinWorkers(Call&& call) {
  const auto start = std::chrono::steady_clock::now();
  call();
  if (std::chrono::steady_clock::now() - start < kDriverPatience) return;
  while (AnyLibraryWorker()) usleep(1000);
}

}  // namespace zrfx

#endif
