#include "zrfx/mux_names.h"

#include <zrdraw.h>

#include <cstdio>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

using zr::mux::kMuxFlagNames;
using zr::mux::kMuxModeNames;

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

std::span<const MuxName> MuxModes() { return kMuxModeNames; }
std::span<const MuxName> MuxFlags() { return kMuxFlagNames; }

uint32_t ParseMuxMode(const std::string& text) {
  if (const MuxName* mode = Find(kMuxModeNames, text)) return mode->value;
  if (!text.empty() && text[0] >= '0' && text[0] <= '9') {
    const uint32_t value = ParseU32(text, "mode number");
    if (value <= MUX_MODE_MASK) return value;
  }
  throw UsageError("unknown mux mode '" + text + "' (see zrfx mux --help)");
}

uint32_t ParseMuxFlag(const std::string& text) {
  if (const MuxName* flag = Find(kMuxFlagNames, text)) return flag->value;
  throw UsageError("unknown mux flag '" + text + "' (see zrfx mux --help)");
}

std::string MuxModeName(uint32_t mode) {
  for (const MuxName& entry : kMuxModeNames)
    if (entry.value == mode) return entry.name;
  return Hex(mode);
}

std::string MuxFlagNames(uint32_t flags) {
  std::string names;
  for (const MuxName& entry : kMuxFlagNames)
    if (flags & entry.value) names.append(names.empty() ? "" : "+").append(entry.name);
  return names;
}

std::string DescribeMux(const MuxSettings& s) {
  const uint32_t mode = s.flags & MUX_MODE_MASK;
  std::string text = MuxModeName(mode) + " (" + Hex(mode) + ")";
  if (const std::string names = MuxFlagNames(s.flags); !names.empty()) text += " + " + names;
  uint32_t reads = kReadsNothing;
  for (const MuxName& entry : kMuxModeNames)
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
  for (const MuxName& mode : kMuxModeNames) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-18s %s  %s\n", mode.name, Hex(mode.value).c_str(), mode.looks);
    text += line;
  }
  text += "Flags (--flag NAME, repeatable or comma-separated):\n";
  for (const MuxName& flag : kMuxFlagNames) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-18s %s\n", flag.name, flag.looks);
    text += line;
  }
  return text +
         "DIFFERENCE is one-sided: mid grey (128) where A and B agree, lighter where A is\n"
         "brighter, and white wherever B is brighter than A in any channel, however slightly.\n"
         "To compare two encodes, MATCH_GATE --level T shows B where the two agree within T\n"
         "in every byte and black elsewhere, whichever of them is brighter.\n";
}

}  // namespace zrfx
