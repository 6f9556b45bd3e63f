// zrfx draw's burn-in: the timecode text, where Label text is cut at the
// frame's edges, and the caption, timecode and safe areas on every family
// of layouts: golden bytes and untouched bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "common/crc32.h"
#include "common/test_random.h"
#include "run_zrfx.h"
#include "zrfx/frame_label.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/timecode.h"

namespace zrfx {
namespace {

TEST(Timecode, CountsWholeFramesFromZeroAndWrapsAtADay) {
  struct Row {
    uint64_t frame;
    uint32_t fps;
    const char* text;
  } rows[] = {{0, 25, "00:00:00:00"},
              {24, 25, "00:00:00:24"},
              {25, 25, "00:00:01:00"},
              {91528, 25, "01:01:01:03"},
              {30 * 86400 + 29, 30, "00:00:00:29"},
              {99, 100, "00:00:00:99"},
              {3599, 1, "00:59:59:00"}};
  for (const Row& r : rows) EXPECT_EQ(r.text, Timecode(r.frame, r.fps)) << r.frame << " at " << r.fps;
}

TEST(FrameLabel, WholeCharactersWithOneColumnToSpare) {
  // x, y, length, scale in a 240x48 frame, and the characters that fit.
  const int64_t rows[][5] = {{207, 28, 7, 2, 2}, {208, 28, 7, 2, 1}, {207, 29, 7, 2, 0}, {239, 0, 7, 1, 0},
                             {231, 0, 7, 1, 1},  {0, 0, 100, 1, 29}, {-1, 0, 1, 1, 0},   {0, 0, 1, 0, 0}};
  for (const auto& r : rows)
    EXPECT_EQ(r[4], static_cast<int64_t>(LabelCharactersInFrame(r[0], r[1], static_cast<size_t>(r[2]),
                                                                static_cast<uint32_t>(r[3]), 240, 48)))
        << r[0] << "," << r[1] << " scale " << r[3];
}

constexpr uint32_t kWidth = 240, kHeight = 48;
// The caption ends on the last row, and on the PutPixel road its spare
// column is the last column: one more character would run past the frame.
constexpr const char* kBurnIn = "--safe-area --text Burn-in --text-at 207,28 --timecode --colour FFC000";

class DrawBurnIn : public ::testing::Test {
 protected:
  // Runs `zrfx draw` at 240x48 on `in` (two frames), returns the output.
  std::string Draw(const std::string& pix, const std::string& in, const std::string& overlay = kBurnIn) {
    test::WriteFile(dir_ / "in.raw", in);
    std::vector<std::string> args = {"draw", "--raw", "240x48", "--pix", pix, "-i", dir_ / "in.raw"};
    std::istringstream words(overlay);
    for (std::string w; words >> w;) args.push_back(w);
    const test::RunResult r = test::RunZrfx(dir_, args);
    EXPECT_EQ(0, r.exitStatus) << pix << ": " << r.err;
    return r.out;
  }
  test::ScratchDir dir_;
};

// On zeros, each layout's frames are pinned by a checksum. On random bytes
// and on their complement, so that no written byte can match both, exactly
// the groups that hold a pixel drawn on zeros change: the pixels of rgba on
// the memory-fill road of the 32-bit types, of rgb48le on the PutPixel
// road of the others.
TEST_F(DrawBurnIn, GoldenFramesAndUntouchedBytes) {
  const struct {
    const char* pix;
    const char* road;
    uint32_t crc;
  } rows[] = {
      {"rgba", "rgba", 2080144715u},
      {"bgra", "rgba", 3818501781u},
      {"rgb24", "rgb48le", 47593784u},
      {"rgb48le", "rgb48le", 3761174791u},
      {"uyvy422", "rgb48le", 3507477027u},
      {"v210", "rgb48le", 2014102189u},
      {"pixelBayerRGGB", "rgb48le", 3456012479u},
      {"pixelRGB30DPX", "rgb48le", 1204638319u},
  };
  auto zeros = [&](const PixelFormat& f) {
    return Draw(f.Name(), std::string(2 * f.FrameBytes(kWidth, kHeight), '\0'));
  };
  const std::string masks[] = {zeros(ParsePixelFormat("rgba")), zeros(ParsePixelFormat("rgb48le"))};
  for (const auto& row : rows) {
    const PixelFormat& format = ParsePixelFormat(row.pix);
    const PixelFormat& road = ParsePixelFormat(row.road);
    const std::string& mask = masks[road.groupBytes == 4 ? 0 : 1];
    const std::string golden = zeros(format);
    EXPECT_EQ(row.crc, zr::test::Crc32(golden.data(), golden.size())) << row.pix;
    std::string in(golden.size(), '\0'), inverse = in;
    zr::test::Rng(format.type).Fill(in.data(), in.size());
    std::transform(in.begin(), in.end(), inverse.begin(), [](char c) { return static_cast<char>(~c); });
    const std::string out = Draw(row.pix, in), inverseOut = Draw(row.pix, inverse);
    ASSERT_TRUE(out.size() == in.size() && inverseOut.size() == in.size()) << row.pix;
    const size_t rowBytes = format.RowBytes(kWidth), frameBytes = rowBytes * kHeight;
    for (size_t at = 0; at < in.size(); at += format.groupBytes) {
      const size_t frame = at / frameBytes, y = at % frameBytes / rowBytes;
      const size_t first = at % rowBytes / format.groupBytes * format.groupPixels;
      bool drawn = false;
      for (size_t x = first; x < std::min<size_t>(first + format.groupPixels, kWidth); ++x) {
        const size_t m = (frame * kHeight + y) * road.RowBytes(kWidth) + x * road.groupBytes;
        drawn |= mask.find_first_not_of('\0', m) < m + road.groupBytes;
      }
      const bool changed = in.compare(at, format.groupBytes, out, at, format.groupBytes) != 0,
                 inverseChanged =
                     inverse.compare(at, format.groupBytes, inverseOut, at, format.groupBytes) != 0;
      EXPECT_TRUE(drawn ? changed || inverseChanged : !changed && !inverseChanged)
          << row.pix << ": frame " << frame << ", row " << y << ", pixel " << first
          << (drawn ? " unchanged" : " changed");
    }
  }
}

// Frames 0 and 1 at 25 frames a second differ only in the cell of the last
// digit, at the bottom left of the title-safe area: x from 12 + 10 * 16, y
// from 46 - 20, and the spare column on the PutPixel road.
TEST_F(DrawBurnIn, TimecodeFramesDifferInTheLastDigitOnly) {
  const std::string out = Draw("rgb24", std::string(2 * 3 * kWidth * kHeight, '\0'), " --timecode");
  ASSERT_EQ(2 * 3 * kWidth * kHeight, out.size());
  size_t changed = 0;
  for (size_t y = 0; y < kHeight; ++y)
    for (size_t x = 0; x < kWidth; ++x) {
      const size_t at = 3 * (y * kWidth + x);
      if (out.compare(at, 3, out, at + 3 * kWidth * kHeight, 3) == 0) continue;
      ++changed;
      EXPECT_TRUE(x >= 172 && x <= 188 && y >= 26 && y < 46) << x << "," << y;
    }
  EXPECT_GT(changed, 20u);
}

}  // namespace
}  // namespace zrfx
