#include "zrfx/inputs.h"

#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/wipe_names.h"
#include "zrfx/wipe_probe.h"

namespace zrfx {

PicturePair ReadPicturePair(const std::string& pathA, const std::string& pathB) {
  PicturePair pair{ReadPng(pathA), ReadPng(pathB)};
  CheckSameSize(pair.a.frame, pathA, pair.b.frame, pathB);
  return pair;
}

void CheckSameSize(const Frame& a, const std::string& nameA, const Frame& b, const std::string& nameB) {
  if (a.SameSize(b)) return;
  throw UsageError(nameA + " is " + std::to_string(a.width()) + "x" + std::to_string(a.height()) + " but " +
                   nameB + " is " + std::to_string(b.width()) + "x" + std::to_string(b.height()) +
                   "; both inputs must have the same size");
}

std::string WipeLayoutOption(const Args& args) {
  const std::string layout = args.Value("layout").value_or("rgba");
  if (layout != "rgba" && layout != "ycbcr" && layout != "v210")
    throw UsageError("unknown layout '" + layout + "' (rgba, ycbcr or v210)");
  return layout;
}

uint32_t WipeCodeOption(const Args& args) {
  uint32_t code = ParseWipeNumber(args.Required("code"));
  if (args.Has("reverse")) code |= kWipeReverse;
  RefuseSilentWipe(code);
  return code;
}

}  // namespace zrfx
