// One read at a time on a second thread: the frame loop starts the reads of
// frame k + 1 and then works on frame k, so that the copies out of the
// input pipes overlap the library call and the write.
#ifndef ZRFX_READ_AHEAD_H
#define ZRFX_READ_AHEAD_H

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace zrfx {

class ReadAhead {
 public:
  // `read(slot, k)` reads frame k into buffer set `slot`; false at the end.
  using ReadFn = std::function<bool(int slot, uint64_t k)>;

  explicit ReadAhead(ReadFn read);
  // Waits for a read still running (it may block until its input gives a
  // frame or ends), then stops the thread.
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  // Starts reading frame k into `slot`; the previous read must be taken.
  void Start(int slot, uint64_t k);
  // The result of the read that Start began; rethrows what it threw.
  bool Take();

 private:
  void Run();

  ReadFn read_;
  std::mutex lock_;
  std::condition_variable changed_;
  bool pending_ = false, done_ = false, stop_ = false, result_ = false;
  int slot_ = 0;
  uint64_t k_ = 0;
  std::exception_ptr error_;
  std::thread thread_;
};

}  // namespace zrfx

#endif
