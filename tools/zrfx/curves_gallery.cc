#include <zrdraw.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "zrfx/canvas_handle.h"
#include "zrfx/canvas_readback.h"
#include "zrfx/frame_label.h"
#include "zrfx/gallery.h"
#include "zrfx/pixel_formats.h"

namespace zrfx {
namespace {

constexpr const char* kCalls =
    "Circle, Ellipse, Arc, Pie, Bezier, PolyBezier and RoundRect on the left; Label at magnifications 1, 2 "
    "and 3 (LabelFont) and DrawText centred in a rectangle on the right; Label for the title";

// One layout of each family: 8-bit RGB with its memory-fill spans and
// without, packed 4:2:2, v210, 16-bit RGB and Bayer.
constexpr unsigned int kTypes[] = {pixelRGBA32, pixelRGB24, pixelUYVY, pixelV210, pixelRGB48, pixelBayerRGGB};

// The curves, inside the left half of the frame at any gallery size: no
// canvas clips what it is told to draw.
void DrawCurves(CanvasHandle& canvas, int w, int h) {
  const int cx = w / 4, cy = h * 11 / 20, r = std::min(w / 5, h * 2 / 5);
  canvas.SetColour(0xFF30C0FFu);
  canvas->Circle(cx, cy, r);
  canvas->Circle(cx, cy, r / 4);
  canvas.SetColour(0xFFFFC030u);
  canvas->Ellipse(cx, cy, r, r / 3);
  canvas->Ellipse(cx, cy, r / 3, r);
  // Three quarters of a smaller ellipse, and a slice of one: the points only
  // give the angles.
  canvas.SetColour(0xFF40FF40u);
  canvas->Arc(cx - r * 3 / 4, cy - r / 2, cx + r * 3 / 4, cy + r / 2, cx + r, cy - 1, cx + 1, cy + r);
  canvas.SetColour(0xFF4040FFu);
  canvas->Pie(cx - r / 2, cy - r / 2, cx + r / 2, cy + r / 2, cy - r, cx - r, cx - r, cy - 1);
  canvas.SetColour(0xFFFF60FFu);
  canvas->Bezier(2, h - 3, cx, cy - r, cx, h - 3, w / 2 - 2, cy - r);
  const _POINT wave[] = {{2, 3 + h / 10},         {w / 8, -h / 20 + 3 + h / 5}, {w / 4, 3},
                         {w * 3 / 8, 3 + h / 10}, {w / 2 - w / 16, h / 5},      {w / 2 - w / 32, 3},
                         {w / 2 - 2, 3 + h / 10}};
  canvas.SetColour(0xFF30FFFFu);
  canvas->PolyBezier(wave, 7);
}

// The text, in the right half: Label at three sizes under one another, then
// DrawText in a rectangle; whatever does not fit the frame is left out.
void DrawTexts(CanvasHandle& canvas, uint32_t width, uint32_t height) {
  const int w = static_cast<int>(width), h = static_cast<int>(height), left = w / 2 + 6;
  canvas.SetColour(0xFFA0A0A0u);
  canvas->RoundRect(w / 2, 2, w - 3, h - 3, 16, 16);
  int y = 8;
  const char* texts[] = {"Scale 1", "Scale 2", "Ag 3"};
  for (uint32_t scale = 1; scale <= 3; ++scale) {
    canvas.SetColour(scale == 2 ? 0xFF30FFFFu : 0xFFFFFFFFu);
    LabelInFrame(canvas.get(), left, y, texts[scale - 1], scale, width, height);
    y += static_cast<int>(LabelLineHeight(scale)) + 4;
  }
  // DrawText takes its magnification from the height of the rectangle and
  // stands the text on its bottom row; nothing confines it to the rectangle.
  // Eight characters at magnification 2 where they fit, else at 1.
  const int wanted = std::clamp((w - 8 - left) / 64, 1, 2);
  const RECT box = {left, y, w - 8, std::min(y + 10 * wanted + 9, h - 6)};
  const int scale = std::max(1, (box.bottom - box.top) / 10);
  const std::string text =
      std::string("DrawText").substr(0, std::max(0, (box.right - box.left) / (8 * scale)));
  if (text.empty() || box.bottom <= box.top || box.bottom - 10 * scale < 0) return;
  canvas.SetColour(0xFF808080u);
  canvas->Rectangle(box.left, box.top, box.right, box.bottom);
  canvas.SetColour(0xFF30A0FFu);
  RECT place = box;
  canvas->DrawText(text.c_str(), static_cast<int>(text.size()), &place, ZR_TEXT_CENTER);
}

}  // namespace

void AddCurvesGallery(ContactSheet& sheet, uint32_t width, uint32_t height) {
  sheet.BeginSection("Curves and text",
                     std::string("A canvas from qtGetDraw over a frame of one pixel type of "
                                 "each family, drawn with ") +
                         kCalls + "; read back with GetPixelRGBA, shown opaque.");
  std::vector<uint8_t> buffer(CanvasBufferBytes(width, height));
  for (const PixelFormat& format : PixelFormats()) {
    if (std::find(std::begin(kTypes), std::end(kTypes), format.type) == std::end(kTypes) ||
        !CanvasHandle::Supports(format.type))
      continue;
    std::fill(buffer.begin(), buffer.end(), 0);
    CanvasHandle canvas(format.type, width, height, 0, buffer.data());
    canvas.SetColour(0xFF301808u);  // EraseCanvas fills with the foreground colour
    canvas->EraseCanvas(true);
    DrawCurves(canvas, static_cast<int>(width), static_cast<int>(height));
    DrawTexts(canvas, width, height);
    canvas.SetColour(0xFFFFFFFFu);
    LabelInFrame(canvas.get(), 4, 4, format.enumerator, 1, width / 2, height);
    const std::string name = format.enumerator;
    sheet.Add("curves-" + name + ".png", ReadBack(canvas, width, height),
              "qtGetDraw(" + name + " = " + std::to_string(format.type) + ")" +
                  (format.rawName ? std::string(", ") + format.rawName : ""),
              name);
  }
}

}  // namespace zrfx
