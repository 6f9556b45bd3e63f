// Checkasm-style checks of a kernel family's forms against its reference.
#ifndef ZR_TESTS_COMMON_FORM_CHECK_H
#define ZR_TESTS_COMMON_FORM_CHECK_H

#include <gtest/gtest.h>

#include <span>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "platform/cpu_choice.h"

namespace zr::test {

// Every remainder of the widest vector step, and a few long rows.
inline std::vector<uint32_t> FormWidths() {
  std::vector<uint32_t> widths{63, 64, 65, 257, 1000, 1921};
  for (uint32_t w = 1; w <= 33; ++w) widths.push_back(w);
  return widths;
}

// check(form) for each form this processor runs, the choice limited to it.
template <class Form, class Check>
void ForEachForm(std::span<const Form> forms, Check check) {
  for (const Form& form : forms) {
    if ((form.isa & cpu::Detected()) != form.isa) continue;
    SCOPED_TRACE(cpu::IsaName(form.isa));
    cpu::SetMask(form.isa);
    check(form);
  }
  cpu::SetMask(cpu::kAnyIsa);
}

// run(reference, a, b, out) row by row on seeded data, for the reference on
// copies and for the form on buffers with pitches wider than the rows,
// `misalign` (b: + 1) bytes off alignment, sources ending with their
// allocations (for the address sanitizer) and a guarded destination, which
// is compared whole. `unit` is the destination's bytes per x.
template <class Run>
::testing::AssertionResult SameAsReference(uint64_t seed, size_t inRow, size_t outRow, size_t unit,
                                           size_t misalign, Run run, uint32_t rows = 3) {
  const size_t inPitch = inRow + 5, outPitch = outRow + 11, outBytes = outPitch * rows;
  std::vector<uint8_t> a(misalign + inPitch * (rows - 1) + inRow), b(a.size() + 1);
  GuardedBuffer out(outBytes, 2 * misalign);
  Rng rng(seed);
  for (auto* v : {&a, &b}) rng.Fill(v->data(), v->size());
  rng.Fill(out.data(), outBytes);
  const std::vector<uint8_t> a0 = a, b0 = b;
  std::vector<uint8_t> want(out.data(), out.data() + outBytes);
  for (uint32_t y = 0; y < rows; ++y) {
    const size_t in = misalign + y * inPitch;
    run(true, &a0[in], &b0[in + 1], &want[y * outPitch]);
    run(false, &a[in], &b[in + 1], &out[y * outPitch]);
  }
  auto failure = ::testing::AssertionFailure() << "seed " << seed << ": ";
  for (size_t i = 0; i < outBytes; ++i)
    if (out[i] != want[i])
      return failure << "first difference at x " << i % outPitch / unit << ", y " << i / outPitch << " (got "
                     << int{out[i]} << ", want " << int{want[i]} << ")";
  if (a != a0 || b != b0) return failure << "a source was written";
  if (!out.GuardsIntact()) return failure << "a guard byte was written";
  return ::testing::AssertionSuccess();
}

}  // namespace zr::test

#endif
