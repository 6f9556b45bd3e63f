// Every vector form of the dissolve's integer loops against the plain loop:
// random runs of every length and alignment, every progress of the broadcast
// span, every 8-bit sample pair of small spans, and the wraps beyond the span.
#include "fx/dissolve/dissolve_row.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "dissolve_test_support.h"
#include "fx/dissolve/dissolve_convert.h"

namespace zr::fx {
namespace {

struct Kind {
  const char* name;
  size_t bytesPerSample;
  DissolveRowFn plain;
  DissolveRowFn DissolveRowForm::*vector;
};
constexpr Kind kKinds[] = {{"8-bit", 1, DissolveRow8_C, &DissolveRowForm::row8},
                           {"16-bit", 2, DissolveRow16_C, &DissolveRowForm::row16}};

std::vector<DissolveRowForm> RunnableForms() {
  std::vector<DissolveRowForm> forms;
  for (const auto& form : DissolveRowForms())
    if (form.supported()) forms.push_back(form);
  return forms;
}

// Both loops over the same run; the first differing sample is reported.
::testing::AssertionResult SameRun(const DissolveRowForm& form, const Kind& kind, const uint8_t* in,
                                   const uint8_t* out, uint8_t* want, uint8_t* got, size_t samples,
                                   uint32_t progress, uint32_t span, uint64_t seed) {
  const double t = zrfxDissolveRatio(progress, span), u = 1.0 - t;
  kind.plain(in, out, want, samples, t, u);
  (form.*kind.vector)(in, out, got, samples, t, u);
  const size_t bytes = samples * kind.bytesPerSample;
  if (std::memcmp(got, want, bytes) == 0) return ::testing::AssertionSuccess();
  return test::SameBytes(got, want, bytes, bytes,
                         std::string(form.name) + " " + kind.name + " seed=" + std::to_string(seed) +
                             " samples=" + std::to_string(samples) + " progress=" + std::to_string(progress) +
                             "/" + std::to_string(span));
}

// Guarded, misaligned buffers: the whole output must match, guards included,
// and the sources come back unchanged.
TEST(DissolveRowForms, MatchPlainOverLengthsAlignmentsAndProgress) {
  std::vector<size_t> lengths;
  for (size_t n = 1; n <= 33; ++n) lengths.push_back(n);
  for (size_t n : {63, 64, 65, 95, 96, 97, 127, 129, 1000, 4099}) lengths.push_back(n);
  const size_t misalign[][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {3, 2, 1}};
  // Up to the span, beyond it (wraps, and sums that fit no integer), and a
  // zero span's infinities and not-a-numbers.
  const uint32_t progresses[][2] = {
      {0, 65536}, {1, 65536},      {12345, 65536},       {65536, 65536},   {1, 100}, {59, 1001},
      {200, 100}, {131073, 65536}, {0x7FFF0000u, 65536}, {0xFFFFFFFFu, 1}, {0, 0},   {5, 0}};
  uint64_t seed = 1;
  for (const auto& form : RunnableForms())
    for (const auto& kind : kKinds)
      for (size_t n : lengths)
        for (const auto& m : misalign)
          for (const auto& p : progresses) {
            const size_t bytes = n * kind.bytesPerSample;
            test::GuardedBuffer in(bytes, m[0]), out(bytes, m[1]), want(bytes, m[2]), got(bytes, m[2]);
            test::Rng rng(++seed);
            for (auto* b : {&in, &out, &want}) rng.Fill(b->data(), bytes);
            std::memcpy(got.data(), want.data(), bytes);
            const std::vector<uint8_t> inCopy(in.data(), in.data() + bytes),
                outCopy(out.data(), out.data() + bytes);
            ASSERT_TRUE(
                SameRun(form, kind, in.data(), out.data(), want.data(), got.data(), n, p[0], p[1], seed));
            ASSERT_TRUE(got.GuardsIntact()) << form.name << " seed " << seed;
            ASSERT_EQ(std::memcmp(in.data(), inCopy.data(), bytes), 0) << seed;
            ASSERT_EQ(std::memcmp(out.data(), outCopy.data(), bytes), 0) << seed;
          }
}

// All 65537 progress values of the mux's span over a run that takes every
// step of every form, the data window moving with the progress; then every
// pair of 8-bit samples at every progress of spans whose t is not exact.
TEST(DissolveRowForms, MatchPlainAtEveryProgressAndSamplePair) {
  constexpr size_t kRun = 64 + 32 + 7;
  std::vector<uint8_t> pool(2 * kRun + 4096), want(2 * 65536), got(2 * 65536);
  test::Rng(77).Fill(pool.data(), pool.size());
  std::vector<uint8_t> ins(65536), outs(65536);
  for (size_t i = 0; i < 65536; ++i) {
    ins[i] = static_cast<uint8_t>(i);
    outs[i] = static_cast<uint8_t>(i >> 8);
  }
  for (const auto& form : RunnableForms()) {
    for (const auto& kind : kKinds)
      for (uint32_t progress = 0; progress <= 65536; ++progress)
        ASSERT_TRUE(SameRun(form, kind, &pool[progress % 2048], &pool[4096 - progress % 2039], want.data(),
                            got.data(), kRun, progress, 65536, 77));
    for (uint32_t span : {1u, 3u, 7u, 100u})
      for (uint32_t progress = 0; progress <= span; ++progress)
        ASSERT_TRUE(SameRun(form, kKinds[0], ins.data(), outs.data(), want.data(), got.data(), 65536,
                            progress, span, 0));
  }
}

}  // namespace
}  // namespace zr::fx
