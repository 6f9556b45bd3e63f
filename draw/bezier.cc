// Bezier, PolyBezier and PolyBezierTo: cubic curves split at the middle
// until both control points lie within a pixel of the chord.
#include <cstdint>

#include "canvas/convert.h"
#include "draw/lines_fixed.h"
#include "zrdrawobject.h"

using zr::TruncToI32;
using zr::lines::Add;
using zr::lines::Sub;

namespace {

int32_t Mul(int32_t a, int32_t b) {
  return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

// One coordinate of the split: pairwise sums in 32 bits, their sums in double.
struct Split {
  Split(int32_t p0, int32_t p1, int32_t p2, int32_t p3)
      : s01(Add(p0, p1)),
        s23(Add(p2, p3)),
        t012(static_cast<double>(s01) + Add(p1, p2)),
        t123(static_cast<double>(Add(p1, p2)) + s23) {}
  int32_t Mid() const { return TruncToI32((t012 + t123) * 0.125); }
  int32_t s01, s23;
  double t012, t123;
};

// The split of a curve inside the 32-bit range halves it at every level,
// so it is flat well within 40 levels. Past 2^30 the pairwise sums wrap and
// a sub-curve can come back unchanged, which would recurse until the stack
// ran out; and past about 2^16 the chord's C wraps, so the flatness test
// fails until the pieces are a few pixels long: a curve 2^28 pixels across
// would take minutes. A curve whose split reaches 256 levels, or 2^20
// sub-curves (curves within +-2^20 need a few thousand at most), is
// abandoned, and what it drew until then stays.
constexpr int kMaxSplitDepth = 256;
constexpr uint32_t kMaxSubCurves = 1u << 20;
thread_local int splitDepth = 0;
thread_local uint32_t subCurvesLeft = 0;
thread_local bool abandoned = false;

class SplitLevel {
 public:
  SplitLevel() { ++splitDepth; }
  ~SplitLevel() { --splitDepth; }
  SplitLevel(const SplitLevel&) = delete;
  SplitLevel& operator=(const SplitLevel&) = delete;
};

// Each curve starts at the last point of the one before. Four points make
// no accepted count: hosts rely on the refusal; keep it.
bool CountFits(unsigned int count) { return count >= 5 && count % 3 == 1; }

void DrawCurves(ZrDraw& draw, const _POINT* p, unsigned int count) {
  for (unsigned int i = 0; i < count - 1; i += 3)
    draw.Bezier(p[i].x, p[i].y, p[i + 1].x, p[i + 1].y, p[i + 2].x, p[i + 2].y, p[i + 3].x, p[i + 3].y);
}

}  // namespace

int ZrDraw::Bezier(int x0, int y0, int x1, int y1, int x2, int y2, int x3, int y3) {
  // Also how a sub-curve shrunk to a point ends the recursion.
  if (x0 == x3 && y0 == y3) return -1;
  if (splitDepth == 0) {
    abandoned = false;
    subCurvesLeft = kMaxSubCurves;
  }
  if (abandoned || splitDepth >= kMaxSplitDepth || subCurvesLeft-- == 0) {
    abandoned = true;
    return 0;
  }
  // The chord as A x + B y + C = 0, in 32 bits and then in double.
  const int32_t a32 = Sub(y3, y0);
  const double a = a32, b = Sub(x0, x3), c = Sub(Mul(Sub(x3, x0), y0), Mul(a32, x0));
  const double n = a * a + b * b;
  const double d1 = x1 * a + y1 * b + c;
  const double d2 = x2 * a + y2 * b + c;
  if (n > d1 * d1 && n > d2 * d2) {
    // The position is the start of the piece, so a whole curve leaves it at
    // the start of its last flat piece, not at its end.
    mCurrentX = x0;
    mCurrentY = y0;
    Line(x0, y0, x3, y3);
    return 0;
  }
  const Split x(x0, x1, x2, x3), y(y0, y1, y2, y3);
  const int32_t mx = x.Mid(), my = y.Mid();
  const SplitLevel level;
  Bezier(x0, y0, TruncToI32(x.s01 * 0.5), TruncToI32(y.s01 * 0.5), TruncToI32(x.t012 * 0.25),
         TruncToI32(y.t012 * 0.25), mx, my);
  Bezier(mx, my, TruncToI32(x.t123 * 0.25), TruncToI32(y.t123 * 0.25), TruncToI32(x.s23 * 0.5),
         TruncToI32(y.s23 * 0.5), x3, y3);
  return 0;
}

int ZrDraw::PolyBezier(const _POINT* points, unsigned int count) {
  if (!CountFits(count)) return -1;
  DrawCurves(*this, points, count);
  return 0;
}

// The position comes from points[count + 2], past the last point: hosts that
// use it pass the array to match, and rely on this.
int ZrDraw::PolyBezierTo(const _POINT* points, unsigned int count) {
  if (!CountFits(count)) return -1;
  DrawCurves(*this, points, count);
  mCurrentX = points[count + 2].x;
  mCurrentY = points[count + 2].y;
  return 0;
}
