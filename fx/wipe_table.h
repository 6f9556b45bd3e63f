// The wipe numbers of the front door: the effect that plays each, with the
// effect's name and a line on what it looks like. Plain data with no code
// behind it, so that the library, the zrfx tool (which sees only the exported
// effects) and the tests all read this one table.
#ifndef ZR_FX_WIPE_TABLE_H
#define ZR_FX_WIPE_TABLE_H

#include <cstdint>

#include "zrfx.h"

namespace zr::fx {

struct WipeRange {
  uint32_t first;
  uint32_t last;
  zrfxEffectFn* effect;
  const char* name;   // the effect's exported name
  const char* looks;  // what the viewer sees; null on a row that shows nothing new
};

// Beyond their first rows, the numbers that play as the plain horizontal
// wipe or the rectangle name patterns that are not drawn. Hosts rely on them
// being accepted and played as that effect; they are not errors. 504 to 507
// slide as 502 does, and 508 to 515 reach the slide and do nothing.
inline constexpr WipeRange kWipeTable[] = {
    {1, 1, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", "an edge moves in from the left"},
    {2, 2, zrfxSMPTE_Vertical, "zrfxSMPTE_Vertical", "an edge moves down from the top"},
    {3, 3, zrfxSMPTE_TopLeft, "zrfxSMPTE_TopLeft", "a box grows from the top left corner"},
    {4, 4, zrfxSMPTE_TopRight, "zrfxSMPTE_TopRight", "a box grows from the top right corner"},
    {5, 5, zrfxSMPTE_BottomRight, "zrfxSMPTE_BottomRight", "a box grows from the bottom right corner"},
    {6, 6, zrfxSMPTE_BottomLeft, "zrfxSMPTE_BottomLeft", "a box grows from the bottom left corner"},
    {7, 7, zrfxSMPTE_FourCorners, "zrfxSMPTE_FourCorners", "boxes grow from the four corners"},
    {8, 8, zrfxSMPTE_FourSquare, "zrfxSMPTE_FourSquare", "the old picture shrinks to a centre box"},
    {21, 21, zrfxSMPTE_BarnDoorVertical, "zrfxSMPTE_BarnDoorVertical", "doors close in from left and right"},
    {22, 22, zrfxSMPTE_BarnDoorHorizontal, "zrfxSMPTE_BarnDoorHorizontal",
     "doors close in from top and bottom"},
    {23, 23, zrfxSMPTE_TopCenter, "zrfxSMPTE_TopCenter", "the old picture shrinks to the top centre"},
    {24, 24, zrfxSMPTE_RightCenter, "zrfxSMPTE_RightCenter", "the old picture shrinks to the right"},
    {25, 25, zrfxSMPTE_BottomCenter, "zrfxSMPTE_BottomCenter",
     "the old picture shrinks to the bottom centre"},
    {26, 26, zrfxSMPTE_LeftCenter, "zrfxSMPTE_LeftCenter", "the old picture shrinks to the left"},
    {41, 48, zrfxSMPTE_Rectangle, "zrfxSMPTE_Rectangle", "a centred box grows"},
    {61, 68, zrfxSMPTE_Rectangle, "zrfxSMPTE_Rectangle", nullptr},
    {71, 74, zrfxSMPTE_Rectangle, "zrfxSMPTE_Rectangle", nullptr},
    {101, 101, zrfxSMPTE_Rectangle, "zrfxSMPTE_Rectangle", nullptr},
    {102, 114, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {119, 125, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {127, 131, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {201, 207, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {211, 214, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {221, 228, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {231, 236, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {241, 246, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {251, 254, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {261, 264, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {301, 306, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {310, 317, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {320, 329, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {340, 345, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {350, 353, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {409, 409, zrfxSMPTE_Horizontal, "zrfxSMPTE_Horizontal", nullptr},
    {500, 500, zrfxSLIDE_Basic, "zrfxSLIDE_Basic", "A slides up off the frame"},
    {501, 501, zrfxSLIDE_Basic, "zrfxSLIDE_Basic", "A slides left off the frame"},
    {502, 502, zrfxSLIDE_Basic, "zrfxSLIDE_Basic", "A slides down off the frame"},
    {503, 503, zrfxSLIDE_Basic, "zrfxSLIDE_Basic", "A slides right off the frame"},
    {504, 515, zrfxSLIDE_Basic, "zrfxSLIDE_Basic", nullptr},
};

// Every number without a row, 0 included.
inline constexpr WipeRange kWipeDefault = {0, 0, zrfxDISSOLVE, "zrfxDISSOLVE", "a dissolve"};

// The row of a wipe code; bit 31 (the reverse flag) plays no part here.
constexpr const WipeRange& WipeRangeFor(uint32_t wipeCode) {
  const uint32_t number = wipeCode & 0x7FFFFFFFu;
  // Number 0 wraps to the top here, so it joins everything above 515.
  if (number - 1 > 514) return kWipeDefault;
  for (const WipeRange& range : kWipeTable)
    if (number >= range.first && number <= range.last) return range;
  return kWipeDefault;
}

// The effect that the front door runs for a wipe code.
inline zrfxEffectFn* WipeEffectFor(uint32_t wipeCode) { return WipeRangeFor(wipeCode).effect; }

}  // namespace zr::fx

#endif
