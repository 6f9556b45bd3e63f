// The integer mix against the double mix: every pair of 8-bit samples at
// every progress of every power-of-two span from 2 to 65536, through the
// dissolve effect, must give the double mix's bytes. A weight of 65536ths
// stands for every span whose progress gives it, so the double reference is
// made once per weight. Under an emulator the weights are sampled.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "common/test_random.h"
#include "fx/dissolve/dissolve_row.h"
#include "fx/dissolve/mix_row.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

#if defined(ZR_TEST_EMULATED)
constexpr uint32_t kWeightStride = 509;
#else
constexpr uint32_t kWeightStride = 1;
#endif

// Runs the dissolve effect on one row of `samples` samples (4 a pixel) and
// checks it against the double mix at the weight's t, for every span 2^k
// whose progress lands on the weight. Returns the spans checked.
int CheckEverySpan(uint32_t weight, const std::vector<uint8_t>& in, const std::vector<uint8_t>& out,
                   uint32_t format, size_t sampleBytes) {
  const size_t samples = in.size() / sampleBytes;
  const double t = weight / 65536.0;
  std::vector<uint8_t> want(in.size()), got(in.size());
  const DissolveRowForm& doubles = PickDissolveRowForm();
  (sampleBytes == 1 ? doubles.row8 : doubles.row16)(in.data(), out.data(), want.data(), samples, t, 1.0 - t);
  const auto width = static_cast<uint32_t>(samples / 4), pitch = static_cast<uint32_t>(in.size());
  int spans = 0;
  for (uint32_t span = 2; span <= 65536; span *= 2) {
    if (weight % (65536 / span) != 0) continue;
    const uint32_t progress = weight / (65536 / span);
    std::fill(got.begin(), got.end(), 0x5A);
    // The effect takes srcB as the incoming picture.
    zrfxDISSOLVE(const_cast<uint8_t*>(out.data()), pitch, const_cast<uint8_t*>(in.data()), pitch, got.data(),
                 pitch, 0, format, width, 1, 0, 0, 0, 0, 0, 0, span, progress, 0, width, 0, 1);
    if (got != want) {
      ADD_FAILURE() << "weight " << weight << ", span " << span << ", progress " << progress;
      return spans;
    }
    ++spans;
  }
  return spans;
}

TEST(DissolveMix, EveryEightBitPairAtEveryPowerOfTwoSpan) {
  std::vector<uint8_t> in(65536), out(65536);
  for (size_t i = 0; i < in.size(); ++i) {
    in[i] = static_cast<uint8_t>(i);
    out[i] = static_cast<uint8_t>(i >> 8);
  }
  int64_t spans = 0;
  for (uint32_t weight = 0; weight <= 65536; weight += kWeightStride) {
    spans += CheckEverySpan(weight, in, out, 1, 1);
    if (HasFailure()) return;
  }
  if (kWeightStride == 1) {
    EXPECT_EQ(spans, 131086);  // 2^k + 1 progress values for each k = 1..16
  }
}

// 16-bit samples: the extremes and random pairs at every weight.
TEST(DissolveMix, SixteenBitPairsAtEveryPowerOfTwoSpan) {
  std::vector<uint8_t> in(2 * 4096), out(2 * 4096);
  test::Rng(16).Fill(in.data(), in.size());
  test::Rng(17).Fill(out.data(), out.size());
  const uint16_t extremes[][2] = {{0, 0xFFFF}, {0xFFFF, 0}, {0xFFFF, 0xFFFF}, {1, 0xFFFE}};
  for (size_t i = 0; i < std::size(extremes); ++i) {
    std::memcpy(&in[2 * i], &extremes[i][0], 2);
    std::memcpy(&out[2 * i], &extremes[i][1], 2);
  }
  for (uint32_t weight = 0; weight <= 65536; weight += kWeightStride) {
    CheckEverySpan(weight, in, out, 32, 2);
    if (HasFailure()) return;
  }
}

// Spans that are no power of two, beyond 65536, or progress past the span
// keep the double mix, which the integer one cannot give.
TEST(DissolveMix, WeightOnlyWhereExact) {
  EXPECT_EQ(MixWeight(1, 2), 32768u);
  EXPECT_EQ(MixWeight(65536, 65536), 65536u);
  EXPECT_EQ(MixWeight(0, 1), 0u);
  EXPECT_EQ(MixWeight(3, 4), 49152u);
  for (const auto& [progress, span] : {std::pair{1u, 3u}, {1u, 0u}, {5u, 4u}, {1u, 131072u}, {0u, 1000u}})
    EXPECT_FALSE(MixWeight(progress, span)) << progress << "/" << span;
}

}  // namespace
}  // namespace zr::fx
