#include "zrfx/wipe_names.h"

#include <string_view>
#include <vector>

#include "fx/wipe_table.h"
#include "zrfx/wipe_probe.h"

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

// Appends `range`, joined to the last one where they meet.
void AddRange(std::vector<NumberRange>& ranges, NumberRange range) {
  if (!ranges.empty() && ranges.back().last + 1 == range.first)
    ranges.back().last = range.last;
  else
    ranges.push_back(range);
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

std::string RangeText(std::span<const NumberRange> ranges) {
  std::string text;
  for (const NumberRange& r : ranges) {
    text.append(text.empty() ? "" : ", ").append(std::to_string(r.first));
    if (r.last != r.first) text.append("-").append(std::to_string(r.last));
  }
  return text;
}

std::vector<WipeRun> WipeRuns() {
  std::vector<WipeRun> runs;
  for (const WipeRange& row : kWipeTable)
    for (uint32_t n = row.first; n <= row.last; ++n) {
      const bool silent = WipeWritesNothing(n);
      const uint32_t shownAs = silent ? 0 : WipeShownAs(n);
      if (!runs.empty()) {
        WipeRun& last = runs.back();
        if (last.numbers.last + 1 == n && last.effect == std::string_view(row.name) &&
            last.shownAs == shownAs && last.writesNothing == silent) {
          last.numbers.last = n;
          continue;
        }
      }
      runs.push_back({{n, n}, row.name, shownAs, silent});
    }
  return runs;
}

std::vector<NumberRange> ReversedSilentNumbers() {
  std::vector<NumberRange> ranges;
  for (const WipeRange& row : kWipeTable)
    for (uint32_t n = row.first; n <= row.last; ++n)
      if (WipeWritesNothing(n | kWipeReverse)) AddRange(ranges, {n, n});
  return ranges;
}

std::vector<NumberRange> DissolveNumbers() {
  std::vector<NumberRange> ranges;
  uint32_t next = 0;  // the first number not yet accounted for
  for (const WipeRange& row : kWipeTable) {
    if (row.first > next) ranges.push_back({next, row.first - 1});
    next = row.last + 1;
  }
  ranges.push_back({next, ~kWipeReverse});
  return ranges;
}

std::string WipeNumberHelp() {
  const std::vector<WipeRun> runs = WipeRuns();
  std::string text;
  std::vector<NumberRange> silent;
  for (const WipeRun& first : runs) {
    // One line per effect, at its first run; runs that write nothing apart.
    if (first.writesNothing) {
      AddRange(silent, first.numbers);
      continue;
    }
    bool listed = false;
    for (const WipeRun* run = runs.data(); run != &first; ++run)
      listed = listed || (!run->writesNothing && run->effect == first.effect);
    if (listed) continue;
    std::vector<NumberRange> numbers;
    for (const WipeRun& run : runs) {
      if (!run.writesNothing && run.effect == first.effect) AddRange(numbers, run.numbers);
    }
    text += "  " + std::string(first.effect) + ": " + RangeText(numbers) + "\n";
  }
  text += "  " + std::string(kWipeDefault.name) + ": 0 and every other number\n";
  return text + "Refused, since the library writes nothing for them: " + RangeText(silent) +
         ", and with --reverse " + RangeText(ReversedSilentNumbers()) + ".\n";
}

}  // namespace zrfx
