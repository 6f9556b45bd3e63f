// The v210 row loops for SSE4.1, AVX2 and AVX-512: one group of 6 pixels in
// each 128-bit lane, so 6, 12 or 24 pixels a step.
#include "fx/adapters/v210_rows.h"
#include "platform/simd_x86.h"

namespace zr::fx::ZR_ISA_NS {
namespace {

using V = ::zr::ZR_ISA_NS::Wide;
using T = V::T;

constexpr uint8_t Z = 0x80;  // shuffle to zero
constexpr uint32_t kPixels = 6 * V::kLanes;
constexpr size_t kGroupBytes = 16, kGroupPlane = 18;

// After the shifts below, byte 4i + s of the group is field s of word i
// (s = 0, 1, 2 for the fields at bits 0, 10, 20, each cut to its high 8 bits).
// Plane bytes 0..15 and 2..17 of the group, taken from those field bytes.
alignas(16) constexpr uint8_t kPlaneLow[16] = {1, 0, 2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14};
alignas(16) constexpr uint8_t kPlaneHigh[16] = {2, 4, 0, 2, 6, 5, 8, 9, 5, 8, 12, 10, 13, 14, 10, 13};

// From plane bytes 0..15 of a group: per word, the fields at bits 0 and 20
// in the low bytes of its two halves, and the field at bit 10 in byte 1.
alignas(16) constexpr uint8_t kOuterFields[16] = {1, Z, 2, Z, 3, Z, 6, Z, 8, Z, 13, Z, 12, Z, 15, Z};
alignas(16) constexpr uint8_t kMiddleFields[16] = {Z, 0, Z, Z, Z, 7, Z, Z, Z, 9, Z, Z, Z, 14, Z, Z};

T Table(const uint8_t (&t)[16]) { return V::Lanes(_mm_load_si128(reinterpret_cast<const __m128i*>(t))); }

}  // namespace

void ExpandV210Row(const uint8_t* src, uint8_t* plane, uint32_t width) {
  const T low = Table(kPlaneLow), high = Table(kPlaneHigh);
  const T byte0 = V::Set32(0xFF), byte1 = V::Set32(0xFF00), bytes23 = V::Set32(0xFFFF0000u);
  uint32_t x = 0;
  for (; x + kPixels <= width;
       x += kPixels, src += kGroupBytes * V::kLanes, plane += kGroupPlane * V::kLanes) {
    const T w = V::Load(src);
    // Bits 2..9 to byte 0, 12..19 to byte 1, 22..29 to byte 2 of each word.
    const T fields = V::Or3(V::And(V::Srli32<2>(w), byte0), V::And(V::Srli32<4>(w), byte1),
                            V::And(V::Srli32<6>(w), bytes23));
    V::StoreLanes(plane, kGroupPlane, V::Shuffle8(fields, low));
    V::StoreLanes(plane + 2, kGroupPlane, V::Shuffle8(fields, high));
  }
  ExpandV210Row_C(src, plane, width - x);
}

void PackV210Row(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  const T outer = Table(kOuterFields), middle = Table(kMiddleFields);
  // Per word: the low half times 4 (field at bit 0), the high half times 64
  // (field at bit 20, as 16 + 6).
  const T scale = V::Set32(0x00400004);
  uint32_t x = 0;
  for (; x + kPixels <= width;
       x += kPixels, plane += kGroupPlane * V::kLanes, dst += kGroupBytes * V::kLanes) {
    const T p = V::LoadLanes(plane, kGroupPlane);
    V::Store(dst, V::Or(V::MulLo16(V::Shuffle8(p, outer), scale), V::Slli32<4>(V::Shuffle8(p, middle))));
  }
  PackV210Row_C(plane, dst, width - x);
}

}  // namespace zr::fx::ZR_ISA_NS
