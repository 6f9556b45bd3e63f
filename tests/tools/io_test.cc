// PNG files and raw RGBA streams in and out: round trips, expansion of other
// PNG colour types, and the errors a user sees.
#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>
#include <iterator>

#include "run_zrfx.h"
#include "zrfx/errors.h"
#include "zrfx/png_io.h"
#include "zrfx/raw_io.h"

namespace zrfx {
namespace {

using test::Bytes;
using test::RandomFrame;

TEST(PngIo, RoundTripsAndExpansion) {
  test::ScratchDir dir;
  for (uint32_t width : {1u, 2u, 3u, 17u, 333u}) {
    const Frame frame = RandomFrame(width, 5, width);
    WritePng(dir / "rgba.png", frame, true);
    const PngPicture back = ReadPng(dir / "rgba.png");
    EXPECT_TRUE(back.hasAlpha && Bytes(frame) == Bytes(back.frame)) << "width " << width;
  }
  Frame frame = RandomFrame(31, 7, 99);
  WritePng(dir / "rgb.png", frame, false);  // alpha dropped, read back opaque
  const PngPicture rgb = ReadPng(dir / "rgb.png");
  EXPECT_FALSE(rgb.hasAlpha);
  for (size_t i = 3; i < frame.bytes(); i += 4) frame.data()[i] = 255;
  EXPECT_EQ(Bytes(frame), Bytes(rgb.frame));
  // 8-bit grey, written through libpng's simplified interface, expands to RGBA.
  png_image image{.opaque = nullptr,
                  .version = PNG_IMAGE_VERSION,
                  .width = 4,
                  .height = 1,
                  .format = PNG_FORMAT_GRAY,
                  .flags = 0,
                  .colormap_entries = 0,
                  .warning_or_error = 0,
                  .message = {}};
  ASSERT_TRUE(png_image_write_to_file(&image, (dir / "grey.png").c_str(), 0, "\x00\x01\x80\xff", 0, nullptr));
  const PngPicture grey = ReadPng(dir / "grey.png");
  EXPECT_FALSE(grey.hasAlpha);
  EXPECT_EQ(std::string("\x00\x00\x00\xff\x01\x01\x01\xff\x80\x80\x80\xff\xff\xff\xff\xff", 16),
            Bytes(grey.frame));
}

TEST(PngIo, MissingBrokenOrUnwritableFiles) {
  test::ScratchDir dir;
  EXPECT_THROW(ReadPng(dir / "none.png"), UsageError);
  test::WriteFile(dir / "text.png", "this is not a picture");
  EXPECT_THROW(ReadPng(dir / "text.png"), UsageError);
  WritePng(dir / "whole.png", RandomFrame(64, 64, 5), true);
  test::WriteFile(dir / "cut.png", test::ReadFile(dir / "whole.png").substr(0, 100));
  EXPECT_THROW(ReadPng(dir / "cut.png"), UsageError);
  EXPECT_THROW(WritePng(dir / "no/such/dir/out.png", RandomFrame(2, 2, 1), true), RunError);
}

TEST(RawIo, FramesInOrderThenTheEnd) {
  test::ScratchDir dir;
  const Frame first = RandomFrame(7, 3, 1), second = RandomFrame(7, 3, 2);
  RawOutput out(dir / "two.rgba");
  for (const Frame* f : {&first, &second}) out.WriteFrame(f->data(), f->bytes());
  out.Close();
  test::WriteFile(dir / "cut.rgba", test::ReadFile(dir / "two.rgba").substr(0, 84 + 10));
  RawInput in(dir / "two.rgba"), cut(dir / "cut.rgba");
  Frame frame(7, 3);
  ASSERT_TRUE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_EQ(Bytes(first), Bytes(frame));
  ASSERT_TRUE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_EQ(Bytes(second), Bytes(frame));
  EXPECT_FALSE(in.ReadFrame(frame.data(), frame.bytes()) || in.ReadFrame(frame.data(), frame.bytes()));
  ASSERT_TRUE(cut.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_THROW(cut.ReadFrame(frame.data(), frame.bytes()), UsageError);
  EXPECT_THROW(RawInput(dir / "none.rgba"), UsageError);
  EXPECT_THROW(RawOutput(dir / "no/dir/out.rgba"), RunError);
}

// An output replaces a file only once it is whole, follows links and keeps
// the old file's permissions; a device is written in place and stays.
TEST(OutputFile, ReplacesWholeFilesOnlyAndNeverRemovesWhatItDidNotCreate) {
  test::ScratchDir dir;
  namespace fs = std::filesystem;
  const Frame frame = RandomFrame(5, 3, 7);
  test::WriteFile(dir / "target.png", "old");
  fs::permissions(dir / "target.png", fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  fs::create_symlink("target.png", dir / "link.png");
  fs::create_symlink("made.rgba", dir / "dangling");
  WritePng(dir / "link.png", frame, true);
  EXPECT_TRUE(fs::is_symlink(dir / "link.png"));
  EXPECT_EQ(Bytes(frame), Bytes(ReadPng(dir / "target.png").frame));
  EXPECT_EQ(fs::perms(0640), fs::status(dir / "target.png").permissions());
  {
    RawOutput unfinished(dir / "link.png");  // a run that fails before Close
    unfinished.WriteFrame(frame.data(), frame.bytes());
  }
  EXPECT_EQ(Bytes(frame), Bytes(ReadPng(dir / "target.png").frame));
  RawOutput throughDangling(dir / "dangling");
  throughDangling.WriteFrame(frame.data(), frame.bytes());
  throughDangling.Close();
  EXPECT_TRUE(fs::is_symlink(dir / "dangling") && test::ReadFile(dir / "made.rgba") == Bytes(frame));
  EXPECT_EQ(4,
            std::distance(fs::directory_iterator(dir / ""), fs::directory_iterator()));  // no temporary left
  EXPECT_THROW(WritePng("/dev/full", frame, true), RunError);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

}  // namespace
}  // namespace zrfx
