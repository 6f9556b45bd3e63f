// The 4:2:2 row loops with SSE4.1: 16 pixels a step, by byte shuffles.
#include <smmintrin.h>

#include <array>

#include "fx/adapters/ycbcr422_rows.h"

namespace zr::fx {
namespace {

using Mask = std::array<uint8_t, 16>;
constexpr uint8_t kZero = 0x80;

// Byte of a 32-byte source step (16 pixels) that plane byte i comes from.
constexpr int ExpandSource(int i) {
  constexpr int kY[4] = {1, 2, 5, 6}, kCb[4] = {0, 0, 4, 4}, kCr[4] = {3, 3, 7, 7};
  const int pixel = i / 3, base = 8 * (pixel / 4), k = pixel % 4;
  const int sample = i % 3;
  return base + (sample == 0 ? kY[k] : sample == 1 ? kCb[k] : kCr[k]);
}

// Byte of a 48-byte plane step (16 pixels) that output byte o comes from.
constexpr int PackSource(int o) {
  constexpr int kPick[4] = {1, 0, 3, 2};
  return 6 * (o / 4) + kPick[o % 4];
}

// The shuffle that fills output chunk `chunk` with the bytes found in input
// vector `vec`, zero elsewhere.
template <int (*Source)(int)>
constexpr Mask ChunkMask(int chunk, int vec) {
  Mask m{};
  for (int b = 0; b < 16; ++b) {
    const int s = Source(16 * chunk + b);
    m[b] = s / 16 == vec ? static_cast<uint8_t>(s % 16) : kZero;
  }
  return m;
}

constexpr bool Unused(const Mask& m) {
  for (uint8_t b : m)
    if (b != kZero) return false;
  return true;
}

constexpr Mask kExpand0From0 = ChunkMask<ExpandSource>(0, 0);
constexpr Mask kExpand1From0 = ChunkMask<ExpandSource>(1, 0);
constexpr Mask kExpand1From1 = ChunkMask<ExpandSource>(1, 1);
constexpr Mask kExpand2From1 = ChunkMask<ExpandSource>(2, 1);
static_assert(Unused(ChunkMask<ExpandSource>(0, 1)) && Unused(ChunkMask<ExpandSource>(2, 0)));

constexpr Mask kPack0From0 = ChunkMask<PackSource>(0, 0);
constexpr Mask kPack0From1 = ChunkMask<PackSource>(0, 1);
constexpr Mask kPack1From1 = ChunkMask<PackSource>(1, 1);
constexpr Mask kPack1From2 = ChunkMask<PackSource>(1, 2);
static_assert(Unused(ChunkMask<PackSource>(0, 2)) && Unused(ChunkMask<PackSource>(1, 0)));

inline __m128i Load(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i Load(const Mask& m) { return Load(m.data()); }
inline void Store(uint8_t* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }

}  // namespace

void ExpandYCbCr422Row_SSE41(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const __m128i e00 = Load(kExpand0From0), e10 = Load(kExpand1From0);
  const __m128i e11 = Load(kExpand1From1), e21 = Load(kExpand2From1);
  uint32_t x = 0;
  for (; x + 16 <= width; x += 16) {
    const __m128i s0 = Load(src + 2 * x), s1 = Load(src + 2 * x + 16);
    uint8_t* const p = plane + 3 * x;
    Store(p, _mm_shuffle_epi8(s0, e00));
    Store(p + 16, _mm_or_si128(_mm_shuffle_epi8(s0, e10), _mm_shuffle_epi8(s1, e11)));
    Store(p + 32, _mm_shuffle_epi8(s1, e21));
  }
  ExpandYCbCr422Row_C(src + 2 * x, plane + 3 * x, width - x);
}

void PackYCbCr422Row_SSE41(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const __m128i k00 = Load(kPack0From0), k01 = Load(kPack0From1);
  const __m128i k11 = Load(kPack1From1), k12 = Load(kPack1From2);
  uint32_t x = 0;
  for (; x + 16 <= width; x += 16) {
    const uint8_t* const p = plane + 3 * x;
    const __m128i p0 = Load(p), p1 = Load(p + 16), p2 = Load(p + 32);
    Store(dst + 2 * x, _mm_or_si128(_mm_shuffle_epi8(p0, k00), _mm_shuffle_epi8(p1, k01)));
    Store(dst + 2 * x + 16, _mm_or_si128(_mm_shuffle_epi8(p1, k11), _mm_shuffle_epi8(p2, k12)));
  }
  PackYCbCr422Row_C(plane + 3 * x, dst + 2 * x, width - x);
}

}  // namespace zr::fx
