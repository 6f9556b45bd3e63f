// The error log.
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <string>

#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {
std::atomic<zr::testhooks::ErrOutHook> gErrOutHook{nullptr};
}

void zr::testhooks::SetErrOutHook(ErrOutHook hook) { gErrOutHook.store(hook); }

void ErrOut(const char* format, ...) {
  char line[1024];
  va_list args;
  va_start(args, format);
  std::vsnprintf(line, sizeof line, format, args);
  va_end(args);
  if (auto hook = gErrOutHook.load()) {
    hook(line);
    return;
  }
  std::fprintf(stderr, "zrdraw: %s\n", line);
}
