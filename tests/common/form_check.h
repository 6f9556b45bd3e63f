// Checkasm-style checks of a kernel family's forms against its reference:
// each form the processor has is chosen through the processor-choice mask and
// run on seeded random rows beside the reference.
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
  std::vector<uint32_t> widths;
  for (uint32_t w = 1; w <= 33; ++w) widths.push_back(w);
  for (uint32_t w : {63u, 64u, 65u, 257u, 1000u, 1921u}) widths.push_back(w);
  return widths;
}

// Calls check(form) for each form this processor runs, with the choice
// limited to that form's instruction set; lifts the limit afterwards.
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

// Runs run(reference, a, b, out) row by row over `rows` rows: for the
// reference on copies, then for the form, on seeded buffers whose pitches
// exceed the rows and which sit `misalign` (b: misalign + 1) bytes off
// alignment. The whole destination must match, its guards included, and the
// sources must be untouched.
// `unit` is the bytes per x of the destination.
template <class Run>
::testing::AssertionResult SameAsReference(uint64_t seed, size_t inRow, size_t outRow, size_t unit,
                                           size_t misalign, Run run, uint32_t rows = 3) {
  const size_t inPitch = inRow + 5, outPitch = outRow + 11;
  // The sources end where their allocations end, so that the address
  // sanitizer sees a read past the last row.
  const size_t inBytes = inPitch * (rows - 1) + inRow, outBytes = outPitch * rows;
  std::vector<uint8_t> a(misalign + inBytes), b(misalign + 1 + inBytes);
  GuardedBuffer out(outBytes, 2 * misalign);
  Rng rng(seed);
  rng.Fill(a.data(), a.size());
  rng.Fill(b.data(), b.size());
  rng.Fill(out.data(), outBytes);
  const std::vector<uint8_t> a0 = a, b0 = b;
  std::vector<uint8_t> want(out.data(), out.data() + outBytes);
  for (uint32_t y = 0; y < rows; ++y) {
    run(true, a0.data() + misalign + y * inPitch, b0.data() + misalign + 1 + y * inPitch,
        want.data() + y * outPitch);
    run(false, a.data() + misalign + y * inPitch, b.data() + misalign + 1 + y * inPitch,
        out.data() + y * outPitch);
  }
  for (size_t i = 0; i < outBytes; ++i)
    if (out[i] != want[i])
      return ::testing::AssertionFailure()
             << "seed " << seed << ": first difference at x " << i % outPitch / unit << ", y " << i / outPitch
             << " (got " << int{out[i]} << ", want " << int{want[i]} << ")";
  if (a != a0 || b != b0) return ::testing::AssertionFailure() << "seed " << seed << ": a source was written";
  if (!out.GuardsIntact())
    return ::testing::AssertionFailure() << "seed " << seed << ": a guard byte was written";
  return ::testing::AssertionSuccess();
}

}  // namespace zr::test

#endif
