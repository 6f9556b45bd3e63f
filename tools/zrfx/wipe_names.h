// What the wipe numbers do, for captions, help texts and the gallery, read
// from the library's own wipe table.
#ifndef ZRFX_WIPE_NAMES_H
#define ZRFX_WIPE_NAMES_H

#include <cstdint>
#include <span>
#include <string>

namespace zrfx {

constexpr uint32_t kWipeReverse = 0x80000000u;

struct WipeFamily {
  uint32_t code;       // the first wipe number that plays this way
  const char* effect;  // the library's effect function
  const char* looks;   // what the viewer sees
};

// One wipe number per effect, then the four slide directions and the
// dissolve: what the gallery shows.
std::span<const WipeFamily> WipeFamilies();

// The effect function that the front door runs for a wipe number; bit 31,
// the reverse flag, is ignored.
const char* WipeEffectName(uint32_t code);

// "wipe 3 (zrfxSMPTE_TopLeft)", with ", reversed" when bit 31 is set.
std::string DescribeWipe(uint32_t code);

// Help text: the numbers and what they play as, one range per line.
std::string WipeNumberHelp();

}  // namespace zrfx

#endif
