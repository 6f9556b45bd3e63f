#include "zrfx/timecode.h"

#include <cstdio>

namespace zrfx {

std::string Timecode(uint64_t frame, uint32_t fps) {
  const uint64_t seconds = frame / fps;
  char text[48];
  std::snprintf(text, sizeof text, "%02u:%02u:%02u:%02u", static_cast<unsigned>(seconds / 3600 % 24),
                static_cast<unsigned>(seconds / 60 % 60), static_cast<unsigned>(seconds % 60),
                static_cast<unsigned>(frame % fps));
  return text;
}

}  // namespace zrfx
