// The plain 4:2:2 row loops, the reference for the vector forms, and the
// choice of a form.
#include "fx/adapters/ycbcr422_rows.h"

#include "platform/cpu_choice.h"

namespace zr::fx {
namespace {

// Where each plane pixel of a 4-pixel group finds its Y, Cb and Cr bytes.
constexpr uint8_t kY[4] = {1, 2, 5, 6};
constexpr uint8_t kCb[4] = {0, 0, 4, 4};
constexpr uint8_t kCr[4] = {3, 3, 7, 7};

void ExpandGroup(const uint8_t* src, uint8_t* plane, uint32_t pixels) {
  for (uint32_t k = 0; k < pixels; ++k) {
    plane[3 * k] = src[kY[k]];
    plane[3 * k + 1] = src[kCb[k]];
    plane[3 * k + 2] = src[kCr[k]];
  }
}

}  // namespace

void ExpandYCbCr422Row_C(const uint8_t* src, uint8_t* plane, uint32_t width) {
  uint32_t x = 0;
  for (; x + 4 <= width; x += 4) ExpandGroup(src + 2 * x, plane + 3 * x, 4);
  if (x < width) ExpandGroup(src + 2 * x, plane + 3 * x, width - x);
}

void PackYCbCr422Row_C(const uint8_t* plane, uint8_t* dst, uint32_t width) {
  for (uint32_t x = 0; x < width; x += 2, plane += 6, dst += 4) {
    dst[0] = plane[1];
    dst[1] = plane[0];
    dst[2] = plane[3];
    dst[3] = plane[2];
  }
}

namespace {

constexpr AdapterRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, avx512::ExpandYCbCr422Row, avx512::PackYCbCr422Row},
    {cpu::kAvx2, avx2::ExpandYCbCr422Row, avx2::PackYCbCr422Row},
    {cpu::kSse41, sse41::ExpandYCbCr422Row, sse41::PackYCbCr422Row},
#else
    {cpu::kNeon, neon::ExpandYCbCr422Row, neon::PackYCbCr422Row},
#endif
};

}  // namespace

std::span<const AdapterRowForm> YCbCr422RowForms() { return kForms; }
const AdapterRowForm& PickYCbCr422Rows() { return cpu::Widest(YCbCr422RowForms()); }

}  // namespace zr::fx
