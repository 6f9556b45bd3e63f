// Strict parsing of the numbers on the command line. Each throws UsageError
// with a message naming `what` when the text is not what it should be.
#ifndef ZRFX_NUMBERS_H
#define ZRFX_NUMBERS_H

#include <cstdint>
#include <string>

namespace zrfx {

// A decimal or 0x-prefixed hexadecimal number of 0 to 2^32-1; no sign, no
// spaces, nothing after the digits.
uint32_t ParseU32(const std::string& text, const std::string& what);

// A wipe number: 0 to 2^31-1. Bit 31 is the reverse flag, set by --reverse.
uint32_t ParseWipeNumber(const std::string& text);

struct FrameSize {
  uint32_t width;
  uint32_t height;
};

// The largest frame the tool handles. The library computes row offsets and
// frame sizes in unsigned 32 bits, so frames stay well below 4 GiB: an RGBA
// frame of 16384x16384 is 1 GiB, and no frame of any layout may be more.
constexpr uint32_t kMaxDimension = 16384;
constexpr uint64_t kMaxFrameBytes = 1ull << 30;

// Throws UsageError when a picture of this size is beyond the limits above.
void CheckFrameSize(uint32_t width, uint32_t height, const std::string& what);

// "WIDTHxHEIGHT", e.g. "1920x1080", within the limits above.
FrameSize ParseFrameSize(const std::string& text);

}  // namespace zrfx

#endif
