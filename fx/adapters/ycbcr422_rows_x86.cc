// The 4:2:2 row loops for SSE4.1, AVX2 and AVX-512, by byte shuffles: 16
// pixels in each 128-bit lane, so 16, 32 or 64 pixels a step.
#include "fx/adapters/ycbcr422_rows.h"
#include "platform/simd_x86.h"

namespace zr::fx::ZR_ISA_NS {
namespace {

using V = ::zr::ZR_ISA_NS::Wide;
using T = V::T;

constexpr uint32_t kPixels = 16 * V::kLanes;
constexpr size_t kChunkSrc = 32, kChunkPlane = 48;  // bytes of 16 pixels
constexpr uint8_t kZero = 0x80;

struct Mask {
  uint8_t b[16];
};

// Byte of a 32-byte source chunk that plane byte i comes from.
constexpr int ExpandSource(int i) {
  constexpr int kY[4] = {1, 2, 5, 6}, kCb[4] = {0, 0, 4, 4}, kCr[4] = {3, 3, 7, 7};
  const int pixel = i / 3, base = 8 * (pixel / 4), k = pixel % 4;
  const int sample = i % 3;
  return base + (sample == 0 ? kY[k] : sample == 1 ? kCb[k] : kCr[k]);
}

// Byte of a 48-byte plane chunk that output byte o comes from.
constexpr int PackSource(int o) {
  constexpr int kPick[4] = {1, 0, 3, 2};
  return 6 * (o / 4) + kPick[o % 4];
}

// The shuffle that fills output vector `chunk` with the bytes found in input
// vector `vec`, zero elsewhere.
template <int (*Source)(int)>
constexpr Mask ChunkMask(int chunk, int vec) {
  Mask m{};
  for (int b = 0; b < 16; ++b) {
    const int s = Source(16 * chunk + b);
    m.b[b] = s / 16 == vec ? static_cast<uint8_t>(s % 16) : kZero;
  }
  return m;
}

constexpr bool Unused(const Mask& m) {
  for (uint8_t b : m.b)
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

T Table(const Mask& m) { return V::Lanes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(m.b))); }

}  // namespace

void ExpandYCbCr422Row(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const T e00 = Table(kExpand0From0), e10 = Table(kExpand1From0);
  const T e11 = Table(kExpand1From1), e21 = Table(kExpand2From1);
  uint32_t x = 0;
  for (; x + kPixels <= width; x += kPixels) {
    const uint8_t* const s = src + 2 * x;
    const T s0 = V::LoadLanes(s, kChunkSrc), s1 = V::LoadLanes(s + 16, kChunkSrc);
    uint8_t* const p = plane + 3 * x;
    V::StoreLanes(p, kChunkPlane, V::Shuffle8(s0, e00));
    V::StoreLanes(p + 16, kChunkPlane, V::Or(V::Shuffle8(s0, e10), V::Shuffle8(s1, e11)));
    V::StoreLanes(p + 32, kChunkPlane, V::Shuffle8(s1, e21));
  }
  ExpandYCbCr422Row_C(src + 2 * x, plane + 3 * x, width - x);
}

void PackYCbCr422Row(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const T k00 = Table(kPack0From0), k01 = Table(kPack0From1);
  const T k11 = Table(kPack1From1), k12 = Table(kPack1From2);
  uint32_t x = 0;
  for (; x + kPixels <= width; x += kPixels) {
    const uint8_t* const p = plane + 3 * x;
    const T p0 = V::LoadLanes(p, kChunkPlane), p1 = V::LoadLanes(p + 16, kChunkPlane);
    const T p2 = V::LoadLanes(p + 32, kChunkPlane);
    V::StoreLanes(dst + 2 * x, kChunkSrc, V::Or(V::Shuffle8(p0, k00), V::Shuffle8(p1, k01)));
    V::StoreLanes(dst + 2 * x + 16, kChunkSrc, V::Or(V::Shuffle8(p1, k11), V::Shuffle8(p2, k12)));
  }
  PackYCbCr422Row_C(plane + 3 * x, dst + 2 * x, width - x);
}

}  // namespace zr::fx::ZR_ISA_NS
