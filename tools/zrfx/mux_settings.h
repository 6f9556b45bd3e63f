// The arguments of one ZrDraw_DisplayMuxRGBA call beside the frames.
#ifndef ZRFX_MUX_SETTINGS_H
#define ZRFX_MUX_SETTINGS_H

#include <cstdint>

namespace zrfx {

struct MuxSettings {
  uint32_t flags = 0;  // mode in bits 0-23, MUXF_ flags above
  uint32_t wipeCode = 0;
  uint32_t position = 0;
  uint32_t level = 0;
  uint32_t splitX = 0;
  uint32_t splitY = 0;
  uint32_t gridMode = 0;
  uint32_t gridStepX = 0;
  uint32_t gridStepY = 0;
};

}  // namespace zrfx

#endif
