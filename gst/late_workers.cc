#include "late_workers.h"

#include <dirent.h>
#include <glib.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace zrgst {
namespace {

bool AnyLibraryWorker() {
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

}  // namespace

int64_t NowMicroseconds() { return g_get_monotonic_time(); }

void WaitForLibraryWorkers() {
  while (AnyLibraryWorker()) g_usleep(1000);
}

}  // namespace zrgst
