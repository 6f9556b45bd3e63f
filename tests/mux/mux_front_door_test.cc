// The front door and the pixel mix modes: single pixels where the modes'
// odd corners show, the hand-off of MUX_WIPE to the transition front door, and the fault of a zero grid step.
#include <gtest/gtest.h>

#include <csignal>
#include <vector>

#include "common/test_random.h"
#include "mux/mux_args.h"
#include "zrfx.h"

namespace zr::test {
namespace {

struct Mix {
  uint32_t flags, a, b, mixPosition, mixLevel, want;  // pixels as little-endian words
};

// clang-format off
constexpr Mix kMixes[] = {
    {MUX_AVERAGE, 0x03FF0103, 0x03FF0003, 0, 0, 0x02FE0002},  // low bits dropped before the sum
    {MUX_DIFFERENCE, 0x00006400, 0x00006500, 0, 0, 0x00FFFFFF},  // A darker by 1: full grey
    {MUX_DIFFERENCE, 0xFF000000, 0x00000000, 0, 0, 0x00808080},  // byte 3 ignored
    {MUX_MATCH_GATE, 0x11223344, 0x12223344, 0, 0, 0},  // byte 3 counts
    {MUX_MATCH_GATE, 0x11223344, 0x11223346, 0, 2, 0x11223346},
    {MUX_MATCH_GATE | MUXF_SWAP, 0x11223344, 0x11223350, 0, 4, 0xFFFFFFFF},  // roles exchange, the fill turns white
    {MUX_CROSSFADE, 0x8040FF0A, 0x10C00005, 255, 0, 0x10C00005},  // the low eight bits have no effect
    {MUX_CROSSFADE, 0x00000A03, 0x0000050A, 0x20000, 0, 0x00000FFC},  // p 512, q 256 - 512: 2a - b
    {MUX_CHANNEL_VIEW, 0x401F140A, 0, 0, 0x000000FF, 0x0A0A0A0A},
    {MUX_CHANNEL_VIEW, 0x401F140A, 0, 0, 0xFF000000, 0x40404040},
    {MUX_CHANNEL_VIEW, 0x401F140A, 0, 0, 0xFFFF, 0x14141414},  // the mean: 61 / 3
};
// clang-format on

// Two rows of 41 equal pixels, so that both the vector steps and the scalar
// rest run, once tight and once with spare pixels that stay untouched.
TEST(MuxFrontDoor, PixelModesOnSinglePixels) {
  for (const Mix& m : kMixes)
    for (uint32_t pitch : {41, 44}) {
      std::vector<uint32_t> a(2 * pitch, m.a), b(2 * pitch, m.b), out(2 * pitch, 0x5A5A5A5A);
      CallMux(a.data(), b.data(), out.data(),
              {m.flags, 41, 2, pitch * 4, 0, 0, 0, m.mixPosition, m.mixLevel});
      for (uint32_t x = 0; x < 2 * pitch; ++x)
        ASSERT_EQ(out[x], x % pitch < 41 ? m.want : 0x5A5A5A5A) << std::hex << m.flags << " x " << x;
    }
}

// Format 1, one pitch for all three frames, reserved values 1, 1, 0, 0, 0 and
// progress from 0 to 65536; bit 31 of the code is the transition's own.
TEST(MuxFrontDoor, WipeGoesToTheTransitionFrontDoor) {
  constexpr uint32_t kW = 19, kH = 7, kPitch = kW * 4 + 8, kBytes = kPitch * kH;
  for (auto [code, position] : {std::pair{1u, 0u}, {5u, 20000u}, {22u, 65536u}, {0x80000004u, 30000u}}) {
    std::vector<uint8_t> a(kBytes), b(kBytes), out(kBytes);
    Rng rng(code);
    for (auto* v : {&a, &b, &out}) rng.Fill(v->data(), kBytes);
    std::vector<uint8_t> want = out;
    ZrDraw_DisplayWipe(b.data(), kPitch, a.data(), kPitch, want.data(), kPitch, code, 1, kW, kH, 1, 1, 0, 0,
                       0, 0, 65536, position);
    CallMux(a.data(), b.data(), out.data(), {MUX_WIPE | MUXF_SWAP, kW, kH, kPitch, 0, 0, code, position});
    EXPECT_EQ(out, want) << "code " << code;
  }
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
  const auto grid = [](uint32_t gridMode, uint32_t stepX, uint32_t stepY) {
    std::vector<uint32_t> out(8 * 8 + 1), src(1);
    CallMux(src.data(), src.data(), out.data(),
            {MUXF_GRID, 8, 8, 32, 0, 0, 0, 0, 0, 0, 0, gridMode, stepX, stepY});
  };
  // 100 / 0; no parts; 10 parts of 8 rows, a row step of 0; then zero pixel steps, the last a column walk
  // that never ends.
  for (const auto& [gridMode, stepX, stepY] :
       {std::tuple{0, 0, 5}, {1, 101, 5}, {1, 10, 5}, {2, 3, 0}, {2, 0, 3}})
    EXPECT_FPE(grid(gridMode, stepX, stepY));
}

}  // namespace
}  // namespace zr::test
