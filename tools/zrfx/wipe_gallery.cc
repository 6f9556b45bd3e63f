#include <string>

#include "zrfx/gallery.h"
#include "zrfx/operations.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

constexpr uint32_t kSpan = 100;
constexpr uint32_t kProgresses[] = {25, 50, 75};
// The wipe that the reverse row and the adapter rows show.
constexpr uint32_t kShowcaseCode = 3;

std::string Number(uint32_t code) {
  std::string digits = std::to_string(code & ~kWipeReverse);
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

// "wipe 3 r 25%" under a montage thumbnail.
std::string Label(const char* layout, uint32_t code, uint32_t progress) {
  return std::string(layout) + "wipe " + std::to_string(code & ~kWipeReverse) +
         ((code & kWipeReverse) ? " rev " : " ") + std::to_string(progress) + "%";
}

std::string Caption(const char* call, uint32_t code, uint32_t progress, const char* looks) {
  std::string text = std::string(call) + ", " + DescribeWipe(code) + ", progress " +
                     std::to_string(progress) + " of " + std::to_string(kSpan);
  return looks ? text + ": " + looks : text;
}

}  // namespace

void AddWipeGallery(ContactSheet& sheet, const Frame& a, const Frame& b) {
  sheet.BeginSection("Sources",
                     "The two built-in pictures. In every transition A is outgoing and B incoming, "
                     "unless the reverse flag (bit 31 of the wipe code) exchanges them.");
  sheet.Add("source-a.png", a, "A (srcA): colour bars above a grey ramp", "A: colour bars");
  sheet.Add("source-b.png", b, "B (srcB): zone plate with a circle", "B: zone plate");

  Frame srcA = a, srcB = b, out(a.width(), a.height());
  sheet.BeginSection(
      "Wipes on 8-bit RGBA",
      "ZrDraw_DisplayWipe with format 1 and a progress scale of 0 to 100: one wipe number per "
      "effect, the four slide directions and the dissolve. Wipes are hard-edged copies of A or "
      "B; only the dissolve mixes. The last row shows a wipe with the reverse flag.");
  for (const WipeFamily& family : WipeFamilies())
    for (uint32_t progress : kProgresses) {
      RunWipe(srcA, srcB, out, family.code, kSpan, progress);
      sheet.Add("wipe-" + Number(family.code) + "-" + std::to_string(progress) + ".png", out,
                Caption("ZrDraw_DisplayWipe", family.code, progress, family.looks),
                Label("", family.code, progress));
    }
  for (uint32_t progress : kProgresses) {
    const uint32_t code = kShowcaseCode | kWipeReverse;
    RunWipe(srcA, srcB, out, code, kSpan, progress);
    sheet.Add("wipe-" + Number(code) + "r-" + std::to_string(progress) + ".png", out,
              Caption("ZrDraw_DisplayWipe", code, progress, "A grows out of the corner over B"),
              Label("", code, progress));
  }

  sheet.BeginSection(
      "Wipes on 4:2:2 and v210",
      "The same wipe through ZrDraw_DisplayWipeYCbCr on packed 8-bit 4:2:2 (Cb Y Y Cr, the order it reads) "
      "and "
      "through ZrDraw_DisplayWipeV210 on 10-bit v210, each converted back to RGBA for viewing. "
      "The adapters expand to 4:4:4, wipe, and pack again; v210 loses its two low bits.");
  for (uint32_t progress : kProgresses)
    sheet.Add("ycbcr-" + Number(kShowcaseCode) + "-" + std::to_string(progress) + ".png",
              RunWipeYCbCr(a, b, kShowcaseCode, kSpan, progress),
              Caption("ZrDraw_DisplayWipeYCbCr", kShowcaseCode, progress, nullptr),
              Label("4:2:2 ", kShowcaseCode, progress));
  for (uint32_t progress : kProgresses)
    sheet.Add("v210-" + Number(kShowcaseCode) + "-" + std::to_string(progress) + ".png",
              RunWipeV210(a, b, kShowcaseCode, kSpan, progress),
              Caption("ZrDraw_DisplayWipeV210", kShowcaseCode, progress, nullptr),
              Label("v210 ", kShowcaseCode, progress));
}

}  // namespace zrfx
