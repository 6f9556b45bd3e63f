#include "zrfx/progress_line.h"

#include <unistd.h>

#include <cstdio>

namespace zrfx {

ProgressLine::ProgressLine(uint64_t total)
    : enabled_(isatty(STDERR_FILENO) != 0), total_(total), start_(Clock::now()), lastDraw_(start_) {}

ProgressLine::~ProgressLine() {
  if (shown_) std::fputc('\n', stderr);
}

void ProgressLine::Update(uint64_t framesDone) {
  if (!enabled_) return;
  const Clock::time_point now = Clock::now();
  if (now - start_ < std::chrono::seconds(1) || now - lastDraw_ < std::chrono::milliseconds(250)) return;
  lastDraw_ = now;
  shown_ = true;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  const double rate = framesDone / seconds;
  if (total_)
    std::fprintf(stderr, "\rzrfx: frame %llu of %llu, %.1f frames/s ",
                 static_cast<unsigned long long>(framesDone), static_cast<unsigned long long>(total_), rate);
  else
    std::fprintf(stderr, "\rzrfx: frame %llu, %.1f frames/s ", static_cast<unsigned long long>(framesDone),
                 rate);
  std::fflush(stderr);
}

}  // namespace zrfx
