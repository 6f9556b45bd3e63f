// The line DDA and Dash against small independent models (exact 64-bit
// arithmetic, a closed-form dash pattern), and the chaining operations.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "common/test_random.h"
#include "zrdraw.h"

namespace {

using zr::test::Rng;

struct Px {
  int x, y;
  bool operator==(const Px&) const = default;
  bool operator<(const Px& o) const { return x != o.x ? x < o.x : y < o.y; }
};
using Pixels = std::vector<Px>;

// Records every PutPixel, and every four-integer Line when asked to.
class Recorder : public ZrDraw {
 public:
  int PutPixel(int x, int y, bool foreground) override {
    EXPECT_TRUE(foreground);
    px.push_back({x, y});
    return 0;
  }
  int Line(int x1, int y1, int x2, int y2) override {
    lines.push_back({x1, y1, x2, y2});
    return recordLines ? 7 : ZrDraw::Line(x1, y1, x2, y2);
  }
  using ZrDraw::Line;
  Pixels px;
  std::vector<std::vector<int>> lines;
  bool recordLines = false;
};

int64_t FloorDiv(int64_t a, int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

// Coordinates within 16 bits and deltas below 32768: no wrap reaches them.
Pixels ModelLine(int64_t x1, int64_t y1, int64_t x2, int64_t y2) {
  if (y1 > y2) std::swap(x1, x2), std::swap(y1, y2);
  const int64_t dx = x2 - x1, dy = y2 - y1;
  Pixels out{{int(x1), int(y1)}};
  if (dy > std::abs(dx)) {
    const int64_t slope = dx * 65536 / dy;
    for (int64_t k = 1; k <= dy; ++k)
      out.push_back({int(x1 + FloorDiv(k * slope + 0x8000, 65536)), int(y1 + k)});
  } else if (dx != 0) {
    const int64_t slope = dy * 65536 / dx, s = dx > 0 ? 1 : -1;
    for (int64_t k = 1; k <= s * dx; ++k)
      out.push_back({int(x1 + s * k), int(y1 + FloorDiv(s * k * slope + 0x8000, 65536))});
  }
  return out;
}

// The pattern in closed form: period on + off, `on` of it plotted.
Pixels ModelDash(int64_t x1, int64_t y1, int64_t x2, int64_t y2, int on, int off) {
  const bool yMajor = std::abs(y2 - y1) > std::abs(x2 - x1);
  const int64_t major = yMajor ? y2 - y1 : x2 - x1, minor = yMajor ? x2 - x1 : y2 - y1;
  const int64_t slope = major ? minor * 65536 / major : 0, dir = major > 0 ? 1 : -1;
  Pixels out;
  for (int64_t i = 0; i <= std::abs(major); ++i) {
    const bool plot = on > 0 && (off == 0 || (off < 0 ? i < on : i % (on + off) < on));
    const int64_t m = (yMajor ? x1 : y1) + FloorDiv(dir * i * slope + 0x8000, 65536);
    const int64_t p = (yMajor ? y1 : x1) + dir * i;
    if (plot) out.push_back(yMajor ? Px{int(m), int(p)} : Px{int(p), int(m)});
  }
  return out;
}

TEST(LineDda, MatchesModelOnRandomLines) {
  const uint64_t seed = 0x11E5;
  Rng rng(seed);
  for (int i = 0; i < 8000; ++i) {
    const int span = i % 64 == 0 ? 32767 : i % 2 ? 40 : 300;
    int c[4];
    for (int& v : c) v = static_cast<int>(rng.Below(2 * span + 1)) - span;
    if (std::max(std::abs(c[0] - c[2]), std::abs(c[1] - c[3])) > 32767) continue;
    Recorder r, reverse;
    ASSERT_EQ(0, r.Line(c[0], c[1], c[2], c[3]));
    ASSERT_EQ(ModelLine(c[0], c[1], c[2], c[3]), r.px)
        << "seed " << seed << " line " << i << ": " << c[0] << "," << c[1] << " to " << c[2] << "," << c[3];
    reverse.Line(c[2], c[3], c[0], c[1]);
    std::sort(r.px.begin(), r.px.end());
    std::sort(reverse.px.begin(), reverse.px.end());
    ASSERT_EQ(r.px, reverse.px) << "a line and its reverse differ, line " << i;
  }
}

TEST(LineDda, DocumentedShapesAndFormatLimits) {
  Recorder one, diag, tie, far, wide, wrapped;
  one.Line(5, 5, 5, 5);
  EXPECT_EQ((Pixels{{5, 5}}), one.px);
  diag.mbLineSmoothing = true;  // the exact diagonal always takes the plain branch
  diag.Line(0, 0, 10, 10);
  ASSERT_EQ(11u, diag.px.size());
  for (int i = 0; i <= 10; ++i) EXPECT_EQ((Px{i, i}), diag.px[i]);
  // The tie is x-major: x beyond 16 bits is kept, as only the minor wraps.
  tie.Line(40000, 0, 40002, 2);
  EXPECT_EQ((Pixels{{40000, 0}, {40001, 1}, {40002, 2}}), tie.px);
  // Minor coordinates keep their low 16 bits only.
  far.Line(0, 40000, 3, 40000);
  EXPECT_EQ((Pixels{{0, -25536}, {1, -25536}, {2, -25536}, {3, -25536}}), far.px);
  // A minor delta of 32768 or more overflows the slope: (40000 << 16) wraps.
  wide.Line(0, 0, 40000, 40001);
  EXPECT_EQ((Px{-1, 1}), wide.px[1]);
  // Ends 2^31 apart make a zero divisor: the slope is 0, nothing traps.
  EXPECT_EQ(0, wrapped.Line(INT_MIN, 5, 0, 5));
  EXPECT_EQ((Pixels{{0, 5}}), wrapped.px);
}

TEST(LineDda, ChainingOperations) {
  Recorder r;
  r.recordLines = true;
  r.MoveTo(3, 4);
  EXPECT_EQ(7, r.LineTo(9, 1));
  EXPECT_EQ(9, r.mCurrentX);
  EXPECT_EQ(1, r.mCurrentY);
  _POINT a{1, 2}, b{3, 4};
  EXPECT_EQ(7, r.Line(a, b));
  const _POINT pts[] = {{0, 0}, {5, 0}, {5, 5}, {-8, 9}};
  EXPECT_EQ(-1, r.Polyline(pts, 1));
  EXPECT_EQ(-1, r.Polyline(pts, 0));
  EXPECT_EQ(0, r.Polyline(pts, 0x80000000u));  // negative as signed: nothing drawn
  EXPECT_EQ(-1, r.PolylineTo(pts, 1));
  EXPECT_EQ(9, r.mCurrentX);
  EXPECT_EQ(0, r.PolylineTo(pts, 3));  // the position is the element after the last point
  EXPECT_EQ(-8, r.mCurrentX);
  EXPECT_EQ(9, r.mCurrentY);
  const std::vector<std::vector<int>> want = {{3, 4, 9, 1}, {1, 2, 3, 4}, {0, 0, 5, 0}, {5, 0, 5, 5}};
  EXPECT_EQ(want, r.lines);
  EXPECT_TRUE(r.px.empty());
}

TEST(LineDda, LineVertIncludesBothEnds) {
  Recorder r;
  EXPECT_EQ(0, r.LineVert(3, 9, 2));
  EXPECT_TRUE(r.px.empty());
  r.LineVert(3, 2, 4);
  r.LineVert(1, INT_MAX - 1, INT_MAX);
  EXPECT_EQ((Pixels{{3, 2}, {3, 3}, {3, 4}, {1, INT_MAX - 1}, {1, INT_MAX}}), r.px);
}

TEST(Dash, MatchesModelOnRandomDashes) {
  const uint64_t seed = 0xDA54;
  Rng rng(seed);
  for (int i = 0; i < 10000; ++i) {
    int c[4];
    for (int& v : c) v = static_cast<int>(rng.Below(1001)) - 500;
    const int on = static_cast<int>(rng.Below(12)) - 2, off = static_cast<int>(rng.Below(12)) - 2;
    Recorder r;
    ASSERT_EQ(0, r.Dash(c[0], c[1], c[2], c[3], on, off));
    ASSERT_EQ(ModelDash(c[0], c[1], c[2], c[3], on, off), r.px)
        << "seed " << seed << " dash " << i << ": " << c[0] << "," << c[1] << " to " << c[2] << "," << c[3]
        << " on " << on << " off " << off;
  }
}

TEST(Dash, PatternStartsAtTheFirstPoint) {
  Recorder fwd, back, point;
  fwd.Dash(0, 0, 9, 0, 3, 2);
  EXPECT_EQ((Pixels{{0, 0}, {1, 0}, {2, 0}, {5, 0}, {6, 0}, {7, 0}}), fwd.px);
  back.Dash(9, 0, 0, 0, 3, 2);
  EXPECT_EQ((Pixels{{9, 0}, {8, 0}, {7, 0}, {4, 0}, {3, 0}, {2, 0}}), back.px);
  point.Dash(4, 4, 4, 4, 1, 0);
  EXPECT_EQ((Pixels{{4, 4}}), point.px);
}

}  // namespace
