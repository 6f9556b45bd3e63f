// What the subcommands share: reading the two input pictures and the
// options that name a wipe.
#ifndef ZRFX_INPUTS_H
#define ZRFX_INPUTS_H

#include <cstdint>
#include <string>

#include "zrfx/args.h"
#include "zrfx/png_io.h"

namespace zrfx {

struct PicturePair {
  PngPicture a;
  PngPicture b;
  // Outputs keep an alpha channel when either input had one.
  bool HasAlpha() const { return a.hasAlpha || b.hasAlpha; }
};

// Reads both PNG files; throws UsageError unless they have the same size.
PicturePair ReadPicturePair(const std::string& pathA, const std::string& pathB);

// Throws UsageError naming both sizes unless they are equal.
void CheckSameSize(const Frame& a, const std::string& nameA, const Frame& b, const std::string& nameB);

// --layout L of the PNG wipes: "rgba" (the default), "ycbcr" or "v210".
std::string WipeLayoutOption(const Args& args);

// --code N and --reverse as one wipe code: bit 31 is the reverse flag.
// Throws UsageError for a code that writes nothing.
uint32_t WipeCodeOption(const Args& args);

}  // namespace zrfx

#endif
