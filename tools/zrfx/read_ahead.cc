#include "zrfx/read_ahead.h"

#include <utility>

namespace zrfx {

ReadAhead::ReadAhead(ReadFn read) : read_(std::move(read)), thread_([this] { Run(); }) {}

ReadAhead::~ReadAhead() {
  {
    std::unique_lock<std::mutex> hold(lock_);
    changed_.wait(hold, [this] { return !pending_; });
    stop_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void ReadAhead::Start(int slot, uint64_t k) {
  {
    const std::lock_guard<std::mutex> hold(lock_);
    slot_ = slot;
    k_ = k;
    pending_ = true;
    done_ = false;
  }
  changed_.notify_all();
}

bool ReadAhead::Take() {
  std::unique_lock<std::mutex> hold(lock_);
  changed_.wait(hold, [this] { return done_; });
  done_ = false;
  if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  return result_;
}

void ReadAhead::Run() {
  std::unique_lock<std::mutex> hold(lock_);
  for (;;) {
    changed_.wait(hold, [this] { return pending_ || stop_; });
    if (stop_) return;
    const int slot = slot_;
    const uint64_t k = k_;
    hold.unlock();
    bool result = false;
    std::exception_ptr error;
    try {
      result = read_(slot, k);
    } catch (...) {
      error = std::current_exception();
    }
    hold.lock();
    result_ = result;
    error_ = error;
    pending_ = false;
    done_ = true;
    changed_.notify_all();
  }
}

}  // namespace zrfx
