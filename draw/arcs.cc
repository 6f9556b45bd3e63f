// Arc, ArcTo and Pie: arcs of the ellipse inscribed in a box, between the
// angles of two given points, and the process-wide ends of the latest arc.
#include <cmath>
#include <cstdint>

#include "draw/arc_steps.h"
#include "draw/lines_fixed.h"
#include "zrdrawobject.h"

using zr::arcs::kDegreesPerRadian;

int xStartArc = 0;
int yStartArc = 0;
int xEndArc = 0;
int yEndArc = 0;

namespace {

// The angle in degrees of (px, py) seen from the centre; false for the centre
// itself. Differences are rounded to float and divided in float, and the
// quotient widened for a double atan.
bool AngleOf(int px, int py, double cx, double cy, double& angle) {
  const double x = px, y = py;
  const float dy = static_cast<float>(y - cy);
  constexpr double k = kDegreesPerRadian;
  if (y > cy) {
    // A point straight below the centre gives 90, which is drawn above it,
    // and one straight above gives 270: hosts rely on this; keep it.
    if (x > cx)
      angle = std::atan(static_cast<double>(-dy / static_cast<float>(x - cx))) * k;
    else if (x < cx)
      angle = std::atan(static_cast<double>(-dy / static_cast<float>(cx - x))) * -k + 180.0;
    else
      angle = 90.0;
  } else if (y < cy) {
    if (x > cx)
      angle = std::atan(static_cast<double>(dy / static_cast<float>(x - cx))) * -k + 360.0;
    else if (x < cx)
      angle = std::atan(static_cast<double>(dy / static_cast<float>(cx - x))) * k + 180.0;
    else
      angle = 270.0;
  } else if (x != cx) {
    angle = x > cx ? 0.0 : 180.0;
  } else {
    return false;
  }
  return true;
}

}  // namespace

int ZrDraw::Arc(int left, int top, int right, int bottom, int xStart, int yStart, int xEnd, int yEnd) {
  if (right <= left || bottom <= top) return -1;
  // The sizes are 32-bit differences; the centres may end in .5.
  const double rx = zr::lines::Sub(right, left) * 0.5, cx = right - rx;
  const double ry = zr::lines::Sub(bottom, top) * 0.5, cy = bottom - ry;
  double start, end;
  if (!AngleOf(xStart, yStart, cx, cy, start) || !AngleOf(xEnd, yEnd, cx, cy, end)) return -1;
  const int32_t a0 = zr::TruncToI32(start);
  const int32_t a1 = zr::arcs::SweepEnd(a0, zr::TruncToI32(end));
  // Float radii and products on a double centre.
  const float frx = static_cast<float>(rx), fry = static_cast<float>(ry);
  const auto point_at = [&](int32_t degrees) {
    const zr::arcs::Direction d(degrees);
    return _POINT{zr::TruncToI32(cx + static_cast<double>(frx * d.cos)),
                  zr::TruncToI32(cy + static_cast<double>(fry * -d.sin))};
  };
  const _POINT first = point_at(a0);
  xStartArc = first.x;
  yStartArc = first.y;
  const _POINT last = zr::arcs::Sweep(*this, a0, a1, first, point_at);
  xEndArc = last.x;
  yEndArc = last.y;
  return 0;
}

// The fifth and sixth arguments reach Arc exchanged, and the position moves
// even when Arc refuses.
int ZrDraw::ArcTo(int left, int top, int right, int bottom, int yStart, int xStart, int xEnd, int yEnd) {
  Arc(left, top, right, bottom, xStart, yStart, xEnd, yEnd);
  mCurrentX = xEnd;
  mCurrentY = yEnd;
  return 0;
}

// The spokes go out from whatever the four variables hold, stale after a
// refused Arc, to the centre in truncating integers.
int ZrDraw::Pie(int left, int top, int right, int bottom, int yStart, int xStart, int xEnd, int yEnd) {
  Arc(left, top, right, bottom, xStart, yStart, xEnd, yEnd);
  const int cx = zr::lines::Add(left, right) / 2;
  const int cy = zr::lines::Add(top, bottom) / 2;
  Line(xStartArc, yStartArc, cx, cy);
  Line(xEndArc, yEndArc, cx, cy);
  return 0;
}
