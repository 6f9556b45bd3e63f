// PNG files in and out: round trips, expansion of other colour types, and
// the errors a user sees.
#include "zrfx/png_io.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstring>

#include "run_zrfx.h"
#include "zrfx/errors.h"

namespace zrfx {
namespace {

using test::RandomFrame;
using test::ScratchDir;

bool SamePixels(const Frame& a, const Frame& b) {
  return a.SameSize(b) && std::memcmp(a.data(), b.data(), a.bytes()) == 0;
}

TEST(PngIo, RgbaRoundTripIsExact) {
  ScratchDir dir;
  for (uint32_t width : {1u, 2u, 3u, 17u, 333u}) {
    const Frame frame = RandomFrame(width, 5, width);
    WritePng(dir / "rgba.png", frame, true);
    const PngPicture back = ReadPng(dir / "rgba.png");
    EXPECT_TRUE(back.hasAlpha);
    EXPECT_TRUE(SamePixels(frame, back.frame)) << "width " << width;
  }
}

TEST(PngIo, RgbDropsAlphaAndReadsBackOpaque) {
  ScratchDir dir;
  const Frame frame = RandomFrame(31, 7, 99);
  WritePng(dir / "rgb.png", frame, false);
  const PngPicture back = ReadPng(dir / "rgb.png");
  EXPECT_FALSE(back.hasAlpha);
  ASSERT_TRUE(back.frame.SameSize(frame));
  for (uint32_t y = 0; y < frame.height(); ++y)
    for (uint32_t x = 0; x < frame.width(); ++x) {
      ASSERT_EQ(std::memcmp(back.frame.Pixel(x, y), frame.Pixel(x, y), 3), 0) << x << "," << y;
      ASSERT_EQ(back.frame.Pixel(x, y)[3], 255);
    }
}

TEST(PngIo, GreyAndSixteenBitFilesExpandToRgba) {
  ScratchDir dir;
  // 8-bit grey, written through libpng's simplified interface.
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = 4;
  image.height = 1;
  image.format = PNG_FORMAT_GRAY;
  const png_byte grey[4] = {0, 1, 128, 255};
  ASSERT_TRUE(png_image_write_to_file(&image, (dir / "grey.png").c_str(), 0, grey, 0, nullptr));
  const PngPicture picture = ReadPng(dir / "grey.png");
  EXPECT_FALSE(picture.hasAlpha);
  for (uint32_t x = 0; x < 4; ++x) {
    const uint8_t* p = picture.frame.Pixel(x, 0);
    EXPECT_EQ(p[0], grey[x]);
    EXPECT_EQ(p[1], grey[x]);
    EXPECT_EQ(p[2], grey[x]);
    EXPECT_EQ(p[3], 255);
  }
  // 16-bit linear RGBA: the high byte survives the scaling of the extremes.
  png_image deep{};
  deep.version = PNG_IMAGE_VERSION;
  deep.width = 2;
  deep.height = 1;
  deep.format = PNG_FORMAT_LINEAR_RGB_ALPHA;
  const png_uint_16 samples[8] = {0, 65535, 0, 65535, 65535, 65535, 65535, 65535};
  ASSERT_TRUE(png_image_write_to_file(&deep, (dir / "deep.png").c_str(), 0, samples, 0, nullptr));
  const PngPicture deepPicture = ReadPng(dir / "deep.png");
  EXPECT_TRUE(deepPicture.hasAlpha);
  EXPECT_EQ(deepPicture.frame.width(), 2u);
  EXPECT_EQ(deepPicture.frame.Pixel(0, 0)[1], 255);
  EXPECT_EQ(deepPicture.frame.Pixel(0, 0)[0], 0);
  EXPECT_EQ(deepPicture.frame.Pixel(1, 0)[3], 255);
}

TEST(PngIo, MissingOrBrokenFilesAreUsageErrors) {
  ScratchDir dir;
  EXPECT_THROW(ReadPng(dir / "none.png"), UsageError);
  test::WriteFile(dir / "text.png", "this is not a picture");
  EXPECT_THROW(ReadPng(dir / "text.png"), UsageError);
  // A PNG cut short after its header.
  WritePng(dir / "whole.png", RandomFrame(64, 64, 5), true);
  test::WriteFile(dir / "cut.png", test::ReadFile(dir / "whole.png").substr(0, 100));
  EXPECT_THROW(ReadPng(dir / "cut.png"), UsageError);
}

TEST(PngIo, UnwritablePathIsARunError) {
  ScratchDir dir;
  EXPECT_THROW(WritePng(dir / "no/such/dir/out.png", RandomFrame(2, 2, 1), true), RunError);
}

}  // namespace
}  // namespace zrfx
