#include "zrfx/overlay.h"

#include <cctype>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"

namespace zrfx {
namespace {

uint32_t ParseColour(const std::string& text) {
  bool hex = text.size() == 6;
  for (const char c : text) hex = hex && std::isxdigit(static_cast<unsigned char>(c));
  if (!hex) throw UsageError("colour '" + text + "' is not RRGGBB in hexadecimal, e.g. FFC000");
  const uint32_t rgb = ParseU32("0x" + text, "colour");
  return (rgb >> 16 & 0xFF) | (rgb & 0xFF00) | (rgb & 0xFF) << 16 | 0xFF000000u;
}

// "L,T,R,B" inside a frame of width by height.
RECT ParseRect(const std::string& option, const std::string& text, uint32_t width, uint32_t height) {
  uint32_t v[4];
  size_t start = 0;
  for (int k = 0; k < 4; ++k) {
    const size_t comma = k < 3 ? text.find(',', start) : text.size();
    if (comma == std::string::npos) throw UsageError("--" + option + " '" + text + "' is not L,T,R,B");
    v[k] = ParseU32(text.substr(start, comma - start), "--" + option + " edge");
    start = comma + 1;
  }
  if (v[0] > v[2] || v[2] >= width || v[1] > v[3] || v[3] >= height)
    throw UsageError("--" + option + " " + text + " is not inside the " + std::to_string(width) + "x" +
                     std::to_string(height) + " frame (L <= R < " + std::to_string(width) + ", T <= B < " +
                     std::to_string(height) + ")");
  return {static_cast<int32_t>(v[0]), static_cast<int32_t>(v[1]), static_cast<int32_t>(v[2]),
          static_cast<int32_t>(v[3])};
}

}  // namespace

Overlay ParseOverlay(const Args& args, uint32_t width, uint32_t height) {
  Overlay o;
  if (const auto colour = args.Value("colour")) o.rgba = ParseColour(*colour);
  if (const auto grid = args.Value("grid")) {
    o.gridStep = ParseU32(*grid, "grid step");
    if (o.gridStep == 0) throw UsageError("the grid step must be at least 1 pixel");
  }
  if (const auto fill = args.Value("fill")) o.fill = ParseRect("fill", *fill, width, height);
  if (const auto rect = args.Value("rect")) o.outline = ParseRect("rect", *rect, width, height);
  o.burnIn = ParseBurnIn(args, width, height);
  return o;
}

void DrawOverlay(CanvasHandle& canvas, unsigned int type, const Overlay& overlay, uint32_t width,
                 uint32_t height, uint64_t frame) {
  const int right = static_cast<int>(width) - 1, bottom = static_cast<int>(height) - 1;
  if (overlay.gridStep) {
    for (uint64_t x = 0; x < width; x += overlay.gridStep) canvas->LineVert(static_cast<int>(x), 0, bottom);
    for (uint64_t y = 0; y < height; y += overlay.gridStep)
      canvas->Line(0, static_cast<int>(y), right, static_cast<int>(y));
  }
  if (overlay.fill) {
    // FillRect leaves out the bottom row, and the right column too on the
    // 32-bit RGB types, whose spans are a memory fill; elsewhere each span
    // goes through PutPixel and ends at `right` included.
    RECT r = *overlay.fill;
    ++r.bottom;
    if (type >= pixelRGBA32 && type <= pixelABGR32) ++r.right;
    canvas->FillRect(&r);
  }
  if (const auto& r = overlay.outline) canvas->Rectangle(r->left, r->top, r->right, r->bottom);
  DrawBurnIn(canvas.get(), overlay.burnIn, frame, width, height);
}

}  // namespace zrfx
