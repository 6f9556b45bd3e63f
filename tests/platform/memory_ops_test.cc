#include <gtest/gtest.h>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "platform/zrutil.h"

namespace {

using zr::test::GuardedBuffer;

TEST(SetMemoryFast, MatchesBytewiseModelForEverySizeAndAlignment) {
  zr::test::Rng rng(7);
  const uint32_t words[] = {0x00000000u, 0x80808080u, 0x11223344u, 0xFF0000FFu, rng.Next32()};
  for (uint32_t word : words) {
    for (size_t misalign = 0; misalign < 16; ++misalign) {
      for (size_t n : {0, 1, 3, 4, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 257, 4096, 4099}) {
        GuardedBuffer buf(n, misalign);
        SetMemoryFast(buf.data(), word, n);
        for (size_t i = 0; i < n; ++i)
          ASSERT_EQ(buf[i], static_cast<uint8_t>(word >> (8 * (i % 4))))
              << "word " << std::hex << word << std::dec << " size " << n << " misalign " << misalign
              << " at " << i;
        ASSERT_TRUE(buf.GuardsIntact()) << "size " << n << " misalign " << misalign;
      }
    }
  }
}

TEST(SetMemoryFast, LargeFillsKeepThePatternPhase) {
  const size_t n = (size_t{3} << 20) + 15;
  GuardedBuffer buf(n, 5);
  SetMemoryFast(buf.data(), 0xA1B2C3D4u, n);
  for (size_t i = 0; i < n; ++i)
    ASSERT_EQ(buf[i], static_cast<uint8_t>(0xA1B2C3D4u >> (8 * (i % 4)))) << i;
  EXPECT_TRUE(buf.GuardsIntact());
}

TEST(CopyMemoryFast, CopiesExactlyTheCountAndToleratesOverlap) {
  zr::test::Rng rng(3);
  GuardedBuffer src(1000), dst(1000);
  rng.Fill(src.data(), 1000);
  CopyMemoryFast(dst.data(), src.data(), 999);
  EXPECT_EQ(0, std::memcmp(dst.data(), src.data(), 999));
  EXPECT_EQ(dst[999], GuardedBuffer::kGuardByte);
  EXPECT_TRUE(dst.GuardsIntact());

  std::vector<uint8_t> expect(src.data() + 10, src.data() + 510);
  CopyMemoryFast(src.data() + 20, src.data() + 10, 500);
  EXPECT_EQ(0, std::memcmp(src.data() + 20, expect.data(), 500));
}

}  // namespace
