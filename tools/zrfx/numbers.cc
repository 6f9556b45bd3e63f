#include "zrfx/numbers.h"

#include "zrfx/errors.h"

namespace zrfx {
namespace {

enum class Parsed { kNumber, kTooLarge, kNotANumber };

// Parses all of `text` as an unsigned number of at most `limit` (below 2^32).
Parsed ParseUnsigned(const std::string& text, uint64_t limit, uint64_t* value) {
  size_t i = 0;
  uint64_t base = 10;
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    base = 16;
    i = 2;
  }
  if (i >= text.size()) return Parsed::kNotANumber;
  uint64_t v = 0;
  bool tooLarge = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    uint64_t digit;
    if (c >= '0' && c <= '9') {
      digit = static_cast<uint64_t>(c - '0');
    } else if (base == 16 && c >= 'a' && c <= 'f') {
      digit = static_cast<uint64_t>(c - 'a' + 10);
    } else if (base == 16 && c >= 'A' && c <= 'F') {
      digit = static_cast<uint64_t>(c - 'A' + 10);
    } else {
      return Parsed::kNotANumber;
    }
    if (tooLarge) continue;  // the rest must still be digits
    v = v * base + digit;
    tooLarge = v > limit;
  }
  if (tooLarge) return Parsed::kTooLarge;
  *value = v;
  return Parsed::kNumber;
}

}  // namespace

uint32_t ParseU32(const std::string& text, const std::string& what) {
  uint64_t v;
  if (ParseUnsigned(text, UINT32_MAX, &v) != Parsed::kNumber)
    throw UsageError(what + " '" + text + "' is not a number from 0 to 4294967295");
  return static_cast<uint32_t>(v);
}

uint32_t ParseWipeNumber(const std::string& text) {
  uint64_t v;
  const Parsed parsed = ParseUnsigned(text, 0x7FFFFFFF, &v);
  if (parsed == Parsed::kNotANumber) throw UsageError("wipe number '" + text + "' is not a number");
  if (parsed == Parsed::kTooLarge)
    throw UsageError("wipe number '" + text + "' is outside 0..2147483647 (bit 31 is --reverse)");
  return static_cast<uint32_t>(v);
}

void CheckFrameSize(uint32_t width, uint32_t height, const std::string& what) {
  if (width == 0 || height == 0 || width > kMaxDimension || height > kMaxDimension)
    throw UsageError(what + " of " + std::to_string(width) + "x" + std::to_string(height) +
                     " is not supported (1 to " + std::to_string(kMaxDimension) + " pixels each way)");
}

FrameSize ParseFrameSize(const std::string& text) {
  const size_t x = text.find_first_of("xX");
  uint64_t w, h;
  if (x == std::string::npos || ParseUnsigned(text.substr(0, x), UINT32_MAX, &w) != Parsed::kNumber ||
      ParseUnsigned(text.substr(x + 1), UINT32_MAX, &h) != Parsed::kNumber)
    throw UsageError("frame size '" + text + "' is not WIDTHxHEIGHT, e.g. 1920x1080");
  CheckFrameSize(static_cast<uint32_t>(w), static_cast<uint32_t>(h), "a frame size");
  return {static_cast<uint32_t>(w), static_cast<uint32_t>(h)};
}

}  // namespace zrfx
