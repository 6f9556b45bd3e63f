// The plain v210 row loops, the reference for the vector forms, and the
// choice of a form.
#include "fx/adapters/v210_rows.h"

#include <algorithm>

#include "platform/cpu_choice.h"

namespace zr::fx {
namespace {

uint32_t Word(const uint8_t* p) {
  return uint32_t{p[0]} | uint32_t{p[1]} << 8 | uint32_t{p[2]} << 16 | uint32_t{p[3]} << 24;
}

void PutWord(uint8_t* p, uint32_t w) {
  p[0] = static_cast<uint8_t>(w);
  p[1] = static_cast<uint8_t>(w >> 8);
  p[2] = static_cast<uint8_t>(w >> 16);
  p[3] = static_cast<uint8_t>(w >> 24);
}

uint8_t High8(uint32_t word, int shift) { return static_cast<uint8_t>(word >> shift); }

// A 10-bit field holding the plane byte in its high 8 bits.
uint32_t Field(uint8_t sample, int shift) { return uint32_t{sample} << (shift + 2); }

}  // namespace

void ExpandV210Row_C(const uint8_t* src, uint8_t* plane, uint32_t width) {
  for (uint32_t x = 0; x < width; x += 6, src += 16, plane += 18) {
    const uint32_t w0 = Word(src), w1 = Word(src + 4), w2 = Word(src + 8), w3 = Word(src + 12);
    const uint8_t group[18] = {
        High8(w0, 12), High8(w0, 2),  High8(w0, 22),  // pixel 0
        High8(w1, 2),  High8(w0, 2),  High8(w0, 22),  // pixel 1
        High8(w1, 22), High8(w1, 12), High8(w2, 2),   // pixel 2
        High8(w2, 12), High8(w1, 12), High8(w2, 2),   // pixel 3
        High8(w3, 2),  High8(w2, 22), High8(w3, 12),  // pixel 4
        High8(w3, 22), High8(w2, 22), High8(w3, 12),  // pixel 5
    };
    std::copy_n(group, 3 * std::min(width - x, 6u), plane);
  }
}

void PackV210Row_C(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  for (uint32_t x = 0; x < width; x += 6, plane += 18, dst += 16) {
    // Plane pixel k has Y at 3k, Cb at 3k + 1, Cr at 3k + 2.
    PutWord(dst, Field(plane[1], 0) | Field(plane[0], 10) | Field(plane[2], 20));
    PutWord(dst + 4, Field(plane[3], 0) | Field(plane[7], 10) | Field(plane[6], 20));
    PutWord(dst + 8, Field(plane[8], 0) | Field(plane[9], 10) | Field(plane[13], 20));
    PutWord(dst + 12, Field(plane[12], 0) | Field(plane[14], 10) | Field(plane[15], 20));
  }
}

namespace {

constexpr AdapterRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, avx512::ExpandV210Row, avx512::PackV210Row},
    {cpu::kAvx2, avx2::ExpandV210Row, avx2::PackV210Row},
    {cpu::kSse41, sse41::ExpandV210Row, sse41::PackV210Row},
#else
    {cpu::kNeon, neon::ExpandV210Row, neon::PackV210Row},
#endif
};

}  // namespace

std::span<const AdapterRowForm> V210RowForms() { return kForms; }
const AdapterRowForm& PickV210Rows() { return cpu::Widest(V210RowForms()); }

}  // namespace zr::fx
