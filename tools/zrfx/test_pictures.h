// The two built-in pictures of the gallery, generated in code so that the
// tool needs no sample files. Each carries a large letter in its top left
// corner (which shows flips and mirrors at a glance) and a caption.
#ifndef ZRFX_TEST_PICTURES_H
#define ZRFX_TEST_PICTURES_H

#include <cstdint>

#include "zrfx/frame.h"

namespace zrfx {

// Picture A: 75% colour bars above a grey ramp from 0 to 255.
Frame MakeColourBars(uint32_t width, uint32_t height);

// Picture B: a circular zone plate in blue and orange with a white circle.
Frame MakeZonePlate(uint32_t width, uint32_t height);

// Picture A': `bars` (picture A) with its yellow bar 6 levels brighter and a
// box 20 levels darker, for the modes that compare two pictures.
Frame MakeChangedCopy(const Frame& bars);

}  // namespace zrfx

#endif
