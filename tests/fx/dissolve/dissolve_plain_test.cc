// The arithmetic of the plain integer dissolve loops: truncation, wraps
// beyond the span, a zero span, and the machine answers for what fits no
// integer. The goldens hold the float mix.
#include <gtest/gtest.h>

#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"

namespace zr::fx {
namespace {

// One sample of `Sample` through `row`.
template <typename Sample>
Sample Mix(DissolveRowFn row, Sample in, Sample out, uint32_t progress, uint32_t span) {
  const double t = zrfxDissolveRatio(progress, span);
  Sample r;
  row(reinterpret_cast<const uint8_t*>(&in), reinterpret_cast<const uint8_t*>(&out),
      reinterpret_cast<uint8_t*>(&r), 1, t, 1.0 - t);
  return r;
}

// In the SSE build a sum that fits no 32-bit integer (or not-a-number)
// converts to 0x80000000; the NEON build saturates, with 0 for not-a-number.
#if defined(__aarch64__)
constexpr uint32_t kHuge8 = 0xFF, kHuge16 = 0xFFFF;
#else
constexpr uint32_t kHuge8 = 0, kHuge16 = 0;
#endif

TEST(DissolvePlain, IntegerSamples) {
  const struct {
    uint32_t in, out, progress, span, want8, want16;
  } cases[] = {
      // clang-format off
      {3, 3, 1, 100, 2, 2},             // 2.9999999999999996, truncated
      {255, 0, 1, 2, 127, 127},         // 127.5: no half step
      {200, 77, 0, 1001, 77, 77},       // progress 0: outgoing
      {200, 77, 1001, 1001, 200, 200},  // the whole span: incoming
      {150, 0, 200, 100, 44, 300},      // t = 2: 300 keeps its low bits
      {0, 10, 200, 100, 246, 65526},    // -10 in two's complement
      {255, 0, 0xFFFFFFFFu, 1, kHuge8, kHuge16},
      {0, 255, 0xFFFFFFFFu, 1, 0, 0},   // far below every integer: 0x80000000
      {200, 100, 0, 0, 0, 0},           // 0/0: not-a-number
      {200, 100, 5, 0, 0, 0},           // 5/0: infinity minus infinity
      // clang-format on
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Mix<uint8_t>(DissolveRow8_C, c.in, c.out, c.progress, c.span), c.want8) << c.in << " " << c.out;
    EXPECT_EQ(Mix<uint16_t>(DissolveRow16_C, c.in, c.out, c.progress, c.span), c.want16)
        << c.in << " " << c.out;
  }
}

}  // namespace
}  // namespace zr::fx
