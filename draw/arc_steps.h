// The whole-degree walk shared by the arc operations: angles truncated to
// whole degrees, the end raised past the start by whole turns, one chord per
// degree through the virtual Line.
#ifndef ZR_DRAW_ARC_STEPS_H
#define ZR_DRAW_ARC_STEPS_H

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "canvas/convert.h"
#include "zrdrawobject.h"

namespace zr::arcs {

// Degrees and radians convert with a pi of 3.14: every arc's look depends on
// it, and hosts rely on that look; keep it.
inline constexpr double kDegreesPerRadian = 57.324840764331206;
inline constexpr double kRadiansPerDegree = 0.017444444444444446;

// A float angle truncated toward zero; NaN and angles outside the 32-bit
// range give INT32_MIN, as the SSE conversion does.
inline int32_t WholeDegrees(float angle) { return TruncToI32(angle); }

// An end below the start rises by 360 × (1 + (a0 - a1 - 1) / 360), divided
// unsigned and summed in 32 bits: the first value at or above a0 that is
// whole turns from a1, or a wrapped one near the top of the range.
inline int32_t SweepEnd(int32_t a0, int32_t a1) {
  if (a1 >= a0) return a1;
  const uint32_t turns = 1 + (static_cast<uint32_t>(a0) - static_cast<uint32_t>(a1) - 1) / 360;
  return static_cast<int32_t>(static_cast<uint32_t>(a1) + 360u * turns);
}

// Cosine and sine of a whole-degree angle, in double and then rounded to
// float. The angle is reduced by a truncating remainder first, so a full
// turn closes. The 719 remainders are computed once, by the same functions.
class Direction {
 public:
  explicit Direction(int32_t degrees) {
    static const Table table;
    cos = table.cos[degrees % 360 + 359];
    sin = table.sin[degrees % 360 + 359];
  }
  float cos, sin;

 private:
  struct Table {
    Table() {
      for (int i = 0; i < 719; ++i) {
        const double r = (i - 359) * kRadiansPerDegree;
        cos[i] = static_cast<float>(std::cos(r));
        sin[i] = static_cast<float>(std::sin(r));
      }
    }
    float cos[719], sin[719];
  };
};

// Whole turns that a walk of `steps` chords on one side of angle 0 may skip.
// There every chord repeats each turn, since a point depends only on the
// truncating remainder of its angle. A NaN or huge angle asks for billions of
// degrees, minutes of drawing: the walk skips whole turns, a multiple of 256
// of them, and keeps at least 256 after the skip. Each skipped chord is drawn
// again later, so plain and masked stores leave the same bytes, and the
// additive road, which wraps every 256 passes, the same sums; only a blended
// colour sees fewer passes of the same chord.
inline int64_t SkippedTurns(int64_t steps) {
  constexpr int64_t kKept = 256;
  const int64_t turns = steps / 360;
  return turns < 2 * kKept ? 0 : turns - turns % kKept - kKept;
}

// Chords from the point of a0 to that of each whole degree up to a1 (none
// when a1 is not above a0), through the virtual Line. Returns the last point.
template <class PointAt>
_POINT Sweep(ZrDraw& draw, int32_t a0, int32_t a1, _POINT from, PointAt point_at) {
  int64_t a = a0;
  while (a < a1) {
    // Chords up to angle 0 join points of negative angles, those after it
    // points of positive ones: each side repeats by itself.
    const int64_t sideEnd = a < 0 ? std::min<int64_t>(a1, 0) : a1;
    a += 360 * SkippedTurns(sideEnd - a);
    for (; a < sideEnd; ++a) {
      const _POINT to = point_at(static_cast<int32_t>(a + 1));
      draw.Line(from.x, from.y, to.x, to.y);
      from = to;
    }
  }
  return from;
}

}  // namespace zr::arcs

#endif
