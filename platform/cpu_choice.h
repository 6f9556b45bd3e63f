// The choice of a kernel family's form at run time, the same for every
// family: the processor's instruction sets are read once a process, a
// family lists its forms widest first, and the widest usable one runs.
#ifndef ZR_PLATFORM_CPU_CHOICE_H
#define ZR_PLATFORM_CPU_CHOICE_H

#include <cstdint>
#include <span>

namespace zr::cpu {

// Instruction sets that forms are built for, named like the source suffixes.
// The build's baseline (sse41, or neon) is always there.
enum Isa : uint32_t { kSse41 = 1, kAvx2 = 2, kAvx512 = 4, kNeon = 8 };
inline constexpr uint32_t kAnyIsa = ~0u;

#if defined(__x86_64__)
// cpuid of leaf and sub-leaf into eax, ebx, ecx, edx, as the processor
// answers (leaf 0 gives the highest leaf). The one place that runs cpuid.
void Cpuid(uint32_t leaf, uint32_t subLeaf, uint32_t (&regs)[4]);
// XCR0, the register state the system saves; 0 unless cpuid says OSXSAVE.
uint32_t Xcr0();
#endif

// The sets this processor runs, read on first use (thread-safe).
uint32_t Detected();
// The sets a choice may use: Detected() within the mask.
uint32_t Usable();
// Tests and benchmarks restrict the choice to the sets in `mask` (kAnyIsa
// lifts the restriction) to run each form through the entry points. Not
// exported.
void SetMask(uint32_t mask);

// "sse41", "avx2", "avx512", "neon", or "scalar" for 0.
const char* IsaName(uint32_t isa);

// The widest usable form. `forms` is listed widest first and ends with the
// build's baseline, which is taken when nothing wider is usable. A form has
// an `isa` member.
template <class Form>
const Form& Widest(std::span<const Form> forms) {
  const uint32_t usable = Usable();
  for (const Form& form : forms)
    if ((form.isa & usable) == form.isa) return form;
  return forms.back();
}

}  // namespace zr::cpu

#endif
