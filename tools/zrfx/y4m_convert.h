// y4m frames hold three planes (Y, then Cb, then Cr; 10-bit samples as
// little-endian 16-bit words); the library works on packed frames. These
// convert one frame between the two, in the packed layouts of
// Y4mHeader::PackedFormat, without loss: planar to packed to planar gives the
// same bytes back (10-bit samples keep their 10 bits in v210).
#ifndef ZRFX_Y4M_CONVERT_H
#define ZRFX_Y4M_CONVERT_H

#include <cstdint>

#include "zrfx/y4m_header.h"

namespace zrfx {

// `packed` has rows `pitch` bytes apart; bytes of a v210 row past the last
// pixel are written as 0.
void PlanarToPacked(const Y4mHeader& header, const uint8_t* planar, uint8_t* packed, uint32_t pitch);
void PackedToPlanar(const Y4mHeader& header, const uint8_t* packed, uint32_t pitch, uint8_t* planar);

}  // namespace zrfx

#endif
