// The tool's table of pixel layouts against the library: the row it
// computes is the pitch that the canvas itself chooses, and every name
// finds its own entry.
#include "zrfx/pixel_formats.h"

#include <gtest/gtest.h>

#include <vector>

#include "zrfx/canvas_handle.h"
#include "zrfx/errors.h"

namespace zrfx {
namespace {

TEST(PixelFormats, RowsAreTheCanvasPitchAndNamesAreUnique) {
  std::vector<uint8_t> buffer(16);
  for (const PixelFormat& f : PixelFormats()) {
    for (const std::string& name :
         {std::string(f.Name()), std::string(f.enumerator), std::to_string(f.type)}) {
      EXPECT_EQ(&f, &ParsePixelFormat(name)) << name;  // and so no other entry has the name
    }
    if (!CanvasHandle::Supports(f.type)) continue;
    for (uint32_t width : {2u, 50u, 720u, 1922u}) {
      const CanvasHandle canvas(f.type, width, 2, 0, buffer.data());
      EXPECT_EQ(f.RowBytes(width), canvas->mPitch) << f.enumerator << " width " << width;
    }
  }
  EXPECT_EQ(5120u, ParsePixelFormat("V210").RowBytes(1920));
  EXPECT_EQ(2048u, ParsePixelFormat("v210").RowBytes(721));
  EXPECT_TRUE(ParsePixelFormat("v210").FitsWidth(721) && !ParsePixelFormat("pixelYUYV").FitsWidth(721));
  EXPECT_THROW(ParsePixelFormat("yuv420p"), UsageError);
}

}  // namespace
}  // namespace zrfx
