#include "fx/wipe_table.h"

namespace zr::fx {
namespace {

struct WipeRange {
  uint32_t first;
  uint32_t last;
  zrfxEffectFn* effect;
};

// Beyond their first rows, the numbers that play as the plain horizontal
// wipe or the rectangle name patterns that are not drawn. Hosts rely on them
// being accepted and played as that effect; they are not errors.
constexpr WipeRange kWipeTable[] = {
    {1, 1, zrfxSMPTE_Horizontal},
    {2, 2, zrfxSMPTE_Vertical},
    {3, 3, zrfxSMPTE_TopLeft},
    {4, 4, zrfxSMPTE_TopRight},
    {5, 5, zrfxSMPTE_BottomRight},
    {6, 6, zrfxSMPTE_BottomLeft},
    {7, 7, zrfxSMPTE_FourCorners},
    {8, 8, zrfxSMPTE_FourSquare},
    {21, 21, zrfxSMPTE_BarnDoorVertical},
    {22, 22, zrfxSMPTE_BarnDoorHorizontal},
    {23, 23, zrfxSMPTE_TopCenter},
    {24, 24, zrfxSMPTE_RightCenter},
    {25, 25, zrfxSMPTE_BottomCenter},
    {26, 26, zrfxSMPTE_LeftCenter},
    {41, 48, zrfxSMPTE_Rectangle},
    {61, 68, zrfxSMPTE_Rectangle},
    {71, 74, zrfxSMPTE_Rectangle},
    {101, 101, zrfxSMPTE_Rectangle},
    {102, 114, zrfxSMPTE_Horizontal},
    {119, 125, zrfxSMPTE_Horizontal},
    {127, 131, zrfxSMPTE_Horizontal},
    {201, 207, zrfxSMPTE_Horizontal},
    {211, 214, zrfxSMPTE_Horizontal},
    {221, 228, zrfxSMPTE_Horizontal},
    {231, 236, zrfxSMPTE_Horizontal},
    {241, 246, zrfxSMPTE_Horizontal},
    {251, 254, zrfxSMPTE_Horizontal},
    {261, 264, zrfxSMPTE_Horizontal},
    {301, 306, zrfxSMPTE_Horizontal},
    {310, 317, zrfxSMPTE_Horizontal},
    {320, 329, zrfxSMPTE_Horizontal},
    {340, 345, zrfxSMPTE_Horizontal},
    {350, 353, zrfxSMPTE_Horizontal},
    {409, 409, zrfxSMPTE_Horizontal},
    {500, 515, zrfxSLIDE_Basic},
};

}  // namespace

zrfxEffectFn* WipeEffectFor(uint32_t wipeCode) {
  const uint32_t number = wipeCode & 0x7FFFFFFFu;
  // Number 0 wraps to the top here, so it joins everything above 515.
  if (number - 1 > 514) return zrfxDISSOLVE;
  for (const WipeRange& range : kWipeTable)
    if (number >= range.first && number <= range.last) return range.effect;
  return zrfxDISSOLVE;
}

}  // namespace zr::fx
