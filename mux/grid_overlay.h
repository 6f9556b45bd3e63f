// The grid overlay that the mux draws over its output after every mode.
#ifndef ZR_MUX_GRID_OVERLAY_H
#define ZR_MUX_GRID_OVERLAY_H

#include <cstdint>

namespace zr::mux {

// Lines of 0xBF bytes (alpha too) at every rowStep-th row, painted across
// the whole pitch, and at every colStep-th column of the other rows. With
// gridMode 0 or 1, gridStepX is a percentage and gridStepY is not read.
// Rows step by pitch, whatever the mode did. Nothing happens for height 0.
void DrawGridOverlay(uint8_t* out, uint32_t gridMode, uint32_t gridStepX, uint32_t gridStepY, uint32_t width,
                     uint32_t height, uint32_t pitch);

}  // namespace zr::mux

#endif
