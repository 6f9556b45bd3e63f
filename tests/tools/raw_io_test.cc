// Raw RGBA streams: frame by frame, a clean end, and a stream cut inside a
// frame.
#include "zrfx/raw_io.h"

#include <gtest/gtest.h>

#include <cstring>

#include "run_zrfx.h"
#include "zrfx/errors.h"

namespace zrfx {
namespace {

TEST(RawIo, FramesInOrderThenTheEnd) {
  test::ScratchDir dir;
  const Frame first = test::RandomFrame(7, 3, 1), second = test::RandomFrame(7, 3, 2);
  {
    RawOutput out(dir / "two.rgba");
    out.WriteFrame(first.data(), first.bytes());
    out.WriteFrame(second.data(), second.bytes());
    out.Close();
  }
  EXPECT_EQ(test::ReadFile(dir / "two.rgba").size(), 2 * first.bytes());
  RawInput in(dir / "two.rgba");
  Frame frame(7, 3);
  ASSERT_TRUE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_EQ(std::memcmp(frame.data(), first.data(), first.bytes()), 0);
  ASSERT_TRUE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_EQ(std::memcmp(frame.data(), second.data(), second.bytes()), 0);
  EXPECT_FALSE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_FALSE(in.ReadFrame(frame.data(), frame.bytes()));
}

TEST(RawIo, StreamEndingInsideAFrame) {
  test::ScratchDir dir;
  test::WriteFile(dir / "short.rgba", std::string(84 + 10, 'x'));
  RawInput in(dir / "short.rgba");
  Frame frame(7, 3);
  ASSERT_TRUE(in.ReadFrame(frame.data(), frame.bytes()));
  EXPECT_THROW(in.ReadFrame(frame.data(), frame.bytes()), RunError);
}

TEST(RawIo, MissingInputIsAUsageError) {
  test::ScratchDir dir;
  EXPECT_THROW(RawInput(dir / "none.rgba"), UsageError);
  EXPECT_THROW(RawOutput(dir / "no/dir/out.rgba"), UsageError);
}

}  // namespace
}  // namespace zrfx
