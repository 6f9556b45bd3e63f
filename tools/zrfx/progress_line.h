// A one-line frame counter on standard error for long raw-video runs,
// rewritten in place a few times a second. It shows only when standard
// error is a terminal and the run has lasted a second, so pipes and logs
// stay clean.
#ifndef ZRFX_PROGRESS_LINE_H
#define ZRFX_PROGRESS_LINE_H

#include <chrono>
#include <cstdint>

namespace zrfx {

class ProgressLine {
 public:
  // `total` is the number of frames, or 0 when the length is not known.
  explicit ProgressLine(uint64_t total);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Update(uint64_t framesDone);

 private:
  using Clock = std::chrono::steady_clock;
  bool enabled_;
  bool shown_ = false;
  uint64_t total_;
  Clock::time_point start_;
  Clock::time_point lastDraw_;
};

}  // namespace zrfx

#endif
