// What the processor offers beyond the SSE build's SSE4.1 baseline, for the
// choice of a vector form at run time. Read from the processor on each call:
// nothing is cached and no environment or file has a say.
#ifndef ZR_MUX_CPU_CHOICE_H
#define ZR_MUX_CPU_CHOICE_H

namespace zr::mux {

#if defined(__x86_64__)
inline bool HasAvx2() { return __builtin_cpu_supports("avx2"); }
// The AVX-512 forms use the F and BW subsets at 512 bits.
inline bool HasAvx512Bw() { return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw"); }
#endif

}  // namespace zr::mux

#endif
