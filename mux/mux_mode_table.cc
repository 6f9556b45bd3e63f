// The mode numbers of the flag word and the mode each one runs.
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

}  // namespace

MuxModeFn FindMuxMode(uint32_t mode) {
  for (const MuxModeEntry& entry : kMuxModes)
    if (entry.mode == mode) return entry.run;
  return MuxCopyA;
}

}  // namespace zr::mux
