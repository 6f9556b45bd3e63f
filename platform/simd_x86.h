// The vector traits that the x86 kernel bodies (files ending in _x86.cc) are
// written over. Such a body is compiled once per instruction set with that
// set's flags, and everything here and in the body lives in the namespace
// ZR_ISA_NS names (sse41, avx2, avx512): no copy built for a wider set can
// ever serve code of another.
//
// V128, V256 and V512 wrap the integer operations that exist at each width
// under one name each; `Wide` is the widest of them the set has. Operations
// that only some widths have (the AVX-512 mask forms, pblendvb) are left to
// the bodies, under ZR_ISA_avx512.
#ifndef ZR_PLATFORM_SIMD_X86_H
#define ZR_PLATFORM_SIMD_X86_H

#ifndef ZR_ISA_NS
#error "build x86 kernel bodies through zr_sources() with the _x86 suffix"
#endif

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "platform/cpu_choice.h"

#if defined(ZR_ISA_avx512)
// GCC 12 warns about the undefined inputs that its own AVX-512 intrinsics
// pass to their builtins (fixed in GCC 13); nothing here is uninitialised.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

namespace zr::ZR_ISA_NS {

#define ZR_VEC_OPS(P, S)                                                                                    \
  static T Load(const void* p) { return P##loadu_##S(reinterpret_cast<const T*>(p)); }                      \
  static void Store(void* p, T v) { P##storeu_##S(reinterpret_cast<T*>(p), v); }                            \
  static void Stream(void* p, T v) { P##stream_##S(reinterpret_cast<T*>(p), v); }                           \
  static T Zero() { return P##setzero_##S(); }                                                              \
  static T Set8(int v) { return P##set1_epi8(static_cast<char>(v)); }                                       \
  static T Set16(int v) { return P##set1_epi16(static_cast<short>(v)); }                                    \
  static T Set32(uint32_t v) { return P##set1_epi32(static_cast<int>(v)); }                                 \
  static T And(T a, T b) { return P##and_##S(a, b); }                                                       \
  static T Or(T a, T b) { return P##or_##S(a, b); }                                                         \
  static T AndNot(T a, T b) { return P##andnot_##S(a, b); }                                                 \
  static T Xor(T a, T b) { return P##xor_##S(a, b); }                                                       \
  static T Add8(T a, T b) { return P##add_epi8(a, b); }                                                     \
  static T Add16(T a, T b) { return P##add_epi16(a, b); }                                                   \
  static T Add32(T a, T b) { return P##add_epi32(a, b); }                                                   \
  static T Sub8(T a, T b) { return P##sub_epi8(a, b); }                                                     \
  static T Sub16(T a, T b) { return P##sub_epi16(a, b); }                                                   \
  static T Sub32(T a, T b) { return P##sub_epi32(a, b); }                                                   \
  static T AvgU8(T a, T b) { return P##avg_epu8(a, b); }                                                    \
  static T SubsU8(T a, T b) { return P##subs_epu8(a, b); }                                                  \
  static T MaxU8(T a, T b) { return P##max_epu8(a, b); }                                                    \
  static T MinU16(T a, T b) { return P##min_epu16(a, b); }                                                  \
  static T MulLo16(T a, T b) { return P##mullo_epi16(a, b); }                                               \
  static T MulHiU16(T a, T b) { return P##mulhi_epu16(a, b); }                                              \
  static T MulHi16(T a, T b) { return P##mulhi_epi16(a, b); }                                               \
  static T MulLo32(T a, T b) { return P##mullo_epi32(a, b); }                                               \
  static T MAddUbs(T a, T b) { return P##maddubs_epi16(a, b); }                                             \
  static T MAdd16(T a, T b) { return P##madd_epi16(a, b); }                                                 \
  static T UnpackLo8(T a, T b) { return P##unpacklo_epi8(a, b); }                                           \
  static T UnpackHi8(T a, T b) { return P##unpackhi_epi8(a, b); }                                           \
  static T UnpackLo16(T a, T b) { return P##unpacklo_epi16(a, b); }                                         \
  static T UnpackHi16(T a, T b) { return P##unpackhi_epi16(a, b); }                                         \
  static T PackUs16(T a, T b) { return P##packus_epi16(a, b); }                                             \
  static T PackUs32(T a, T b) { return P##packus_epi32(a, b); }                                             \
  static T Shuffle8(T a, T b) { return P##shuffle_epi8(a, b); }                                             \
  template <int n>                                                                                          \
  static T Srli16(T a) {                                                                                    \
    return P##srli_epi16(a, n);                                                                             \
  }                                                                                                         \
  template <int n>                                                                                          \
  static T Srli32(T a) {                                                                                    \
    return P##srli_epi32(a, n);                                                                             \
  }                                                                                                         \
  template <int n>                                                                                          \
  static T Srai32(T a) {                                                                                    \
    return P##srai_epi32(a, n);                                                                             \
  }                                                                                                         \
  template <int n>                                                                                          \
  static T Slli32(T a) {                                                                                    \
    return P##slli_epi32(a, n);                                                                             \
  }                                                                                                         \
  /* Each 128-bit lane from memory kLanes apart, lane i at p + i * stride. */                               \
  static T LoadLanes(const uint8_t* p, size_t stride) {                                                     \
    __m128i lane[kLanes];                                                                                   \
    for (int i = 0; i < kLanes; ++i)                                                                        \
      lane[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i * stride));                          \
    return Join(lane);                                                                                      \
  }                                                                                                         \
  static void StoreLanes(uint8_t* p, size_t stride, T v) {                                                  \
    __m128i lane[kLanes];                                                                                   \
    Split(v, lane);                                                                                         \
    for (int i = 0; i < kLanes; ++i) _mm_storeu_si128(reinterpret_cast<__m128i*>(p + i * stride), lane[i]); \
  }

// Byte shuffles, packs and unpacks act within each 128-bit lane at every
// width; a body that keeps to them keeps its lanes in order.
struct V128 {
  using T = __m128i;
  static constexpr int kBytes = 16, kLanes = 1;
  static T Lanes(__m128i lane) { return lane; }
  static T Join(const __m128i (&lane)[1]) { return lane[0]; }
  static void Split(T v, __m128i (&lane)[1]) { lane[0] = v; }
  static T CmpEq8(T a, T b) { return _mm_cmpeq_epi8(a, b); }
  static T CmpEq32(T a, T b) { return _mm_cmpeq_epi32(a, b); }
  static T Blend8(T a, T b, T mask) { return _mm_blendv_epi8(a, b, mask); }
  static T Or3(T a, T b, T c) { return _mm_or_si128(_mm_or_si128(a, b), c); }
  ZR_VEC_OPS(_mm_, si128)
};

#if defined(__AVX2__)
struct V256 {
  using T = __m256i;
  static constexpr int kBytes = 32, kLanes = 2;
  static T Lanes(__m128i lane) { return _mm256_broadcastsi128_si256(lane); }
  static T Join(const __m128i (&lane)[2]) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(lane[0]), lane[1], 1);
  }
  static void Split(T v, __m128i (&lane)[2]) {
    lane[0] = _mm256_castsi256_si128(v);
    lane[1] = _mm256_extracti128_si256(v, 1);
  }
  static T CmpEq8(T a, T b) { return _mm256_cmpeq_epi8(a, b); }
  static T CmpEq32(T a, T b) { return _mm256_cmpeq_epi32(a, b); }
  static T Blend8(T a, T b, T mask) { return _mm256_blendv_epi8(a, b, mask); }
  static T Or3(T a, T b, T c) { return _mm256_or_si256(_mm256_or_si256(a, b), c); }
  ZR_VEC_OPS(_mm256_, si256)
};
#endif

#if defined(__AVX512BW__)
struct V512 {
  using T = __m512i;
  static constexpr int kBytes = 64, kLanes = 4;
  static T Lanes(__m128i lane) { return _mm512_broadcast_i32x4(lane); }
  static T Join(const __m128i (&lane)[4]) {
    T v = _mm512_castsi128_si512(lane[0]);
    v = _mm512_inserti32x4(v, lane[1], 1);
    v = _mm512_inserti32x4(v, lane[2], 2);
    return _mm512_inserti32x4(v, lane[3], 3);
  }
  static void Split(T v, __m128i (&lane)[4]) {
    lane[0] = _mm512_castsi512_si128(v);
    lane[1] = _mm512_extracti32x4_epi32(v, 1);
    lane[2] = _mm512_extracti32x4_epi32(v, 2);
    lane[3] = _mm512_extracti32x4_epi32(v, 3);
  }
  static T Or3(T a, T b, T c) { return _mm512_ternarylogic_epi32(a, b, c, 0xFE); }
  ZR_VEC_OPS(_mm512_, si512)
};
#endif

#undef ZR_VEC_OPS

// The widest vector of the set, and the set's bit for the form tables.
#if defined(ZR_ISA_avx512)
using Wide = V512;
inline constexpr uint32_t kIsa = cpu::kAvx512;
#elif defined(ZR_ISA_avx2)
using Wide = V256;
inline constexpr uint32_t kIsa = cpu::kAvx2;
#else
using Wide = V128;
inline constexpr uint32_t kIsa = cpu::kSse41;
#endif

// Asks for the line 8 KiB past p. The processor's own prefetchers stop at each
// 4 KiB page, which leaves frames that live in L3 or memory short of loads in
// flight; this distance gave the best times at 1920x1080 and 3840x2160. The
// address is formed as an integer: it may lie past the frame and is never
// dereferenced.
inline void PrefetchAhead(const uint8_t* p) {
  _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(p) + 8192), _MM_HINT_T0);
}

// Asks for the line `distance` bytes past p (the same bytes of the next row
// a band takes, where a band narrower than its frame starts a new stream at
// every row, which the processor's prefetchers take a while to follow).
// Formed as an integer, as above.
inline void PrefetchAt(const uint8_t* p, size_t distance) {
  _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<uintptr_t>(p) + distance), _MM_HINT_T0);
}

// Output rows at least this long go to memory with streaming stores, which
// skip reading each line in before it is overwritten: a frame this size
// leaves the caches anyway, and skipping the reads saves a quarter of the
// traffic of a two-source mix.
inline constexpr uint32_t kStreamBytes = 4u << 20;

// Where streaming stores of 4-byte pixels can start: the pixels before
// out + 4 * head reaches a 64-byte line. False when no pixel of the row ever
// starts a line.
inline bool StreamStart(const uint8_t* out, uint32_t width, uint32_t& head) {
  const auto o = reinterpret_cast<uintptr_t>(out);
  if (o % 4 != 0) return false;
  const auto toLine = static_cast<uint32_t>((64 - o % 64) % 64 / 4);
  head = toLine < width ? toLine : width;
  return true;
}

// A loaded vector pinned to a register. Without it GCC folds later uses of
// the value into fresh loads from memory, which costs a third more time on
// frames that live in L3.
template <class T>
inline T InRegister(T v) {
  asm("" : "+v"(v));
  return v;
}

}  // namespace zr::ZR_ISA_NS

#endif
