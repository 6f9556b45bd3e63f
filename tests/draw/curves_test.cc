// The curves: small pictures of the cases that tell the arcs, the Bezier
// curves and the rounded rectangle apart, and golden checksums of the chords
// that each family asks the virtual Line for.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::TestCanvas;

// Rows ended by '/', '#' where a pixel left the 0x11 fill, then the position.
std::string Seen(TestCanvas& c) {
  std::string out;
  for (unsigned i = 0; i < c->mWidth * c->mHeight; ++i)
    out += std::string(c.Word(4 * i) != 0x11111111u ? "#" : ".") + ((i + 1) % c->mWidth ? "" : "/");
  return out + " at " + std::to_string(c->mCurrentX) + "," + std::to_string(c->mCurrentY);
}

// Two curves in seven points, and three points more for PolyBezierTo.
const _POINT pts[] = {{0, 5}, {1, 0}, {4, 1}, {3, 5}, {6, 4}, {11, 5}, {10, 0}, {1, 1}, {2, 2}, {4, 3}};

std::string Ends() {
  return std::to_string(xStartArc) + "," + std::to_string(yStartArc) + " to " + std::to_string(xEndArc) +
         "," + std::to_string(yEndArc);
}

TEST(Curves, ArcsByAngle) {
  TestCanvas c(pixelRGBA32, 12, 7, 0, 12 * 7 * 4), a(pixelRGBA32, 12, 5, 0, 12 * 5 * 4);
  // Ellipse moves the position to its end and Circle leaves it there.
  EXPECT_EQ(0, c->Ellipse(8, 3, 3, 2));
  EXPECT_EQ(0, c->Circle(3, 3, 3));
  EXPECT_EQ(
      "######....../#....######./#....#....#./#....##...##/#....######./######....../............/ at 11,3",
      Seen(c));
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(0, a->AngleArc(2, 3, 9, 350.0f, 10.0f));  // across 0
  // Whole degrees 90 to 90, 0 to 0 (truncated toward zero), 360 to 360, INT32_MIN twice: nothing.
  EXPECT_EQ(0, a->AngleArc(2, 3, 3, 90.0f, 90.0f) + a->AngleArc(2, 3, 3, -0.9f, 0.9f) +
                   a->AngleArc(2, 3, 3, 360.0f, 0.0f) + a->AngleArc(2, 3, 3, nan, -3e9f));
  EXPECT_EQ(0, a->AngleArcTo(2, 3, 3, 2, 90.9f, 180.9f));  // 90 to 180, ending at x -0.99 truncated to 0
  EXPECT_EQ("............/###.......#./#.........#./..........##/..........#./ at 0,2", Seen(a));
}

TEST(Curves, ArcsByBox) {
  TestCanvas s(pixelRGBA32, 12, 6, 0, 12 * 6 * 4), q(pixelRGBA32, 11, 3, 0, 11 * 3 * 4);
  EXPECT_EQ(0, s->Arc(0, 0, 11, 7, 11, 0, 0, 0));  // 392 to 147 + 360 degrees
  EXPECT_EQ(0, q->Arc(0, 0, 10, 6, 5, 6, 0, 3));   // straight below the centre reads as 90: the top
  EXPECT_EQ(-4, q->Arc(3, 0, 3, 5, 0, 0, 1, 1) + q->Arc(0, 5, 9, 2, 0, 0, 1, 1) +
                    q->Arc(0, 0, 10, 6, 5, 3, 0, 0) + q->Arc(0, 0, 10, 6, 0, 0, 5, 3));
  EXPECT_EQ(".#####...../##........./#........../ at 0,0 5,0 to 0,2", Seen(q) + " " + Ends());
  EXPECT_EQ(0, s->Pie(6, 2, 6, 9, 1, 1, 1, 1));  // refused arc: spokes from q's ends to (6, 5)
  EXPECT_EQ(".#########../##...#...##./#....#....../.##...#...../...##.#...../.....##...../ at 0,0", Seen(s));
  // ArcTo hands y, x on as x, y, and moves even when refused.
  EXPECT_EQ(0, s->ArcTo(0, 0, 10, 6, 6, 5, 10, 3));
  EXPECT_EQ(0, s->ArcTo(3, 0, 3, 5, 1, 2, -7, 8));
  EXPECT_EQ("5,0 to 10,3 at -7,8",
            Ends() + " at " + std::to_string(s->mCurrentX) + "," + std::to_string(s->mCurrentY));
}

TEST(Curves, BeziersAndRoundRect) {
  TestCanvas b(pixelRGBA32, 12, 8, 0, 12 * 8 * 4), p(pixelRGBA32, 12, 6, 0, 12 * 6 * 4);
  EXPECT_EQ(0, b->Bezier(0, 7, 2, -2, 11, 0, 11, 7));  // at the start of the last flat piece
  EXPECT_EQ(-1, b->Bezier(3, 3, 9, 0, 0, 9, 3, 3));    // equal ends: nothing
  EXPECT_EQ(-3, p->PolyBezier(pts, 4) + p->PolyBezier(pts, 8) + p->PolyBezierTo(pts, 5));
  EXPECT_EQ(0, p->PolyBezierTo(pts, 7));  // two curves, then the position from pts[9]
  EXPECT_EQ(
      "...##......./..#..###..../..#.....##../.#.......#../.#........#./.#........#./#..........#/"
      "#..........#/ at 9,2 ..........#./###.......#./#.#......#../#..#.....#../#..#..###.../#..###....../ "
      "at 4,3",
      Seen(b) + " " + Seen(p));
  TestCanvas r(pixelRGBA32, 10, 6, 0, 10 * 6 * 4), t(pixelRGBA32, 12, 8, 0, 12 * 8 * 4);
  EXPECT_EQ(-1, r->RoundRect(0, 0, 5, 5, 6, 2));
  EXPECT_EQ(0, r->RoundRect(0, 0, 9, 5, 0, 0) + t->RoundRect(0, 0, 11, 7, 6, 4));
  EXPECT_EQ(
      "##########/#........#/#........#/#........#/#........#/##########/ at 9,0 "
      "###########./#.........#./#..........#/#..........#/#..........#/#.........##/###....####./"
      "...######.../ at 8,0",
      Seen(r) + " " + Seen(t));
}

// Logs every chord without drawing it, and each virtual call of one curve
// operation by another before passing it on.
class Recorder : public ZrDraw {
 public:
  int Line(int x1, int y1, int x2, int y2) override { return Log({x1, y1, x2, y2}), 5; }
  int Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) override {
    return Log({-1, xs, ys}), ZrDraw::Arc(l, t, r, b, xs, ys, xe, ye);
  }
  int AngleArc(int x, int y, unsigned r, float a0, float a1) override {
    return Log({-2}), ZrDraw::AngleArc(x, y, r, a0, a1);
  }
  int AngleArcTo(int x, int y, int rx, int ry, float a0, float a1) override {
    return Log({-3}), ZrDraw::AngleArcTo(x, y, rx, ry, a0, a1);
  }
  int Bezier(int x0, int y0, int x1, int y1, int x2, int y2, int x3, int y3) override {
    return Log({-4}), ZrDraw::Bezier(x0, y0, x1, y1, x2, y2, x3, y3);
  }
  // What a call leaves behind: its result, the position and the arc ends.
  void After(int result) { Log({result, mCurrentX, mCurrentY, xStartArc, yStartArc, xEndArc, yEndArc}); }
  void Log(std::initializer_list<int> v) { log.insert(log.end(), v); }
  std::vector<int> log;
};

// Fixed calls of each family on small, negative and huge coordinates; the
// checksums hold unchanged in every build.
TEST(Curves, GoldenChecksumsOfTheChords) {
  zr::test::Rng rng(0xC0FE);
  Recorder arcs, angles, beziers;
  xStartArc = yStartArc = xEndArc = yEndArc = 0;
  const int bases[] = {0, -40, 1 << 30, -(1 << 30), 2147483000};
  for (int i = 0; i < 300; ++i) {
    const int base = bases[i % 5], span = i % 3 ? 40 : 400;
    int v[8];
    for (int& x : v) x = base - span + static_cast<int>(rng.Below(2 * span));
    if (i % 7 == 0) {  // at or near the centre
      v[4] = static_cast<int>((int64_t{v[0]} + v[2]) / 2);
      v[5] = static_cast<int>((int64_t{v[1]} + v[3]) / 2);
    }
    arcs.After(i % 3 == 0   ? arcs.Arc(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7])
               : i % 3 == 1 ? arcs.ArcTo(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7])
                            : arcs.Pie(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]));
    const float a0 = rng.Below(16000) / 10.0f - 800, a1 = rng.Below(16000) / 10.0f - 800;
    const int rx = static_cast<int>(rng.Below(200)) - 50, ry = static_cast<int>(rng.Below(200)) - 50;
    angles.After(i % 4 == 0   ? angles.AngleArc(v[0], v[1], rx, a0, a1)
                 : i % 4 == 1 ? angles.AngleArcTo(v[0], v[1], rx, ry, a0, a1)
                 : i % 4 == 2 ? angles.Circle(v[0], v[1], rx)
                              : angles.Ellipse(v[0], v[1], rx, ry));
    // Within +-2^30 the pairwise sums cannot wrap; the chord's C still does.
    for (int& x : v) x = std::clamp(x, -(1 << 30), (1 << 30) - 1);
    beziers.After(beziers.Bezier(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]));
  }
  // A box wider than 32 bits, a radius read as signed, angles beyond the integers.
  arcs.After(arcs.Arc(-2147483000, -5, 2147483000, 5, 0, -5, 0, 5));
  angles.After(angles.AngleArc(0, 0, 0xFFFFFFF6u, 10.0f, 100.0f));
  angles.After(angles.AngleArcTo(5, 5, 2147483647, 9, 0.0f, 1e10f));  // 0 to 232
  angles.After(angles.AngleArcTo(5, 5, 9, 9, std::numeric_limits<float>::infinity(), -3e9f));
  for (unsigned count : {4u, 7u, 8u}) beziers.After(beziers.PolyBezier(pts, count));
  std::vector<uint32_t> crcs;
  for (const Recorder* r : {&arcs, &angles, &beziers})
    crcs.push_back(zr::test::Crc32(r->log.data(), 4 * r->log.size()));
  EXPECT_EQ((std::vector<uint32_t>{2614313060u, 2665252960u, 3560973485u}), crcs);
}

}  // namespace

// Past 2^30 the split's sums wrap, and this curve's first halves come back
// unchanged every four levels: the curve is abandoned at the depth limit,
// keeping the chords drawn until then, instead of recursing until the stack
// runs out.
TEST(Curves, BezierWhoseSplitWrapsEnds) {
  Recorder r;
  EXPECT_EQ(0, r.Bezier(-689524545, -1245572253, -438156910, 160707357, 942824779, -1543384717, 326175888,
                        808172563));
  EXPECT_EQ(129888013u, zr::test::Crc32(r.log.data(), 4 * r.log.size()));
}

// A NaN or huge angle asks for billions of degrees. The walk skips whole
// turns by the 256 after which the additive road's wrapped sums repeat, so
// on an additive canvas it leaves what a walk of the same length modulo 256
// turns, ending on the same degree, leaves. (2^31 = 5965232 turns + 128
// degrees, 5965232 = 176 mod 256; 2e9 = 5555555 turns + 200, 99 mod 256.)
TEST(Curves, SweepsOfBillionsOfDegreesSkipWholeTurns) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float sweeps[][4] = {{nan, 5.0f, -(176 * 360 + 128), 5.0f}, {0.0f, 2e9f, 0.0f, 99 * 360 + 200}};
  for (const auto& s : sweeps) {
    TestCanvas huge(pixelRGBA32, 24, 24, 0, 24 * 24 * 4), shortWalk(pixelRGBA32, 24, 24, 0, 24 * 24 * 4);
    for (TestCanvas* c : {&huge, &shortWalk}) {
      (*c)->SetAlphaAdditive(true);
      (*c)->mForeColor = 0xFF000301u;  // adds 1 to red and 3 to green at each pass
    }
    huge->AngleArc(12, 12, 9, s[0], s[1]);
    shortWalk->AngleArc(12, 12, 9, s[2], s[3]);
    EXPECT_EQ(0, std::memcmp(huge.rows(), shortWalk.rows(), 24 * 24 * 4)) << s[0] << " to " << s[1];
    EXPECT_NE(0x11111111u, huge.Word(4 * (12 * 24 + 21)));  // the point of angle 0
  }
}

// Past 2^16 the chord's C wraps and the flatness test fails until the pieces
// are pixels long; a curve 2^29 pixels across is abandoned after 2^20
// sub-curves, keeping the chords drawn until then.
TEST(Curves, BezierFarOutsideEnds) {
  Recorder r;
  EXPECT_EQ(0, r.Bezier(-(1 << 28), 5, 1 << 28, -(1 << 28), 3, 1 << 28, (1 << 28) - 7, 9));
  // The limit, and one call more for each level the split had open.
  EXPECT_EQ((1 << 20) + 9, std::count(r.log.begin(), r.log.end(), -4));
  EXPECT_EQ(924850961u, zr::test::Crc32(r.log.data(), 4 * r.log.size()));
}
