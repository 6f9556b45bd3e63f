// Names of the mux modes and flags on the command line: the library's
// MUX_ and MUXF_ names without their prefix, in any case, with '-' or '_'.
#ifndef ZRFX_MUX_NAMES_H
#define ZRFX_MUX_NAMES_H

#include <cstdint>
#include <span>
#include <string>

#include "mux/mux_mode_names.h"
#include "zrfx/mux_settings.h"

namespace zrfx {

using zr::mux::kReadsCode;
using zr::mux::kReadsLevel;
using zr::mux::kReadsNothing;
using zr::mux::kReadsPosition;
using zr::mux::kReadsSplit;
using zr::mux::MuxName;

// The library's tables of mode and flag names.
std::span<const MuxName> MuxModes();
std::span<const MuxName> MuxFlags();

// The mode value of a name, or of a number (decimal or 0x hex, below
// 2^24). Throws UsageError for anything else.
uint32_t ParseMuxMode(const std::string& text);
// The flag bit of a name; throws UsageError for an unknown name.
uint32_t ParseMuxFlag(const std::string& text);

// "SPLIT" for a mode value (the first name of that value), or its number in
// hexadecimal when it has no name (and copies A).
std::string MuxModeName(uint32_t mode);
// "ALT_AXIS+DIVIDER" for the flag bits of a flag word, "" for none.
std::string MuxFlagNames(uint32_t flags);

// The mode, the flags and the arguments that the mode reads, for a
// caption: "SPLIT (0x000800) + ALT_AXIS+DIVIDER, splitY 108", and the grid
// when there is one.
std::string DescribeMux(const MuxSettings& settings);

// Help text: one line per mode, then one per flag, then what DIFFERENCE
// shows and the mode that suits comparing two encodes.
std::string MuxHelp();

}  // namespace zrfx

#endif
