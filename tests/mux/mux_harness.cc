#include "mux/mux_harness.h"

#include <cstdio>
#include <cstring>

#include "common/test_random.h"

namespace zr::test {

MuxRun::MuxRun(const MuxArgs& g, uint64_t seed, size_t misalign, bool sameSources)
    : bytes((size_t{g.height} + 1) * g.pitch + 8),
      a(bytes, misalign),
      b(bytes, misalign),
      out(bytes, misalign),
      same(sameSources) {
  Rng rng(seed);
  rng.Fill(a.data(), bytes);
  rng.Fill(b.data(), bytes);
  rng.Fill(out.data(), bytes);
  modelA.assign(a.data(), a.data() + bytes);
  modelB.assign(b.data(), b.data() + bytes);
  modelOut.assign(out.data(), out.data() + bytes);
}

::testing::AssertionResult MuxRun::Matches(const MuxArgs& g, uint64_t seed) {
  uint8_t* libB = same ? a.data() : b.data();
  uint8_t* modB = same ? modelA.data() : modelB.data();
  if (CallMux(a.data(), libB, out.data(), g) != 0) return ::testing::AssertionFailure() << "result not 0";
  ModelMux(modelA.data(), modB, modelOut.data(), g, kSideBySideEngine);

  const auto describe = [&](const char* what) {
    char flags[16];
    std::snprintf(flags, sizeof flags, "0x%08X", g.muxFlags);
    return ::testing::AssertionFailure() << what << " (seed " << seed << ", flags " << flags << ", "
                                         << g.width << "x" << g.height << " pitch " << g.pitch << ")";
  };
  if (!a.GuardsIntact() || !b.GuardsIntact() || !out.GuardsIntact()) return describe("guard bytes written");
  const struct {
    const char* name;
    const uint8_t* lib;
    const uint8_t* model;
  } frames[] = {{"frameA", a.data(), modelA.data()},
                {"frameB", b.data(), modelB.data()},
                {"frameOut", out.data(), modelOut.data()}};
  const size_t pitch = g.pitch ? g.pitch : 1;
  for (const auto& f : frames)
    for (size_t i = 0; i < bytes; ++i)
      if (f.lib[i] != f.model[i])
        return describe(f.name) << ": first difference at byte " << i << " (y " << i / pitch << ", x "
                                << (i % pitch) / 4 << ", byte " << i % 4 << "): " << int{f.lib[i]}
                                << " instead of " << int{f.model[i]};
  return ::testing::AssertionSuccess();
}

}  // namespace zr::test
