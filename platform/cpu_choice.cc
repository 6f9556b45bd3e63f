#include "platform/cpu_choice.h"

#include <atomic>

#if defined(__x86_64__)
#include <cpuid.h>
#endif

namespace zr::cpu {
namespace {

std::atomic<uint32_t> gMask{kAnyIsa};

constexpr uint32_t B(int n) { return uint32_t{1} << n; }

uint32_t Read() {
#if defined(__x86_64__)
  uint32_t leaf0[4], leaf1[4], leaf7[4] = {};
  Cpuid(0, 0, leaf0);
  Cpuid(1, 0, leaf1);
  if (leaf0[0] >= 7) Cpuid(7, 0, leaf7);
  const uint32_t xcr0 = Xcr0();
  uint32_t isas = kSse41;
  // AVX2 with the YMM state saved by the system; AVX-512 F, DQ, BW and VL
  // (the forms are built with all four) with the opmask and ZMM state too.
  if ((xcr0 & 0x6) == 0x6 && (leaf1[2] & B(28)) && (leaf7[1] & B(5))) isas |= kAvx2;
  const uint32_t avx512 = B(16) | B(17) | B(30) | B(31);
  if ((isas & kAvx2) && (xcr0 & 0xE6) == 0xE6 && (leaf7[1] & avx512) == avx512) isas |= kAvx512;
  return isas;
#else
  return kNeon;
#endif
}

}  // namespace

#if defined(__x86_64__)
void Cpuid(uint32_t leaf, uint32_t subLeaf, uint32_t (&regs)[4]) {
  __cpuid_count(leaf, subLeaf, regs[0], regs[1], regs[2], regs[3]);
}

uint32_t Xcr0() {
  uint32_t leaf1[4];
  Cpuid(1, 0, leaf1);
  // xgetbv faults unless the system has enabled it (OSXSAVE).
  if ((leaf1[2] & B(27)) == 0) return 0;
  uint32_t lo, hi;
  __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
  return lo;
}
#endif

uint32_t Detected() {
  static const uint32_t isas = Read();
  return isas;
}

uint32_t Usable() { return Detected() & gMask.load(std::memory_order_relaxed); }

void SetMask(uint32_t mask) { gMask.store(mask, std::memory_order_relaxed); }

const char* IsaName(uint32_t isa) {
  switch (isa) {
    case 0:
      return "scalar";
    case kSse41:
      return "sse41";
    case kAvx2:
      return "avx2";
    case kAvx512:
      return "avx512";
    case kNeon:
      return "neon";
    default:
      return "?";
  }
}

}  // namespace zr::cpu
