// The mode numbers of the flag word and the mode each one runs.
#include <cstddef>
#include <iterator>

#include "mux/mux_mode_names.h"
#include "mux/mux_modes.h"
#include "zrmux.h"

namespace zr::mux {
namespace {

struct MuxModeEntry {
  uint32_t mode;
  MuxModeFn run;
};

static constexpr MuxModeEntry kMuxModes[] = {
    {MUX_COPY_B, MuxCopyB},
    {MUX_MERGE_BYTE2_BYTE0, MuxMergeByte2Byte0},
    {MUX_MERGE_HIGH_LOW, MuxMergeHighLow},
    {MUX_MERGE_BYTE0, MuxMergeByte0},
    {MUX_MERGE_ODD_EVEN, MuxMergeOddEven},
    {MUX_INTERLEAVE, MuxInterleave},
    {MUX_AVERAGE, MuxAverage},
    {MUX_DIFFERENCE, MuxDifference},
    {MUX_OVER_UNDER, MuxOverUnder},
    {MUX_SIDE_BY_SIDE, MuxSideBySide},
    {MUX_SPLIT, MuxSplit},
    {MUX_MIRROR, MuxMirror},
    {MUX_MIRROR2, MuxMirror},
    {MUX_MATCH_GATE, MuxMatchGate},
    {MUX_CROSSFADE, MuxCrossfade},
    {MUX_WIPE, MuxWipe},
    {MUX_CHECKER, MuxChecker},
    {MUX_BLOCK_CHECKER, MuxBlockChecker},
    {MUX_TWO_UP, MuxTwoUp},
    {MUX_CROP_PAIR, MuxCropPair},
    {MUX_CHANNEL_VIEW, MuxChannelView},
};

// Each named mode but the default has its function here, and nothing else
// has: the names and the functions are two mappings of one set of modes.
constexpr bool EveryNamedModeRuns() {
  size_t named = 0;
  for (const MuxName& name : kMuxModeNames) {
    if (name.value == MUX_DEFAULT) continue;
    ++named;
    bool found = false;
    for (const MuxModeEntry& entry : kMuxModes) found = found || entry.mode == name.value;
    if (!found) return false;
  }
  return named == std::size(kMuxModes);
}
static_assert(EveryNamedModeRuns());

}  // namespace

MuxModeFn FindMuxMode(uint32_t mode) {
  for (const MuxModeEntry& entry : kMuxModes)
    if (entry.mode == mode) return entry.run;
  return MuxCopyA;
}

}  // namespace zr::mux
