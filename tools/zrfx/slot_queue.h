// Frame buffers handed between the threads of the frame loop by number, in
// order. A queue holds at most as many numbers as there are buffers, so
// Push never waits.
#ifndef ZRFX_SLOT_QUEUE_H
#define ZRFX_SLOT_QUEUE_H

#include <condition_variable>
#include <deque>
#include <mutex>

namespace zrfx {

class SlotQueue {
 public:
  void Push(int slot) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      slots_.push_back(slot);
    }
    ready_.notify_one();
  }
  // The next slot, or -1 once the queue is closed and empty.
  int Pop() {
    std::unique_lock<std::mutex> lock(mutex_);
    ready_.wait(lock, [this] { return closed_ || !slots_.empty(); });
    if (slots_.empty()) return -1;
    const int slot = slots_.front();
    slots_.pop_front();
    return slot;
  }
  void Close() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      closed_ = true;
    }
    ready_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable ready_;
  std::deque<int> slots_;
  bool closed_ = false;
};

}  // namespace zrfx

#endif
