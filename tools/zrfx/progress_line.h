// A one-line counter on standard error for long runs, rewritten in place a
// few times a second. It shows only when standard error is a terminal and
// the run has lasted a second, so pipes and logs stay clean; once shown, it
// ends with the final count.
#ifndef ZRFX_PROGRESS_LINE_H
#define ZRFX_PROGRESS_LINE_H

#include <chrono>
#include <cstdint>

namespace zrfx {

class ProgressLine {
 public:
  // `total` is the number of items, or 0 when it is not known; `noun`
  // names one item: "frame", "picture".
  explicit ProgressLine(uint64_t total, const char* noun = "frame");
  // Finishes the line.
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Update(uint64_t done);
  // Shows the last count given to Update and ends the line, if it is shown.
  void Finish();

 private:
  using Clock = std::chrono::steady_clock;
  void Draw(Clock::time_point now);

  bool enabled_;
  bool shown_ = false;
  uint64_t total_;
  uint64_t done_ = 0;
  const char* noun_;
  Clock::time_point start_;
  Clock::time_point lastDraw_;
};

}  // namespace zrfx

#endif
