// The two kinds of failure the tool reports. Each ends the run with one line
// on standard error: a UsageError (bad arguments, unreadable or mismatched
// input, a stream that ends inside a frame) with exit status 2, a RunError
// (a read or write that failed) with exit status 1.
#ifndef ZRFX_ERRORS_H
#define ZRFX_ERRORS_H

#include <stdexcept>
#include <string>

namespace zrfx {

class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

class RunError : public std::runtime_error {
 public:
  explicit RunError(const std::string& message) : std::runtime_error(message) {}
};

constexpr int kExitOk = 0;
constexpr int kExitRunError = 1;
constexpr int kExitUsage = 2;

}  // namespace zrfx

#endif
