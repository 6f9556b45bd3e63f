// The library's transition driver waits at most 100 ms for its four worker
// threads; a worker still running after that goes on writing into the
// output. The elements hand their buffers on only once no worker is left.
#ifndef ZR_GST_LATE_WORKERS_H
#define ZR_GST_LATE_WORKERS_H

#include <cstdint>

namespace zrgst {

// Runs `call` (a library call that may start workers) and, when it took long
// enough for the driver to have given up waiting, returns only once the
// process has no worker thread of the library left.
template <class Call>
void RunAndJoinWorkers(Call&& call);

// A monotonic clock in microseconds.
int64_t NowMicroseconds();
// Returns once no thread named "dffx" (the library's workers) is running.
void WaitForLibraryWorkers();

// The driver returns early only when every worker is through; a call that
// took this long may have left workers behind.
constexpr int64_t kDriverPatienceMicroseconds = 90000;

template <class Call>
void RunAndJoinWorkers(Call&& call) {
  const int64_t start = NowMicroseconds();
  call();
  if (NowMicroseconds() - start >= kDriverPatienceMicroseconds) WaitForLibraryWorkers();
}

}  // namespace zrgst

#endif
