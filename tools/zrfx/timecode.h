// The frame counter of a stream as a timecode, for burning in.
#ifndef ZRFX_TIMECODE_H
#define ZRFX_TIMECODE_H

#include <cstdint>
#include <string>

namespace zrfx {

// The highest frame rate a timecode can count: its frame field has two digits.
constexpr uint32_t kMaxTimecodeFps = 100;

// Frame `frame` (0 is the first) at `fps` whole frames a second, from 1 to
// kMaxTimecodeFps, as "HH:MM:SS:FF", counting from 00:00:00:00 and starting
// again after 23:59:59 as a clock does. No drop-frame counting.
std::string Timecode(uint64_t frame, uint32_t fps);

}  // namespace zrfx

#endif
