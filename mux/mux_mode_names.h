// The names of the mux modes and flags, a line on each, and the arguments
// that each mode reads. Plain data with no code behind it, so that the
// library, the zrfx tool (which sees only the public headers) and the tests
// all read this one table.
#ifndef ZR_MUX_MUX_MODE_NAMES_H
#define ZR_MUX_MUX_MODE_NAMES_H

#include <cstdint>

#include "zrmux.h"

namespace zr::mux {

// The arguments of ZrDraw_DisplayMuxRGBA that a mode reads, beside the frames.
enum MuxReads : uint32_t {
  kReadsNothing = 0,
  kReadsPosition = 1,  // mixPosition
  kReadsLevel = 2,     // mixLevel
  kReadsSplit = 4,     // splitX, splitY
  kReadsCode = 8,      // wipeCode
};

struct MuxName {
  const char* name;  // the MUX_ or MUXF_ name without its prefix, e.g. "SIDE_BY_SIDE"
  uint32_t value;
  const char* looks;  // one line of help, as the zrfx tool words it
  uint32_t reads;     // MuxReads bits; 0 for flags
};

// Every assigned mode value; any other value copies A, as MUX_DEFAULT does.
inline constexpr MuxName kMuxModeNames[] = {
    {"DEFAULT", MUX_DEFAULT, "copy A (every unassigned value does the same)", kReadsNothing},
    {"COPY_B", MUX_COPY_B, "copy B", kReadsNothing},
    {"MERGE_BYTE2_BYTE0", MUX_MERGE_BYTE2_BYTE0, "byte 2 of A, byte 0 of B, the rest zero", kReadsNothing},
    {"MERGE_HIGH_LOW", MUX_MERGE_HIGH_LOW, "bytes 2-3 of A, bytes 0-1 of B", kReadsNothing},
    {"MERGE_BYTE0", MUX_MERGE_BYTE0, "A with byte 0 of B", kReadsNothing},
    {"MERGE_ODD_EVEN", MUX_MERGE_ODD_EVEN, "bytes 1, 3 of A, bytes 0, 2 of B", kReadsNothing},
    {"INTERLEAVE", MUX_INTERLEAVE, "alternate rows (columns with ALT_AXIS)", kReadsNothing},
    {"AVERAGE", MUX_AVERAGE, "half of each, low bits dropped", kReadsNothing},
    {"DIFFERENCE", MUX_DIFFERENCE, "grey picture of the largest difference; --level is the gain",
     kReadsLevel},
    {"OVER_UNDER", MUX_OVER_UNDER, "A's even rows above B's even rows", kReadsNothing},
    {"SIDE_BY_SIDE", MUX_SIDE_BY_SIDE, "A squeezed left, B squeezed right", kReadsNothing},
    {"SPLIT", MUX_SPLIT, "A up to a line, B after it; --split-x, --split-y", kReadsSplit},
    {"MIRROR", MUX_MIRROR, "left half of A, reflected B (top and bottom with ALT_AXIS)", kReadsNothing},
    {"MIRROR2", MUX_MIRROR2, "the same as MIRROR", kReadsNothing},
    {"MATCH_GATE", MUX_MATCH_GATE, "B where A and B agree within --level, else black", kReadsLevel},
    {"CROSSFADE", MUX_CROSSFADE, "weighted mix; --position 65536 is all A", kReadsPosition},
    {"WIPE", MUX_WIPE, "a transition: --code, --position of 65536", kReadsCode | kReadsPosition},
    {"CHECKER", MUX_CHECKER, "one-pixel checkerboard", kReadsNothing},
    {"BLOCK_CHECKER", MUX_BLOCK_CHECKER, "checkerboard of blocks of --position/256 pixels", kReadsPosition},
    {"TWO_UP", MUX_TWO_UP, "both at half size, centred, on black", kReadsNothing},
    {"CROP_PAIR", MUX_CROP_PAIR, "full-scale crops side by side; --split-x (--split-y)", kReadsSplit},
    {"CHANNEL_VIEW", MUX_CHANNEL_VIEW, "one channel of A as grey; --level is the byte mask", kReadsLevel},
};

inline constexpr MuxName kMuxFlagNames[] = {
    {"GRID", MUXF_GRID, "draw the grid overlay in percentage mode (--grid also turns it on)", kReadsNothing},
    {"FLIP_H_B", MUXF_FLIP_H_B, "mirror B left to right first", kReadsNothing},
    {"FLIP_V_B", MUXF_FLIP_V_B, "turn B upside down first", kReadsNothing},
    {"DIVIDER", MUXF_DIVIDER, "SPLIT: draw a grey divider on the line", kReadsNothing},
    {"ALT_AXIS", MUXF_ALT_AXIS, "INTERLEAVE, SPLIT, MIRROR, CROP_PAIR: the other axis", kReadsNothing},
    {"FLIP_H_A", MUXF_FLIP_H_A, "mirror A left to right first", kReadsNothing},
    {"FLIP_V_A", MUXF_FLIP_V_A, "turn A upside down first", kReadsNothing},
    {"SWAP", MUXF_SWAP, "exchange A and B (MATCH_GATE: fill white)", kReadsNothing},
};

}  // namespace zr::mux

#endif
