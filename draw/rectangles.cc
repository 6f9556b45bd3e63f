// FillRect, Rectangle and RoundRect, composed through the virtual table.
#include <cstdint>

#include "draw/fill_road.h"
#include "platform/zrutil.h"
#include "zrdrawobject.h"

namespace {

// Coordinate sums wrap in 32 bits, as everywhere in the drawing layer.
int Add(int a, int b) { return static_cast<int>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b)); }
int Sub(int a, int b) { return static_cast<int>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b)); }

}  // namespace

int ZrDraw::FillRect(const RECT* rect) {
  const uint32_t width = static_cast<uint32_t>(rect->right) - static_cast<uint32_t>(rect->left);
  const uint32_t height = static_cast<uint32_t>(rect->bottom) - static_cast<uint32_t>(rect->top);
  if (zr::TakesFillRoad(mPixelType) && width == mWidth && height == mHeight) {
    // Only the size is compared: a canvas-sized rectangle fills the canvas
    // from its first byte wherever its corner lies, ignoring the pitch.
    SetMemoryFast(mpCanvas, mForeColor, width * height * 4);
    return 0;
  }
  // The bottom edge is exclusive; the right edge is whatever LineHoriz makes
  // of it on this type. The rectangle is read afresh for each row.
  for (int y = rect->top; y < rect->bottom; ++y) LineHoriz(rect->left, y, rect->right);
  return 0;
}

// Both far edges are inclusive and every corner is visited twice.
int ZrDraw::Rectangle(int left, int top, int right, int bottom) {
  Line(left, top, right, top);
  Line(left, top, left, bottom);
  Line(left, bottom, right, bottom);
  Line(right, top, right, bottom);
  return 0;
}

int ZrDraw::RoundRect(int left, int top, int right, int bottom, int width, int height) {
  if (Sub(right, left) < width || Sub(bottom, top) < height) return -1;
  const int rx = width / 2;
  const int ry = height / 2;
  Line(Add(left, rx), top, Sub(right, rx), top);
  Line(left, Add(top, ry), left, Sub(bottom, ry));
  Line(Add(left, rx), bottom, Sub(right, rx), bottom);
  Line(right, Add(top, ry), right, Sub(bottom, ry));
  // The position is left at the end of the last corner, near (right - rx, top).
  AngleArcTo(Add(left, rx), Add(top, ry), rx, ry, 90.0f, 180.0f);
  AngleArcTo(Add(left, rx), Sub(bottom, ry), rx, ry, 180.0f, 270.0f);
  AngleArcTo(Sub(right, rx), Sub(bottom, ry), rx, ry, 270.0f, 360.0f);
  AngleArcTo(Sub(right, rx), Add(top, ry), rx, ry, 0.0f, 90.0f);
  return 0;
}
