# Which of the two builds this is: the SSE build (x86-64) or the NEON build
# (aarch64). Everything else in the tree keys off ZR_ARCH_X86 / ZR_ARCH_ARM.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
  set(ZR_ARCH_X86 ON)
  set(ZR_ARCH_ARM OFF)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64|ARM64)$")
  set(ZR_ARCH_X86 OFF)
  set(ZR_ARCH_ARM ON)
else()
  message(FATAL_ERROR "zrdraw builds for x86-64 and aarch64 only, not ${CMAKE_SYSTEM_PROCESSOR}")
endif()

# Flags of every translation unit of the library, tests and tools.
# Floating point must be deterministic across builds: no fused multiply-add
# (GCC fuses by default on aarch64) and never -ffast-math.
set(ZR_COMMON_FLAGS -ffp-contract=off -fno-strict-aliasing -Wall -Wextra)
if(ZR_ARCH_X86)
  # The SSE build's baseline.
  list(APPEND ZR_COMMON_FLAGS -msse4.1)
endif()

# Per-instruction-set flags, picked by the suffix of a source file.
set(ZR_ISA_FLAGS_sse41 -msse4.1)
set(ZR_ISA_FLAGS_avx2 -mavx2)
set(ZR_ISA_FLAGS_avx512 -mavx512f -mavx512bw -mavx512vl -mavx512dq)
set(ZR_ISA_FLAGS_neon "")
if(ZR_ARCH_X86)
  set(ZR_ISAS sse41 avx2 avx512)
else()
  set(ZR_ISAS neon)
endif()
