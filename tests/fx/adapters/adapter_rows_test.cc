// The adapters' row loops: the documented byte tables and their round trips,
// in the plain form and each vector form this processor runs.
#include <gtest/gtest.h>

#include <cstring>
#include <span>
#include <vector>

#include "fx/adapters/v210_rows.h"
#include "fx/adapters/ycbcr422_rows.h"
#include "platform/cpu_choice.h"

namespace zr::fx {
namespace {

// The plain form and every vector form this processor runs.
std::vector<AdapterRowForm> Forms(AdapterRowForm plain, std::span<const AdapterRowForm> vectorForms) {
  std::vector<AdapterRowForm> forms{plain};
  for (const auto& form : vectorForms)
    if ((form.isa & cpu::Detected()) == form.isa) forms.push_back(form);
  return forms;
}

// Position decides everything: Y from bytes 1, 2, 5, 6, chroma from 0, 3 and
// 4, 7. Packing undoes it; an odd width packs its last pair whole, the odd Y
// taken from the plane byte after the row.
TEST(AdapterRows, YCbCr422BytePositions) {
  const uint8_t src[8] = {10, 11, 12, 13, 14, 15, 16, 17};
  const uint8_t want[12] = {11, 10, 13, 12, 10, 13, 15, 14, 17, 16, 14, 17};
  for (const AdapterRowForm& form : Forms({0, ExpandYCbCr422Row_C, PackYCbCr422Row_C}, YCbCr422RowForms())) {
    uint8_t plane[12] = {}, out[8] = {};
    form.expand(src, plane, 4);
    form.pack(plane, out, 4);
    EXPECT_EQ(std::memcmp(plane, want, 12), 0) << cpu::IsaName(form.isa);
    EXPECT_EQ(std::memcmp(out, src, 8), 0) << cpu::IsaName(form.isa);
  }
  const uint8_t plane[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 40, 50, 60};
  uint8_t out[9] = {0, 0, 0, 0, 0, 0, 0, 0, 99};
  PackYCbCr422Row_C(plane, out, 3);
  const uint8_t odd[9] = {2, 1, 4, 3, 8, 7, 40, 9, 99};
  EXPECT_EQ(std::memcmp(out, odd, 9), 0);
}

// Field k of the group holds 4 * (k + 1) + k % 4, so its high 8 bits are
// k + 1 and its low 2 bits are set; bits 30 and 31 are set too.
TEST(AdapterRows, V210KeepsTheHighEightBitsOfEachField) {
  uint8_t src[16];
  for (uint32_t w = 0; w < 4; ++w) {
    uint32_t word = 0xC0000000u;
    for (uint32_t s = 0; s < 3; ++s) word |= (4 * (3 * w + s + 1) + (3 * w + s) % 4) << (10 * s);
    for (int b = 0; b < 4; ++b) src[4 * w + b] = static_cast<uint8_t>(word >> (8 * b));
  }
  const uint8_t want[18] = {2, 1, 3, 4, 1, 3, 6, 5, 7, 8, 5, 7, 10, 9, 11, 12, 9, 11};
  for (const AdapterRowForm& form : Forms({0, ExpandV210Row_C, PackV210Row_C}, V210RowForms())) {
    uint8_t plane[18] = {}, out[16];
    form.expand(src, plane, 6);
    EXPECT_EQ(std::memcmp(plane, want, 18), 0) << cpu::IsaName(form.isa);
    // Back with the low bits and bits 30 and 31 clear.
    form.pack(plane, out, 6);
    for (int i = 0; i < 16; i += 4) {
      uint32_t got, orig;
      std::memcpy(&got, out + i, 4);
      std::memcpy(&orig, src + i, 4);
      EXPECT_EQ(got, orig & 0x3FCFF3FCu) << cpu::IsaName(form.isa) << " word " << i / 4;
    }
  }
}

}  // namespace
}  // namespace zr::fx
