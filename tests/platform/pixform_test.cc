#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "platform/pixform.h"

namespace {

using zr::test::GuardedBuffer;

uint32_t Pixel(const uint8_t* frame, int pitch, int x, int y) {
  uint32_t v;
  std::memcpy(&v, frame + y * pitch + 4 * x, 4);
  return v;
}

TEST(Flips, InPlaceAndCopyMatchModelAndLeavePaddingAlone) {
  zr::test::Rng rng(11);
  for (int w : {1, 2, 3, 7, 1030}) {
    for (int h : {1, 2, 3, 6}) {
      const int pitch = 4 * w + 8;
      const size_t size = static_cast<size_t>(pitch) * h;
      GuardedBuffer frame(size), copy(size), other(size);
      rng.Fill(frame.data(), size);
      std::memcpy(copy.data(), frame.data(), size);
      std::memset(other.data(), 0, size);

      pfmt_flip_vert(frame.data(), frame.data(), w, h, pitch);
      pfmt_flip_horz(copy.data(), other.data(), w, h, pitch, 0xFFFFFFFFu);
      for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
          ASSERT_EQ(Pixel(frame.data(), pitch, x, y), Pixel(copy.data(), pitch, x, h - 1 - y));
          ASSERT_EQ(Pixel(other.data(), pitch, x, y), Pixel(copy.data(), pitch, w - 1 - x, y));
        }
        // Row padding belongs to nobody: the flips leave it as it was.
        for (int b = 4 * w; b < pitch; ++b) ASSERT_EQ(other[y * pitch + b], 0) << w << "x" << h;
      }
      EXPECT_TRUE(frame.GuardsIntact());
      EXPECT_TRUE(other.GuardsIntact());
    }
  }
}

TEST(Flips, HorizontalMaskKeepsClearedBitsOfEachPixel) {
  uint32_t row[3] = {0x11111111u, 0x22222222u, 0x33333333u};
  pfmt_flip_horz(row, row, 3, 1, 12, 0x00FF00FFu);
  EXPECT_EQ(row[0], 0x11331133u);
  EXPECT_EQ(row[1], 0x22222222u);
  EXPECT_EQ(row[2], 0x33113311u);
}

}  // namespace
