// zrfx list: every wipe number and mux mode, read from the library's own
// tables and found by running the wipes, never from a copy.
#include <algorithm>
#include <cstdio>
#include <string>

#include "zrfx/args.h"
#include "zrfx/commands.h"
#include "zrfx/errors.h"
#include "zrfx/mux_names.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {{"help", "-h", false, false}};

constexpr const char* kHelp =
    "usage: zrfx list\n"
    "\n"
    "Lists every wipe number with the effect that plays it, the numbers that\n"
    "play as another, as a dissolve or not at all, then every mux mode and flag.\n";

// The items of a list joined by ", ", in lines of at most 100 characters.
std::string Wrap(const std::string& list, const std::string& indent) {
  std::string out, line;
  for (size_t start = 0; start < list.size();) {
    const size_t end = std::min(list.find(", ", start), list.size());
    const std::string item = list.substr(start, end - start);
    start = end + 2;
    if (!line.empty() && indent.size() + line.size() + item.size() + 2 > 100) {
      out += indent + line + ",\n";
      line.clear();
    }
    line += (line.empty() ? "" : ", ") + item;
  }
  return out + indent + line + "\n";
}

std::string WipeList() {
  std::string text = "Wipe numbers (--code N of wipe and transition, and of mux --mode wipe):\n";
  for (const WipeRun& run : WipeRuns()) {
    std::string what = "writes nothing: refused";
    if (!run.writesNothing)
      for (const WipeFamily& family : WipeFamilies())
        if (family.code == run.shownAs)
          what = (family.code == run.numbers.first ? "" : "as " + std::to_string(family.code) + ": ") +
                 family.looks;
    char line[200];
    std::snprintf(line, sizeof line, "  %-9s %-30s %s\n", RangeText({&run.numbers, 1}).c_str(),
                  std::string(run.effect).c_str(), what.c_str());
    text += line;
  }
  const WipeFamily& dissolve = WipeFamilies().back();
  text += "Every other number plays " + std::string(dissolve.effect) + ", " + dissolve.looks + ":\n" +
          Wrap(RangeText(DissolveNumbers()), "  ");
  return text + "With --reverse (bit 31) A and B exchange roles; these numbers then write nothing and are\n" +
         "refused: " + RangeText(ReversedSilentNumbers()) + ".\n\n";
}

}  // namespace

int ListCommand(int argc, char** argv, int first) {
  const Args args(kOptions, argc, argv, first);
  if (args.Has("help")) {
    std::fputs(kHelp, stdout);
    return kExitOk;
  }
  args.ExpectPositional(0, "no arguments");
  std::printf("%s%s", WipeList().c_str(), MuxHelp().c_str());
  return kExitOk;
}

}  // namespace zrfx
