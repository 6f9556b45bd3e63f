// The tool's 4:2:2 and v210 conversions, which feed the wipe adapters.
#include "zrfx/yuv_convert.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "run_zrfx.h"

namespace zrfx {
namespace {

TEST(YuvConvert, GreyComesBackWithinOneLevel) {
  Frame grey(256, 2);
  for (uint32_t x = 0; x < 256; ++x)
    for (uint32_t y = 0; y < 2; ++y) {
      uint8_t* p = grey.Pixel(x, y);
      p[0] = p[1] = p[2] = static_cast<uint8_t>(x);
      p[3] = 255;
    }
  for (const Frame& back : {UyvyToRgba(RgbaToUyvy(grey)), V210ToRgba(RgbaToV210(grey))})
    for (uint32_t x = 0; x < 256; ++x)
      for (int k = 0; k < 3; ++k) EXPECT_LE(std::abs(back.Pixel(x, 1)[k] - static_cast<int>(x)), 1) << x;
}

// v210 carries the same 8-bit samples as 4:2:2 here, two bits up, so both
// roads give the same pixels, for widths that end inside a 6-pixel group too.
TEST(YuvConvert, V210AndUyvyAgree) {
  for (uint32_t width : {2u, 6u, 10u, 48u, 50u, 98u}) {
    const Frame frame = test::RandomFrame(width, 3, width);
    const Frame viaUyvy = UyvyToRgba(RgbaToUyvy(frame));
    const Frame viaV210 = V210ToRgba(RgbaToV210(frame));
    EXPECT_EQ(std::memcmp(viaUyvy.data(), viaV210.data(), frame.bytes()), 0) << "width " << width;
  }
  EXPECT_EQ(V210Pitch(48), 128u);
  EXPECT_EQ(V210Pitch(50), 256u);
  EXPECT_EQ(RgbaToV210(Frame(14, 1)).pitch, 128u);
  EXPECT_EQ(RgbaToUyvy(Frame(14, 1)).pitch, 28u);
}

}  // namespace
}  // namespace zrfx
