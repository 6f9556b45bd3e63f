// The front door: which buffer plays which role, the copies and their sizes,
// the unassigned modes, the in-place flips, and the grid overlay.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <vector>

#include "common/test_random.h"
#include "mux/mux_model.h"
#include "zrmux.h"

namespace zr::test {
namespace {

constexpr uint32_t kW = 6, kH = 4, kPitch = kW * 4 + 8, kBytes = kH * kPitch;

struct Frames {
  Frames() : a(kBytes), b(kBytes), out(kBytes, 0x77) {
    Rng rng(5);
    rng.Fill(a.data(), kBytes);
    rng.Fill(b.data(), kBytes);
  }
  void Run(uint32_t flags, uint32_t sizeA = kBytes, uint32_t sizeB = kBytes) {
    MuxArgs g;
    g.sizeA = sizeA, g.sizeB = sizeB, g.muxFlags = flags;
    g.width = kW, g.height = kH, g.pitch = kPitch;
    ASSERT_EQ(CallMux(a.data(), b.data(), out.data(), g), 0);
  }
  std::vector<uint8_t> a, b, out;
};

std::vector<uint8_t> Prefix(const std::vector<uint8_t>& v, size_t n, uint8_t rest) {
  std::vector<uint8_t> p(v.begin(), v.begin() + n);
  p.resize(v.size(), rest);
  return p;
}

TEST(MuxFrontDoor, CopySizesStayWithTheirArgumentPosition) {
  Frames f;
  f.Run(MUX_DEFAULT, 10, 50);
  EXPECT_EQ(f.out, Prefix(f.a, 10, 0x77));
  Frames swapped;
  swapped.Run(MUXF_SWAP, 10, 50);
  EXPECT_EQ(swapped.out, Prefix(swapped.b, 10, 0x77));
  Frames copyB;
  copyB.Run(MUX_COPY_B | MUXF_SWAP, 10, 50);
  EXPECT_EQ(copyB.out, Prefix(copyB.a, 50, 0x77));
}

TEST(MuxFrontDoor, FlipsFollowTheRolesAndStay) {
  Frames f;
  const std::vector<uint8_t> b0 = f.b;
  // MUXF_FLIP_H_A under MUXF_SWAP mirrors the buffer passed as frameB.
  f.Run(MUXF_FLIP_H_A | MUXF_SWAP, 0);
  for (uint32_t r = 0; r < kH; ++r)
    for (uint32_t x = 0; x < kW; ++x)
      for (uint32_t i = 0; i < 4; ++i)
        ASSERT_EQ(f.b[r * kPitch + x * 4 + i], b0[r * kPitch + (kW - 1 - x) * 4 + i]);
  // The same call again turns it back.
  f.Run(MUXF_FLIP_H_A | MUXF_SWAP, 0);
  EXPECT_EQ(f.b, b0);
}

TEST(MuxFrontDoor, OneBufferAsBothSourcesFlipsTwice) {
  Frames f;
  const std::vector<uint8_t> a0 = f.a;
  MuxArgs g;
  g.muxFlags = MUXF_FLIP_V_A | MUXF_FLIP_V_B;
  g.width = kW, g.height = kH, g.pitch = kPitch;
  CallMux(f.a.data(), f.a.data(), f.out.data(), g);
  EXPECT_EQ(f.a, a0);
}

// A grid over an untouched output (a default copy of 0 bytes): the rows that
// are lines, painted over the whole pitch, and the columns of the others.
void ExpectGrid(uint32_t gridMode, uint32_t stepX, uint32_t stepY, uint32_t flags, uint32_t width,
                uint32_t height, const std::vector<uint32_t>& rows, const std::vector<uint32_t>& columns) {
  const uint32_t pitch = width * 4 + 4;
  std::vector<uint8_t> out(size_t{pitch} * height, 0x11), src(4);
  ZrDraw_DisplayMuxRGBA(reinterpret_cast<uint32_t*>(src.data()), 0, reinterpret_cast<uint32_t*>(src.data()),
                        0, reinterpret_cast<uint32_t*>(out.data()), 0, flags, 0, 0, 0, 0, 0, gridMode, stepX,
                        stepY, width, height, pitch);
  const auto in = [](const std::vector<uint32_t>& v, uint32_t n) {
    return std::find(v.begin(), v.end(), n) != v.end();
  };
  for (uint32_t r = 0; r < height; ++r)
    for (uint32_t i = 0; i < pitch; ++i) {
      const bool line = in(rows, r) || (i < width * 4 && in(columns, i / 4));
      ASSERT_EQ(out[size_t{r} * pitch + i], line ? 0xBF : 0x11) << "row " << r << " byte " << i;
    }
}

TEST(MuxFrontDoor, GridByPercentage) {
  ExpectGrid(1, 25, 0, 0, 1920, 1080, {0, 270, 540, 810}, {0, 480, 960, 1440});
  // 100 / 30 is 3 parts: thirds.
  ExpectGrid(0, 30, 7, MUXF_GRID, 90, 60, {0, 20, 40}, {0, 30, 60});
  ExpectGrid(0, 30, 7, 0, 90, 60, {}, {});  // gridMode 0 without the flag: no grid
  ExpectGrid(0, 0, 0, 0, 90, 60, {}, {});
}

TEST(MuxFrontDoor, GridBySteps) {
  ExpectGrid(2, 100, 50, 0, 200, 100, {0, 50}, {0, 100});
  ExpectGrid(9, 3, 4, MUXF_GRID, 7, 9, {0, 4, 8}, {0, 3, 6});
}

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer catches the signal, reports it and aborts.
#define EXPECT_FPE(statement) EXPECT_DEATH(statement, "FPE")
#else
#define EXPECT_FPE(statement) EXPECT_EXIT(statement, ::testing::KilledBySignal(SIGFPE), "")
#endif

// A zero step is the caller's fault; it faults like an integer division by
// zero, in both builds, rather than hang or run into undefined behaviour.
TEST(MuxFrontDoorDeathTest, ZeroGridStepsFault) {
  const auto grid = [](uint32_t gridMode, uint32_t stepX, uint32_t stepY, uint32_t width, uint32_t height) {
    std::vector<uint32_t> out(size_t{width} * height + 1), src(1);
    ZrDraw_DisplayMuxRGBA(src.data(), 0, src.data(), 0, out.data(), 0, MUXF_GRID, 0, 0, 0, 0, 0, gridMode,
                          stepX, stepY, width, height, width * 4);
  };
  EXPECT_FPE(grid(0, 0, 5, 8, 8));    // 100 / 0
  EXPECT_FPE(grid(1, 101, 5, 8, 8));  // no parts
  EXPECT_FPE(grid(1, 10, 5, 8, 8));   // 10 parts of 8 rows: a row step of 0
  EXPECT_FPE(grid(2, 3, 0, 8, 8));
  EXPECT_FPE(grid(2, 0, 3, 8, 8));  // a column walk that never ends
}

TEST(MuxFrontDoor, ZeroColumnStepIsHarmlessWhereEveryRowIsALine) {
  ExpectGrid(2, 0, 1, 0, 8, 3, {0, 1, 2}, {});
  ExpectGrid(2, 0, 3, 0, 0, 3, {0}, {});
}

}  // namespace
}  // namespace zr::test
