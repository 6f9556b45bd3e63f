// The processor choice: the mask limits it, and lifting the mask gives back
// the widest form the processor runs.
#include "platform/cpu_choice.h"

#include <gtest/gtest.h>

namespace zr::cpu {
namespace {

struct Form {
  uint32_t isa;
};
#if defined(__x86_64__)
constexpr Form kForms[] = {{kAvx512}, {kAvx2}, {kSse41}};
#else
constexpr Form kForms[] = {{kNeon}};
#endif

uint32_t Chosen() { return Widest(std::span<const Form>(kForms)).isa; }

TEST(CpuChoice, MaskLimitsTheChoiceAndLiftingItRestoresTheWidest) {
  const uint32_t baseline = kForms[std::size(kForms) - 1].isa;
  ASSERT_EQ(Detected() & baseline, baseline);
  uint32_t widest = 0;
  for (const Form& form : kForms) widest = widest ? widest : form.isa & Detected();
  EXPECT_EQ(Chosen(), widest);
  for (const Form& form : kForms) {
    SetMask(form.isa);
    EXPECT_EQ(Chosen(), form.isa & Detected() ? form.isa : baseline) << IsaName(form.isa);
  }
  SetMask(0);
  EXPECT_EQ(Chosen(), baseline);  // taken when nothing is usable
  SetMask(kAnyIsa);
  EXPECT_EQ(Chosen(), widest);
}

}  // namespace
}  // namespace zr::cpu
