// The processor choice: the mask limits it, and lifting the mask gives back
// the widest form the processor runs.
#include "platform/cpu_choice.h"

#include <gtest/gtest.h>

namespace zr::cpu {
namespace {

struct Form {
  uint32_t isa;
  int id;
};

#if defined(__x86_64__)
constexpr Form kForms[] = {{kAvx512, 0}, {kAvx2, 1}, {kSse41, 2}};
constexpr uint32_t kBaseline = kSse41;
#else
constexpr Form kForms[] = {{kNeon, 0}};
constexpr uint32_t kBaseline = kNeon;
#endif

int Widest() { return cpu::Widest(std::span<const Form>(kForms)).id; }

TEST(CpuChoice, MaskLimitsTheChoiceAndLiftingItRestoresTheWidest) {
  ASSERT_EQ(Detected() & kBaseline, kBaseline);
  EXPECT_EQ(Detected(), Detected());
  int widest = 0;
  while ((kForms[widest].isa & Detected()) != kForms[widest].isa) ++widest;
  EXPECT_EQ(Widest(), kForms[widest].id);
  for (const Form& form : kForms) {
    SetMask(form.isa);
    const bool runs = (form.isa & Detected()) == form.isa;
    EXPECT_EQ(Widest(), runs ? form.id : kForms[std::size(kForms) - 1].id) << IsaName(form.isa);
    EXPECT_EQ(Usable(), form.isa & Detected());
  }
  SetMask(0);
  EXPECT_EQ(Widest(), kForms[std::size(kForms) - 1].id);  // the baseline when nothing is usable
  SetMask(kAnyIsa);
  EXPECT_EQ(Widest(), kForms[widest].id);
  EXPECT_EQ(Usable(), Detected());
}

}  // namespace
}  // namespace zr::cpu
