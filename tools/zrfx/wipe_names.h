// What the wipe numbers do, for captions, help texts and the gallery, read
// from the library's own wipe table.
#ifndef ZRFX_WIPE_NAMES_H
#define ZRFX_WIPE_NAMES_H

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

struct NumberRange {
  uint32_t first;
  uint32_t last;
};

// "0, 9-20, 27-40".
std::string RangeText(std::span<const NumberRange> ranges);

// Neighbouring numbers of the library's wipe table that play alike.
struct WipeRun {
  NumberRange numbers;
  std::string_view effect;  // the library's effect function
  uint32_t shownAs;         // the WipeFamilies() number that shows the same; 0 when silent
  bool writesNothing;
};

// Every number of the wipe table, in order, cut into runs.
std::vector<WipeRun> WipeRuns();
// The numbers of the table that write nothing with bit 31 set.
std::vector<NumberRange> ReversedSilentNumbers();
// The numbers without a row in the table: they dissolve.
std::vector<NumberRange> DissolveNumbers();

// Help text: the numbers each effect plays, one line per effect, then the
// numbers that write nothing and are refused.
std::string WipeNumberHelp();

}  // namespace zrfx

#endif
