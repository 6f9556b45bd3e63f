// Flips of frames of four-byte pixels.
#ifndef ZR_PLATFORM_PIXFORM_H
#define ZR_PLATFORM_PIXFORM_H

#include <cstdint>

// Turns the frame upside down. source and destination may be the same frame
// (in place) or two frames that do not overlap. pitch is in bytes.
void pfmt_flip_vert(void* source, void* destination, int width, int height, int pitch);

// Mirrors each row left to right, in place or between two frames. Bits of
// pixelMask that are clear take the pixel's own bytes unmirrored; all ones
// mirrors whole pixels.
void pfmt_flip_horz(void* source, void* destination, int width, int height, int pitch, uint32_t pixelMask);

#endif
