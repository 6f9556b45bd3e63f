// AngleArc, AngleArcTo, Circle and Ellipse: arcs by centre, radii and float
// angles in degrees.
#include <cstdint>

#include "draw/arc_steps.h"
#include "zrdrawobject.h"

namespace {

// The point of a whole-degree angle, all in float: centre and radii rounded
// to float first, each product rounded before its sum.
struct AngleArcPoints {
  _POINT operator()(int32_t degrees) const {
    const zr::arcs::Direction d(degrees);
    const float px = d.cos * rx, py = d.sin * ry;
    const float x = px + cx, y = cy - py;
    return {zr::TruncToI32(x), zr::TruncToI32(y)};
  }
  float cx, cy, rx, ry;
};

AngleArcPoints PointsOf(int x, int y, int radiusX, int radiusY) {
  return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(radiusX),
          static_cast<float>(radiusY)};
}

}  // namespace

// The radius is read as a signed number.
int ZrDraw::AngleArc(int x, int y, unsigned int radius, float start, float end) {
  const int32_t a0 = zr::arcs::WholeDegrees(start);
  const int32_t a1 = zr::arcs::SweepEnd(a0, zr::arcs::WholeDegrees(end));
  if (a0 >= a1) return 0;
  const AngleArcPoints points = PointsOf(x, y, static_cast<int>(radius), static_cast<int>(radius));
  zr::arcs::Sweep(*this, a0, a1, points(a0), points);
  return 0;
}

// The position ends at the last point, the point of the start angle when
// nothing is swept.
int ZrDraw::AngleArcTo(int x, int y, int radiusX, int radiusY, float start, float end) {
  const AngleArcPoints points = PointsOf(x, y, radiusX, radiusY);
  const int32_t a0 = zr::arcs::WholeDegrees(start);
  const _POINT first = points(a0);
  const _POINT last =
      zr::arcs::Sweep(*this, a0, zr::arcs::SweepEnd(a0, zr::arcs::WholeDegrees(end)), first, points);
  mCurrentX = last.x;
  mCurrentY = last.y;
  return 0;
}

// Circle leaves the position alone and Ellipse moves it, near (x + radiusX, y):
// hosts see the difference; keep it.
int ZrDraw::Circle(int x, int y, int radius) {
  AngleArc(x, y, static_cast<unsigned int>(radius), 0.0f, 360.0f);
  return 0;
}

int ZrDraw::Ellipse(int x, int y, int radiusX, int radiusY) {
  AngleArcTo(x, y, radiusX, radiusY, 0.0f, 360.0f);
  return 0;
}
