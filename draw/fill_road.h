// The memory-fill road of the drawing layer: the four 32-bit RGB layouts
// are filled with the foreground word as it stands, bypassing PutPixel and
// so its transparency and additive settings.
#ifndef ZR_DRAW_FILL_ROAD_H
#define ZR_DRAW_FILL_ROAD_H

#include "zrtypes.h"

namespace zr {

// The test looks at the pixel type alone.
inline bool TakesFillRoad(int type) { return type >= pixelRGBA32 && type <= pixelABGR32; }

}  // namespace zr

#endif
