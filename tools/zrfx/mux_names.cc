#include "zrfx/mux_names.h"

#include <zrdraw.h>

#include <cstdio>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

constexpr MuxName kModes[] = {
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

constexpr MuxName kFlags[] = {
    {"GRID", MUXF_GRID, "draw the grid overlay in percentage mode (--grid also turns it on)", kReadsNothing},
    {"FLIP_H_B", MUXF_FLIP_H_B, "mirror B left to right first", kReadsNothing},
    {"FLIP_V_B", MUXF_FLIP_V_B, "turn B upside down first", kReadsNothing},
    {"DIVIDER", MUXF_DIVIDER, "SPLIT: draw a grey divider on the line", kReadsNothing},
    {"ALT_AXIS", MUXF_ALT_AXIS, "INTERLEAVE, SPLIT, MIRROR, CROP_PAIR: the other axis", kReadsNothing},
    {"FLIP_H_A", MUXF_FLIP_H_A, "mirror A left to right first", kReadsNothing},
    {"FLIP_V_A", MUXF_FLIP_V_A, "turn A upside down first", kReadsNothing},
    {"SWAP", MUXF_SWAP, "exchange A and B (MATCH_GATE: fill white)", kReadsNothing},
};

// Upper case, '-' as '_', without a MUX_ or MUXF_ prefix.
std::string Normalise(const std::string& text) {
  std::string out;
  for (char c : text) out += c == '-' ? '_' : (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
  for (const char* prefix : {"MUXF_", "MUX_"})
    if (out.rfind(prefix, 0) == 0) return out.substr(std::string(prefix).size());
  return out;
}

const MuxName* Find(std::span<const MuxName> table, const std::string& text) {
  const std::string key = Normalise(text);
  for (const MuxName& entry : table)
    if (key == entry.name) return &entry;
  return nullptr;
}

std::string Hex(uint32_t value) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%06X", value);
  return text;
}

}  // namespace

std::span<const MuxName> MuxModes() { return kModes; }
std::span<const MuxName> MuxFlags() { return kFlags; }

uint32_t ParseMuxMode(const std::string& text) {
  if (const MuxName* mode = Find(kModes, text)) return mode->value;
  if (!text.empty() && text[0] >= '0' && text[0] <= '9') {
    const uint32_t value = ParseU32(text, "mode number");
    if (value <= MUX_MODE_MASK) return value;
  }
  throw UsageError("unknown mux mode '" + text + "' (see zrfx mux --help)");
}

uint32_t ParseMuxFlag(const std::string& text) {
  if (const MuxName* flag = Find(kFlags, text)) return flag->value;
  throw UsageError("unknown mux flag '" + text + "' (see zrfx mux --help)");
}

std::string MuxModeName(uint32_t mode) {
  for (const MuxName& entry : kModes)
    if (entry.value == mode) return entry.name;
  return Hex(mode);
}

std::string MuxFlagNames(uint32_t flags) {
  std::string names;
  for (const MuxName& entry : kFlags)
    if (flags & entry.value) names.append(names.empty() ? "" : "+").append(entry.name);
  return names;
}

std::string DescribeMux(const MuxSettings& s) {
  const uint32_t mode = s.flags & MUX_MODE_MASK;
  std::string text = MuxModeName(mode) + " (" + Hex(mode) + ")";
  if (const std::string names = MuxFlagNames(s.flags); !names.empty()) text += " + " + names;
  uint32_t reads = kReadsNothing;
  for (const MuxName& entry : kModes)
    if (entry.value == mode) reads = entry.reads;
  if (reads & kReadsCode) text += ", " + DescribeWipe(s.wipeCode);
  if (reads & kReadsPosition) text += ", position " + std::to_string(s.position);
  // Gains and tolerances read best in decimal, channel masks in hex.
  if (reads & kReadsLevel) text += ", level " + (s.level < 0x100 ? std::to_string(s.level) : Hex(s.level));
  if (reads & kReadsSplit)
    text += (s.flags & MUXF_ALT_AXIS) ? ", splitY " + std::to_string(s.splitY)
                                      : ", splitX " + std::to_string(s.splitX);
  if (s.gridMode >= 2)
    text += ", grid every " + std::to_string(s.gridStepX) + "x" + std::to_string(s.gridStepY) + " pixels";
  else if (s.gridMode == 1 || (s.flags & MUXF_GRID))
    text += ", grid mode " + std::to_string(s.gridMode) + " at " + std::to_string(s.gridStepX) + "%";
  return text;
}

std::string MuxHelp() {
  std::string text = "Modes (--mode NAME, or a number below 0x1000000):\n";
  for (const MuxName& mode : kModes) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-18s %s  %s\n", mode.name, Hex(mode.value).c_str(), mode.looks);
    text += line;
  }
  text += "Flags (--flag NAME, repeatable or comma-separated):\n";
  for (const MuxName& flag : kFlags) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-18s %s\n", flag.name, flag.looks);
    text += line;
  }
  return text;
}

}  // namespace zrfx
