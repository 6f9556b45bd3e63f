// The arithmetic of the plain dissolve loops: truncation, wraps, the float
// mix with its whole-number incoming sample, and the machine answers for
// what fits no integer.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

// One sample of `Sample` through `row`.
template <typename Sample>
Sample Mix(DissolveRowFn row, Sample in, Sample out, uint32_t progress, uint32_t span) {
  const double t = zrfxDissolveRatio(progress, span);
  uint8_t a[sizeof(Sample)], b[sizeof(Sample)], r[sizeof(Sample)];
  std::memcpy(a, &in, sizeof a);
  std::memcpy(b, &out, sizeof b);
  row(a, b, r, 1, t, 1.0 - t);
  Sample v;
  std::memcpy(&v, r, sizeof v);
  return v;
}
uint32_t Mix8(uint8_t in, uint8_t out, uint32_t p, uint32_t s) { return Mix(DissolveRow8_C, in, out, p, s); }
uint32_t Mix16(uint16_t in, uint16_t out, uint32_t p, uint32_t s) {
  return Mix(DissolveRow16_C, in, out, p, s);
}
float MixF(float in, float out, uint32_t p, uint32_t s) { return Mix(DissolveRowF32_C, in, out, p, s); }

// In the SSE build a sum that fits no 32-bit integer converts to 0x80000000;
// the NEON build saturates and gives 0 for not-a-number.
#if defined(__aarch64__)
constexpr uint32_t kHuge8 = 0xFF, kHuge16 = 0xFFFF;
#else
constexpr uint32_t kHuge8 = 0, kHuge16 = 0;
#endif

TEST(DissolvePlain, IntegerSamples) {
  const struct {
    uint32_t in, out, progress, span, want8, want16;
  } cases[] = {
      {3, 3, 1, 100, 2, 2},             // 2.9999999999999996, truncated
      {255, 0, 1, 2, 127, 127},         // 127.5: no half step
      {200, 77, 0, 1001, 77, 77},       // progress 0: outgoing
      {200, 77, 1001, 1001, 200, 200},  // the whole span: incoming
      {150, 0, 200, 100, 44, 300},      // t = 2: 300 keeps its low bits
      {0, 10, 200, 100, 246, 65526},    // -10 in two's complement
      {255, 0, 0xFFFFFFFFu, 1, kHuge8, kHuge16},
      {0, 255, 0xFFFFFFFFu, 1, 0, 0},  // far below every integer: 0x80000000
      {200, 100, 0, 0, 0, 0},          // 0/0: not-a-number
      {200, 100, 5, 0, 0, 0},          // 5/0: infinity minus infinity
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Mix8(c.in, c.out, c.progress, c.span), c.want8) << c.in << " " << c.out << " " << c.progress;
    EXPECT_EQ(Mix16(c.in, c.out, c.progress, c.span), c.want16) << c.in << " " << c.out << " " << c.progress;
  }
  EXPECT_EQ(Mix16(40000, 0, 200, 100), 14464u);  // 80000
  EXPECT_EQ(Mix16(65535, 12345, 65536, 65536), 65535u);
}

TEST(DissolvePlain, FlatAreasStayFlatWithPowerOfTwoSpans) {
  std::vector<uint8_t> flat(256), got(256);
  for (int v = 0; v < 256; ++v) flat[v] = static_cast<uint8_t>(v);
  for (uint32_t span : {2u, 256u, 65536u}) {
    for (uint32_t progress = 0; progress <= span; ++progress) {
      const double t = zrfxDissolveRatio(progress, span);
      DissolveRow8_C(flat.data(), flat.data(), got.data(), 256, t, 1.0 - t);
      ASSERT_EQ(got, flat) << "progress " << progress << "/" << span;
    }
  }
}

TEST(DissolvePlain, FloatSamples) {
  constexpr float kInf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(MixF(2.75f, 9.5f, 100, 100), 2.0f);  // incoming loses its fraction
  EXPECT_EQ(MixF(0.999f, 9.5f, 100, 100), 0.0f);
  EXPECT_EQ(MixF(-3.9f, 9.5f, 100, 100), -3.0f);
  EXPECT_EQ(MixF(1.5f, 0.25f, 50, 100), 0.625f);
  EXPECT_EQ(MixF(123.75f, 0.3f, 0, 100), 0.3f);  // outgoing keeps it
  EXPECT_EQ(MixF(1.0f, 0.1f, 1, 3), static_cast<float>(1.0 / 3 + double{0.1f} * (1.0 - 1.0 / 3)));
  // A zero span: infinities and not-a-numbers, no fault.
  EXPECT_TRUE(std::isnan(MixF(3.0f, 1.0f, 0, 0)));
  EXPECT_TRUE(std::isnan(MixF(3.0f, 0.0f, 5, 0)));
  EXPECT_EQ(MixF(3.0f, -1.0f, 5, 0), kInf);
  EXPECT_EQ(MixF(-3.0f, 1.0f, 5, 0), -kInf);
  // An incoming sample that fits no 64-bit integer takes the machine answer.
  const float nan = std::numeric_limits<float>::quiet_NaN();
#if defined(__aarch64__)
  EXPECT_EQ(MixF(1e30f, 0.0f, 1, 1), 0x1p63f);
  EXPECT_EQ(MixF(nan, 0.0f, 1, 1), 0.0f);
#else
  EXPECT_EQ(MixF(1e30f, 0.0f, 1, 1), -0x1p63f);
  EXPECT_EQ(MixF(nan, 0.0f, 1, 1), -0x1p63f);
#endif
  EXPECT_EQ(MixF(-1e30f, 0.0f, 1, 1), -0x1p63f);
}

TEST(DissolvePlain, NarrowingToFloatRoundsAsTheProcessorDoes) {
  constexpr float kMax = std::numeric_limits<float>::max(), kInf = std::numeric_limits<float>::infinity();
  EXPECT_EQ(zrfxNarrowToFloat(0.1), 0.1f);
  EXPECT_EQ(zrfxNarrowToFloat(std::nextafter(0x1.ffffffp127, 0.0)), kMax);
  EXPECT_EQ(zrfxNarrowToFloat(0x1.ffffffp127), kInf);  // half way to 2^128
  EXPECT_EQ(zrfxNarrowToFloat(-1e300), -kInf);
  EXPECT_TRUE(std::isnan(zrfxNarrowToFloat(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace zr::fx
