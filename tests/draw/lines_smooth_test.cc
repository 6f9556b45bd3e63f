// The smoothing branch of Line, traced call by call against a model of its
// steps, on a canvas that keeps its colour slot as exact doubles.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/test_random.h"

namespace {

using Colour = std::array<double, 4>;
struct Plot {
  int x, y;
  Colour c;
  bool operator==(const Plot&) const = default;
};

Colour CanvasColour(int x, int y) {
  return {((x * 7) & 255) / 255.0, ((y * 13) & 255) / 255.0, ((x + y) & 255) / 255.0, 1.0};
}

Colour Over255(const Colour& c) { return {c[0] / 255.0, c[1] / 255.0, c[2] / 255.0, c[3] / 255.0}; }

class Tracer : public ZrDraw {
 public:
  int PutPixel(int x, int y, bool) override {
    plots.push_back({x, y, slot});
    return 0;
  }
  int GetColorRGBA(double& r, double& g, double& b, double& a, bool) override {
    r = slot[0], g = slot[1], b = slot[2], a = slot[3];
    return 0;
  }
  int SetColorRGBA(double r, double g, double b, double a, bool) override {
    slot = {r, g, b, a};
    return 0;
  }
  int GetPixelRGBA(int x, int y, double& r, double& g, double& b, double& a) override {
    const Colour c = CanvasColour(x, y);
    r = c[0], g = c[1], b = c[2], a = c[3];
    return 0;
  }
  Colour slot{0.9, 0.5, 0.25, 1.0};
  std::vector<Plot> plots;
};

// The documented steps, for a line that is not straight or diagonal.
std::vector<Plot> ModelSmooth(int x1, int y1, int x2, int y2, Colour& slot) {
  if (y1 > y2) std::swap(x1, x2), std::swap(y1, y2);
  const int dx = x2 - x1, dy = y2 - y1, adx = std::abs(dx), step = dx < 0 ? -1 : 1;
  const bool alongX = dy <= adx;
  Colour fg = slot;
  slot = Over255(fg);
  std::vector<Plot> out{{x1, y1, slot}, {x2, y2, slot}};
  const uint32_t slope = alongX ? (uint32_t(dy) << 16) / adx : (uint32_t(adx) << 16) / dy;
  for (int k = 1; k < (alongX ? adx : dy); ++k) {
    const uint32_t acc = k * slope;
    const int off = int(acc >> 16);
    const int nx = alongX ? x1 + step * k : x1 + (dx < 0 ? -off : off), ny = alongX ? y1 + off : y1 + k;
    const double t = ((acc >> 8) & 0xFF) / 255.0, u = 1.0 - t;
    const Colour p = CanvasColour(nx, ny);
    fg = slot;
    Colour nearMix, farMix;
    for (int i = 0; i < 4; ++i) nearMix[i] = p[i] * t + fg[i] * u, farMix[i] = p[i] * u + fg[i] * t;
    out.push_back({nx, ny, Over255(nearMix)});
    out.push_back({alongX ? nx : nx + step, alongX ? ny + 1 : ny, Over255(farMix)});
    slot = Over255(fg);
  }
  return out;
}

TEST(LineSmooth, MatchesModelOfItsSteps) {
  const uint64_t seed = 0x5300;
  zr::test::Rng rng(seed);
  for (int i = 0; i < 3000; ++i) {
    int c[4];
    for (int& v : c) v = static_cast<int>(rng.Below(121)) - 60;
    Tracer t;
    t.mbLineSmoothing = true;
    const bool plain = c[0] == c[2] || c[1] == c[3] || std::abs(c[0] - c[2]) == std::abs(c[1] - c[3]);
    Colour slot = t.slot;
    ASSERT_EQ(0, t.Line(c[0], c[1], c[2], c[3]));
    if (plain) {
      // Straight lines and exact diagonals draw plainly in the caller's colour.
      ASSERT_EQ(slot, t.slot);
      for (const Plot& p : t.plots) ASSERT_EQ(slot, p.c);
      continue;
    }
    ASSERT_EQ(ModelSmooth(c[0], c[1], c[2], c[3], slot), t.plots)
        << "seed " << seed << " line " << i << ": " << c[0] << "," << c[1] << " to " << c[2] << "," << c[3];
    ASSERT_EQ(slot, t.slot) << "foreground left behind, line " << i;
  }
}

TEST(LineSmooth, LeavesTheForegroundChanged) {
  zr::test::TestCanvas c(pixelRGBA32, 16, 8, 0, 16 * 8 * 4);
  c->mbLineSmoothing = true;
  EXPECT_EQ(0, c->Line(0, 0, 10, 3));
  EXPECT_NE(0xFFFFFFFFu, c->mForeColor);
  c->mbLineSmoothing = false;
  c->SetColorRGBA(1, 1, 1, 1, true);
  c->Line(0, 0, 10, 3);
  EXPECT_EQ(0xFFFFFFFFu, c->mForeColor);
}

}  // namespace
