#include "zrfx/wipe_names.h"

#include <iterator>
#include <string_view>

namespace zrfx {
namespace {

constexpr const char* kHorizontal = "zrfxSMPTE_Horizontal";
constexpr const char* kRectangle = "zrfxSMPTE_Rectangle";
constexpr const char* kSlide = "zrfxSLIDE_Basic";
constexpr const char* kDissolve = "zrfxDISSOLVE";

constexpr WipeFamily kFamilies[] = {
    {1, kHorizontal, "an edge moves in from the left"},
    {2, "zrfxSMPTE_Vertical", "an edge moves down from the top"},
    {3, "zrfxSMPTE_TopLeft", "a box grows from the top left corner"},
    {4, "zrfxSMPTE_TopRight", "a box grows from the top right corner"},
    {5, "zrfxSMPTE_BottomRight", "a box grows from the bottom right corner"},
    {6, "zrfxSMPTE_BottomLeft", "a box grows from the bottom left corner"},
    {7, "zrfxSMPTE_FourCorners", "boxes grow from the four corners"},
    {8, "zrfxSMPTE_FourSquare", "the old picture shrinks to a centre box"},
    {21, "zrfxSMPTE_BarnDoorVertical", "doors close in from left and right"},
    {22, "zrfxSMPTE_BarnDoorHorizontal", "doors close in from top and bottom"},
    {23, "zrfxSMPTE_TopCenter", "the old picture shrinks to the top centre"},
    {24, "zrfxSMPTE_RightCenter", "the old picture shrinks to the right"},
    {25, "zrfxSMPTE_BottomCenter", "the old picture shrinks to the bottom centre"},
    {26, "zrfxSMPTE_LeftCenter", "the old picture shrinks to the left"},
    {41, kRectangle, "a centred box grows"},
    {500, kSlide, "A slides up off the frame"},
    {501, kSlide, "A slides left off the frame"},
    {502, kSlide, "A slides down off the frame"},
    {503, kSlide, "A slides right off the frame"},
    {0, kDissolve, "a dissolve"},
};

struct WipeRange {
  uint32_t first, last;
  const char* effect;
};

// Numbers that play as a named effect; every other number plays as the
// dissolve. Many of the numbers name patterns that play as one of these
// effects.
constexpr WipeRange kRanges[] = {
    {1, 1, kHorizontal},
    {2, 2, "zrfxSMPTE_Vertical"},
    {3, 3, "zrfxSMPTE_TopLeft"},
    {4, 4, "zrfxSMPTE_TopRight"},
    {5, 5, "zrfxSMPTE_BottomRight"},
    {6, 6, "zrfxSMPTE_BottomLeft"},
    {7, 7, "zrfxSMPTE_FourCorners"},
    {8, 8, "zrfxSMPTE_FourSquare"},
    {21, 21, "zrfxSMPTE_BarnDoorVertical"},
    {22, 22, "zrfxSMPTE_BarnDoorHorizontal"},
    {23, 23, "zrfxSMPTE_TopCenter"},
    {24, 24, "zrfxSMPTE_RightCenter"},
    {25, 25, "zrfxSMPTE_BottomCenter"},
    {26, 26, "zrfxSMPTE_LeftCenter"},
    {41, 48, kRectangle},
    {61, 68, kRectangle},
    {71, 74, kRectangle},
    {101, 101, kRectangle},
    {102, 114, kHorizontal},
    {119, 125, kHorizontal},
    {127, 131, kHorizontal},
    {201, 207, kHorizontal},
    {211, 214, kHorizontal},
    {221, 228, kHorizontal},
    {231, 236, kHorizontal},
    {241, 246, kHorizontal},
    {251, 254, kHorizontal},
    {261, 264, kHorizontal},
    {301, 306, kHorizontal},
    {310, 317, kHorizontal},
    {320, 329, kHorizontal},
    {340, 345, kHorizontal},
    {350, 353, kHorizontal},
    {409, 409, kHorizontal},
    {500, 515, kSlide},
};

}  // namespace

std::span<const WipeFamily> WipeFamilies() { return kFamilies; }

const char* WipeEffectName(uint32_t code) {
  const uint32_t number = code & ~kWipeReverse;
  for (const WipeRange& range : kRanges)
    if (number >= range.first && number <= range.last) return range.effect;
  return kDissolve;
}

std::string DescribeWipe(uint32_t code) {
  std::string text = "wipe " + std::to_string(code & ~kWipeReverse) + " (" + WipeEffectName(code) + ")";
  if (code & kWipeReverse) text += ", reversed";
  return text;
}

std::string WipeNumberHelp() {
  std::string text;
  for (size_t i = 0; i < std::size(kRanges); ++i) {
    const char* effect = kRanges[i].effect;
    bool listed = false;
    for (size_t j = 0; j < i; ++j) listed = listed || std::string_view(kRanges[j].effect) == effect;
    if (listed) continue;
    text += "  " + std::string(effect) + ":";
    const char* separator = " ";
    for (size_t j = i; j < std::size(kRanges); ++j) {
      if (std::string_view(kRanges[j].effect) != effect) continue;
      text.append(separator).append(std::to_string(kRanges[j].first));
      if (kRanges[j].last != kRanges[j].first) text.append("-").append(std::to_string(kRanges[j].last));
      separator = ", ";
    }
    text += "\n";
  }
  return text + "  " + kDissolve + ": 0 and every other number\n";
}

}  // namespace zrfx
