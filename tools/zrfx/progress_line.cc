#include "zrfx/progress_line.h"

#include <unistd.h>

#include <cstdio>

namespace zrfx {

ProgressLine::ProgressLine(uint64_t total, const char* noun)
    : enabled_(isatty(STDERR_FILENO) != 0),
      total_(total),
      noun_(noun),
      start_(Clock::now()),
      lastDraw_(start_) {}

ProgressLine::~ProgressLine() { Finish(); }

void ProgressLine::Update(uint64_t done) {
  done_ = done;
  if (!enabled_) return;
  const Clock::time_point now = Clock::now();
  if (now - start_ < std::chrono::seconds(1) || now - lastDraw_ < std::chrono::milliseconds(250)) return;
  Draw(now);
}

void ProgressLine::Finish() {
  if (!shown_) return;
  Draw(Clock::now());
  std::fputc('\n', stderr);
  shown_ = false;
  enabled_ = false;
}

void ProgressLine::Draw(Clock::time_point now) {
  lastDraw_ = now;
  shown_ = true;
  const double rate = done_ / std::chrono::duration<double>(now - start_).count();
  const auto done = static_cast<unsigned long long>(done_), total = static_cast<unsigned long long>(total_);
  if (total_)
    std::fprintf(stderr, "\rzrfx: %s %llu of %llu, %.1f/s ", noun_, done, total, rate);
  else
    std::fprintf(stderr, "\rzrfx: %s %llu, %.1f/s ", noun_, done, rate);
  std::fflush(stderr);
}

}  // namespace zrfx
