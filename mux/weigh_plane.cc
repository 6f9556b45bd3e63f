// weigh_plane: one byte plane mixed into another with 16.16 weights.
#include <cstddef>

#include "mux/weigh_rows.h"
#include "platform/cpu_choice.h"
#include "zrmux.h"

namespace zr::mux {

// Nothing saturates: a sum above 255 loses its high bits, so 256 stores as 0.
// Hosts rely on the wrap; keep it.
void WeighRowScalar(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc,
                    uint32_t weightDst) {
  for (uint32_t x = 0; x < width; ++x) {
    const uint32_t mixed = uint32_t{dst[x]} * weightDst + uint32_t{src[x]} * weightSrc + 32768;
    dst[x] = static_cast<uint8_t>(mixed >> 16);
  }
}

namespace {

constexpr WeighRowForm kForms[] = {
#if defined(__x86_64__)
    {cpu::kAvx512, avx512::WeighRow},
    {cpu::kAvx2, avx2::WeighRow},
    {cpu::kSse41, sse41::WeighRow},
#else
    {cpu::kNeon, neon::WeighRow},
#endif
};

}  // namespace

std::span<const WeighRowForm> WeighRowForms() { return kForms; }

WeighRowFn ActiveWeighRow() { return cpu::Widest(WeighRowForms()).row; }

}  // namespace zr::mux

void weigh_plane(uint8_t* dst, const uint8_t* src, int32_t dstPitch, int32_t srcPitch, int32_t width,
                 int32_t height, int32_t weightSrc, int32_t weightDst) {
  if (height < 1 || width < 1) return;
  const zr::mux::WeighRowFn row = zr::mux::ActiveWeighRow();
  // Rows that follow each other without a gap in both planes are one long
  // row, taken in the same ascending order.
  const int64_t bytes = int64_t{width} * height;
  if (dstPitch == width && srcPitch == width && bytes <= UINT32_MAX) {
    row(dst, src, static_cast<uint32_t>(bytes), static_cast<uint32_t>(weightSrc),
        static_cast<uint32_t>(weightDst));
    return;
  }
  for (int32_t y = 0; y < height; ++y)
    row(dst + std::ptrdiff_t{y} * dstPitch, src + std::ptrdiff_t{y} * srcPitch, static_cast<uint32_t>(width),
        static_cast<uint32_t>(weightSrc), static_cast<uint32_t>(weightDst));
}
