#include <zrdraw.h>

#include <cstdio>
#include <string>

#include "zrfx/gallery.h"
#include "zrfx/mux_names.h"
#include "zrfx/operations.h"

namespace zrfx {
namespace {

enum class Sources { kAB, kAChanged };

// One picture of the mux section. Splits are placed at the middle (a
// quarter in for CROP_PAIR), as the mux command does by default.
struct MuxShot {
  uint32_t flags;
  const char* looks;
  Sources sources = Sources::kAB;
  uint32_t position = 32768;
  uint32_t level = 0;
  uint32_t wipeCode = 0;
  uint32_t gridMode = 0;
  uint32_t gridStepX = 0;
  uint32_t gridStepY = 0;
  const char* label = nullptr;  // tells apart shots of one mode in a montage
};

constexpr MuxShot kModeShots[] = {
    {MUX_DEFAULT, "a copy of A"},
    {MUX_COPY_B, "a copy of B"},
    {MUX_MERGE_BYTE2_BYTE0, "blue of A, red of B, green zero"},
    {MUX_MERGE_HIGH_LOW, "blue and alpha of A, red and green of B"},
    {MUX_MERGE_BYTE0, "A with the red of B"},
    {MUX_MERGE_ODD_EVEN, "green and alpha of A, red and blue of B"},
    {MUX_INTERLEAVE, "even rows of A, odd rows of B"},
    {MUX_INTERLEAVE | MUXF_ALT_AXIS, "even columns of A, odd columns of B"},
    {MUX_AVERAGE, "half of each"},
    {MUX_DIFFERENCE, "A against A': mid-grey where equal, brighter with the gap, white where A is darker",
     Sources::kAChanged, 32768, 8},
    {MUX_MATCH_GATE, "A against A': B where they agree within 2, black elsewhere", Sources::kAChanged, 32768,
     2},
    {MUX_MATCH_GATE | MUXF_SWAP, "the same with roles exchanged: the fill turns white", Sources::kAChanged,
     32768, 2},
    {MUX_CROSSFADE, "a quarter A, three quarters B", Sources::kAB, 16384, 0, 0, 0, 0, 0, "25%"},
    {MUX_CROSSFADE, "three quarters A", Sources::kAB, 49152, 0, 0, 0, 0, 0, "75%"},
    {MUX_WIPE, "a wipe through the transition front door", Sources::kAB, 32768, 0, 3, 0, 0, 0, "code 3"},
    {MUX_WIPE, "a dissolve through the transition front door", Sources::kAB, 32768, 0, 0, 0, 0, 0, "code 0"},
    {MUX_OVER_UNDER, "the even rows of A above those of B"},
    {MUX_SIDE_BY_SIDE, "A and B squeezed to half width"},
    {MUX_SPLIT, "A left of the line, B right of it"},
    {MUX_SPLIT | MUXF_DIVIDER, "with a grey divider on the line"},
    {MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, "A above the line, B below, with a divider"},
    {MUX_SPLIT | MUXF_SWAP, "roles exchanged: B left, A right"},
    {MUX_MIRROR, "left half of A, then B reflected away from the centre"},
    {MUX_MIRROR | MUXF_ALT_AXIS, "top half of A, then B reflected downwards"},
    {MUX_MIRROR2, "the second value of MIRROR: the same picture"},
    {MUX_CHECKER, "a one-pixel checkerboard of A and B"},
    {MUX_BLOCK_CHECKER, "a checkerboard of 32-pixel blocks", Sources::kAB, 32 << 8},
    {MUX_TWO_UP, "both at half size, centred on black"},
    {MUX_CROP_PAIR, "the same central columns of A and B side by side"},
    {MUX_CROP_PAIR | MUXF_ALT_AXIS, "the same central rows of A and B stacked"},
    {MUX_CHANNEL_VIEW, "byte 0 (red) of A as grey", Sources::kAB, 32768, 0x000000FF, 0, 0, 0, 0, "red"},
    {MUX_CHANNEL_VIEW, "the mean of red, green and blue of A", Sources::kAB, 32768, 0, 0, 0, 0, 0, "mean"},
    {MUX_SPLIT | MUXF_FLIP_H_A, "A mirrored before the split"},
    {MUX_SPLIT | MUXF_FLIP_V_B, "B upside down before the split"},
    {MUX_SPLIT | MUXF_FLIP_V_A | MUXF_FLIP_H_B, "A upside down and B mirrored"},
};

constexpr MuxShot kGridShots[] = {
    {MUX_DEFAULT, "grid mode 1: 25% cuts the picture into 4 parts each way", Sources::kAB, 32768, 0, 0, 1, 25,
     0, "grid 25%"},
    {MUX_DEFAULT | MUXF_GRID, "the GRID flag with grid mode 0: 30% gives 3 parts", Sources::kAB, 32768, 0, 0,
     0, 30, 0, "30%"},
    {MUX_SPLIT, "grid mode 2: lines every 64 columns and 48 rows", Sources::kAB, 32768, 0, 0, 2, 64, 48,
     "grid 64x48"},
};

// "mux-07-split-divider.png" for shot 7 labelled "SPLIT DIVIDER".
std::string FileName(size_t index, const std::string& label) {
  char name[24];
  std::snprintf(name, sizeof name, "mux-%02zu-", index);
  std::string file = name;
  for (char c : label) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    const bool keep = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (keep)
      file += c;
    else if (file.back() != '-')
      file += '-';
  }
  if (file.back() == '-') file.pop_back();
  return file + ".png";
}

void Shoot(ContactSheet& sheet, size_t index, const MuxShot& shot, const Frame& a, const Frame& b,
           const Frame& changed) {
  MuxSettings s;
  s.flags = shot.flags;
  s.wipeCode = shot.wipeCode;
  s.position = shot.position;
  s.level = shot.level;
  const uint32_t divisor = (shot.flags & MUX_MODE_MASK) == MUX_CROP_PAIR ? 4 : 2;
  s.splitX = a.width() / divisor;
  s.splitY = a.height() / divisor;
  s.gridMode = shot.gridMode;
  s.gridStepX = shot.gridStepX;
  s.gridStepY = shot.gridStepY;
  // Flip flags flip the sources in place: every shot gets fresh copies.
  Frame srcA = a, srcB = shot.sources == Sources::kAChanged ? changed : b, out(a.width(), a.height());
  RunMux(srcA, srcB, out, s);
  const char* pair = shot.sources == Sources::kAChanged ? "A, A'" : "A, B";
  std::string label = MuxModeName(shot.flags & MUX_MODE_MASK);
  if (const std::string names = MuxFlagNames(shot.flags); !names.empty()) label.append(" ").append(names);
  if (shot.label) label.append(" ").append(shot.label);
  // Spaces between the flags let the montage wrap the label there.
  for (char& c : label) c = c == '+' ? ' ' : c;
  sheet.Add(FileName(index, label), out,
            std::string("ZrDraw_DisplayMuxRGBA(") + pair + ") " + DescribeMux(s) + ": " + shot.looks, label);
}

}  // namespace

void AddMuxGallery(ContactSheet& sheet, const Frame& a, const Frame& b, const Frame& changed) {
  sheet.BeginSection(
      "Mux modes",
      "ZrDraw_DisplayMuxRGBA on A and B, or on A and A' (A with a brightened bar and a darker box) "
      "for the modes that compare. Alpha is not shown: some modes clear it.");
  size_t index = 1;
  sheet.Add("source-a-changed.png", changed, "A': A with its yellow bar 6 brighter and a box 20 darker",
            "A'");
  for (const MuxShot& shot : kModeShots) Shoot(sheet, index++, shot, a, b, changed);
  sheet.BeginSection(
      "Mux grid overlay",
      "The grid runs after any mode when gridMode is not 0 or the GRID flag is set. Its lines are "
      "0xBFBFBFBF, alpha included; the first line of each direction is at 0.");
  for (const MuxShot& shot : kGridShots) Shoot(sheet, index++, shot, a, b, changed);
}

}  // namespace zrfx
