#include <zrdraw.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

#include "zrfx/canvas_handle.h"
#include "zrfx/canvas_readback.h"
#include "zrfx/caption.h"
#include "zrfx/gallery.h"
#include "zrfx/pixel_formats.h"

namespace zrfx {
namespace {

constexpr const char* kCalls =
    "EraseCanvas, Line (a fan of 24), LineHoriz, LineVert, Dash, Polyline, Rectangle, FillRect, RoundRect, "
    "Circle, Ellipse, Bezier, Label, and Point for the title";

// Colours of the fan of lines, 8-bit RGBA with byte 0 the low byte.
constexpr uint32_t kFanColours[] = {0xFF3030FFu, 0xFF30A0FFu, 0xFF30FFFFu, 0xFF30FF30u,
                                    0xFFFFFF30u, 0xFFFF8030u, 0xFFFF30A0u, 0xFFFFFFFFu};

// Every figure stays inside the frame down to the gallery's smallest size:
// several canvases write wherever they are told.
void DrawScene(CanvasHandle& canvas, uint32_t width, uint32_t height, const char* name) {
  const int w = static_cast<int>(width), h = static_cast<int>(height);
  canvas.SetColour(0xFF402010u);  // dark blue: EraseCanvas fills with the foreground colour
  canvas->EraseCanvas(true);

  const int cx = w / 4, cy = h * 11 / 20, r = std::min(w / 5, h * 2 / 5);
  for (int i = 0; i < 24; ++i) {
    const double angle = 2 * std::numbers::pi * i / 24;
    canvas.SetColour(kFanColours[i % std::size(kFanColours)]);
    canvas->Line(cx, cy, cx + static_cast<int>(std::lround(r * std::cos(angle))),
                 cy + static_cast<int>(std::lround(r * std::sin(angle))));
  }

  const int left = w / 2, right = w - w / 16, top = h / 5, bottom = h - h / 8;
  canvas.SetColour(0xFF30C0F0u);
  const RECT box = {left + 8, top + 8, left + (right - left) / 3, top + (bottom - top) / 3};
  canvas->FillRect(&box);
  canvas.SetColour(0xFFFFFFFFu);
  canvas->Rectangle(left, top, right, bottom);
  canvas->RoundRect(left + (right - left) / 2, top + 8, right - 8, top + (bottom - top) / 2, 16, 16);
  canvas.SetColour(0xFF40E040u);
  for (int x = left + 8; x < right - 8; x += 12) canvas->LineVert(x, bottom - 40, bottom - 8);
  for (int y = bottom - 40; y <= bottom - 8; y += 8) canvas->LineHoriz(left + 8, y, right - 8);
  canvas.SetColour(0xFF00A0FFu);
  canvas->Dash(left + 8, top + (bottom - top) / 2, right - 8, std::max(top + 2, bottom - 48), 6, 4);
  canvas.SetColour(0xFFFF60FFu);
  std::vector<_POINT> zigzag;
  for (int x = left; x <= right; x += (right - left) / 8)
    zigzag.push_back({x, (zigzag.size() % 2) ? h - 6 : h - 18});
  canvas->Polyline(zigzag.data(), static_cast<unsigned int>(zigzag.size()));
  canvas.SetColour(0xFF80FFFFu);
  canvas->Circle(cx, cy, r / 2);
  canvas->Ellipse(cx, cy, r, r / 3);
  canvas->Bezier(left, bottom, left + w / 8, top, right - w / 8, bottom, right, top);
  canvas->Label(std::min(left + 12, w - 41), top + (bottom - top) / 2 + 6, "Label", false, false);

  canvas.SetColour(0xFFFFFFFFu);
  DrawCanvasText(canvas.get(), width, height, 6, 6, name, 2);
}

}  // namespace

void AddCanvasGallery(ContactSheet& sheet, uint32_t width, uint32_t height) {
  sheet.BeginSection("Canvas drawing",
                     std::string("A canvas from qtGetDraw over a frame of each pixel type, drawn "
                                 "with ") +
                         kCalls + "; read back with GetPixelRGBA for viewing, shown opaque.");
  std::string missing;
  std::vector<uint8_t> buffer(CanvasBufferBytes(width, height));
  for (const PixelFormat& format : PixelFormats()) {
    const std::string name = format.enumerator;
    if (!CanvasHandle::Supports(format.type)) {
      missing.append(missing.empty() ? "" : ", ").append(name);
      continue;
    }
    std::fill(buffer.begin(), buffer.end(), 0);
    CanvasHandle handle(format.type, width, height, 0, buffer.data());
    DrawScene(handle, width, height, name.c_str());
    sheet.Add("canvas-" + name + ".png", ReadBack(handle, width, height),
              "qtGetDraw(" + name + " = " + std::to_string(format.type) + ", pitch " +
                  std::to_string(handle->mPitch) + ")" +
                  (format.rawName ? std::string(", ") + format.rawName : ""),
              name);
  }
  if (!missing.empty()) sheet.AppendNote(" The library has no canvas class yet for " + missing + ".");
}

}  // namespace zrfx
