// Polyline and PolylineTo: chains of the virtual Line.
#include "zrdrawobject.h"

int ZrDraw::Polyline(const _POINT* points, unsigned int count) {
  if (count < 2) return -1;
  // The count is read as signed for the walk: 0x80000000 or more draws
  // nothing and still succeeds.
  const int n = static_cast<int>(count);
  for (int i = 0; i + 1 < n; ++i) Line(points[i].x, points[i].y, points[i + 1].x, points[i + 1].y);
  return 0;
}

int ZrDraw::PolylineTo(const _POINT* points, unsigned int count) {
  const int result = Polyline(points, count);
  if (result != 0) return result;
  // The element after the last point, not the last point: hosts that use the
  // position pass count + 1 elements, and rely on this.
  mCurrentX = points[count].x;
  mCurrentY = points[count].y;
  return 0;
}
