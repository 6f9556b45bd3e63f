#include "zrfx/wipe_names.h"

#include <iterator>
#include <string_view>
#include <vector>

#include "fx/wipe_table.h"

namespace zrfx {
namespace {

using zr::fx::kWipeDefault;
using zr::fx::kWipeTable;
using zr::fx::WipeRange;

// The rows of the gallery: each row that shows something new, then the
// dissolve that every other number plays.
std::vector<WipeFamily> ListFamilies() {
  std::vector<WipeFamily> families;
  for (const WipeRange& range : kWipeTable)
    if (range.looks) families.push_back({range.first, range.name, range.looks});
  families.push_back({kWipeDefault.first, kWipeDefault.name, kWipeDefault.looks});
  return families;
}

}  // namespace

std::span<const WipeFamily> WipeFamilies() {
  static const std::vector<WipeFamily> families = ListFamilies();
  return families;
}

const char* WipeEffectName(uint32_t code) { return zr::fx::WipeRangeFor(code).name; }

std::string DescribeWipe(uint32_t code) {
  std::string text = "wipe " + std::to_string(code & ~kWipeReverse) + " (" + WipeEffectName(code) + ")";
  if (code & kWipeReverse) text += ", reversed";
  return text;
}

std::string WipeNumberHelp() {
  std::string text;
  for (const WipeRange& first : kWipeTable) {
    // One line per effect, at its first row.
    const std::string_view effect = first.name;
    bool listed = false;
    for (const WipeRange* row = kWipeTable; row != &first; ++row) listed = listed || row->name == effect;
    if (listed) continue;
    text += "  " + std::string(effect) + ":";
    const char* separator = " ";
    // Rows of the effect that follow on from each other make one range.
    for (const WipeRange* row = &first; row != std::end(kWipeTable); ++row) {
      if (row->name != effect) continue;
      const uint32_t from = row->first;
      while (row + 1 != std::end(kWipeTable) && row[1].name == effect && row[1].first == row->last + 1) ++row;
      text.append(separator).append(std::to_string(from));
      if (row->last != from) text.append("-").append(std::to_string(row->last));
      separator = ", ";
    }
    text += "\n";
  }
  return text + "  " + kWipeDefault.name + ": 0 and every other number\n";
}

}  // namespace zrfx
