// Where R, G, B and A stand in a pixel of the byte-ordered RGB layouts, by
// pixel type. Types 5 and 6 have no alpha byte.
#ifndef ZR_CANVAS_CHANNEL_ORDER_H
#define ZR_CANVAS_CHANNEL_ORDER_H

#include "zrtypes.h"

namespace zr {

struct ChannelOrder {
  int r, g, b, a;  // byte index of each channel; a is -1 when there is none
};

inline constexpr ChannelOrder kChannelOrders[] = {
    {0, 1, 2, 3},   // 0: as type 1
    {0, 1, 2, 3},   // pixelRGBA32
    {1, 2, 3, 0},   // pixelARGB32
    {2, 1, 0, 3},   // pixelBGRA32
    {3, 2, 1, 0},   // pixelABGR32
    {0, 1, 2, -1},  // pixelRGB24
    {2, 1, 0, -1},  // pixelBGR24
};

// Type 1 and every type not in the table read as R G B A.
inline constexpr ChannelOrder ChannelOrderOf(int type) {
  return type >= 0 && type <= pixelBGR24 ? kChannelOrders[type] : kChannelOrders[pixelRGBA32];
}

}  // namespace zr

#endif
