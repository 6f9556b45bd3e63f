// ZrDraw_DisplayWipe: the wipe number on either side of each boundary of its
// table, formats in no group, and the rows of the output.
#include <gtest/gtest.h>

#include "fx_frames.h"

namespace {

// Each number writes what its effect writes when called directly, and
// dstPitch is never read. 508 and 515 reach the slide, which does nothing for
// them, as for 500 with the reverse flag. Format 10 (4:2:2) is in no group:
// dst stays as it was, except that the slide takes it as 4 bytes a pixel.
TEST(FrontDoor, NumbersAtTheBoundariesOfTheTable) {
  constexpr uint32_t kW = 21, kH = 9, kPitch = kW * 4;
  const struct {
    uint32_t code;
    zrfxEffectFn* effect;
  } cases[] = {
      // clang-format off
      {0, zrfxDISSOLVE}, {0x80000001u, zrfxSMPTE_Horizontal}, {8, zrfxSMPTE_FourSquare}, {9, zrfxDISSOLVE},
      {20, zrfxDISSOLVE}, {21, zrfxSMPTE_BarnDoorVertical}, {26, zrfxSMPTE_LeftCenter}, {27, zrfxDISSOLVE},
      {41, zrfxSMPTE_Rectangle}, {101, zrfxSMPTE_Rectangle}, {102, zrfxSMPTE_Horizontal},
      {409, zrfxSMPTE_Horizontal}, {410, zrfxDISSOLVE}, {499, zrfxDISSOLVE}, {500, zrfxSLIDE_Basic},
      {507, zrfxSLIDE_Basic}, {508, zrfxSLIDE_Basic}, {515, zrfxSLIDE_Basic}, {516, zrfxDISSOLVE},
      {0x80000000u | 500, zrfxSLIDE_Basic}, {0x80000000u, zrfxDISSOLVE}, {0xFFFFFFFFu, zrfxDISSOLVE},
      {0x80000000u | 26, zrfxSMPTE_LeftCenter},
      // clang-format on
  };

  for (const auto& c : cases)
    for (uint32_t format : {1u, 10u}) {
      zr::test::Frames direct(kPitch * kH, c.code), door = direct;
      const auto before = door.d;
      zr::test::Run(c.effect, direct.Call(kPitch, c.code, format, kW, kH, 100, 37));
      auto call = door.Call(kPitch, c.code, format, kW, kH, 100, 37);
      call.dstPitch = 0xDEAD;
      EXPECT_EQ(zr::test::RunFrontDoor(call), 0u);
      EXPECT_EQ(door.d, direct.d) << "code " << std::hex << c.code << " format " << format;
      EXPECT_TRUE(format == 1 || c.effect == zrfxSLIDE_Basic || door.d == before) << "code " << c.code;
    }
}

// srcA rows 80 bytes apart, srcB and dst rows 100: the output takes pitchB,
// whichever picture comes in, so a dst meant to be packed comes out sheared.
// Progress 64 of 10..74 is complete: the start counts only through the span.
TEST(FrontDoor, OutputRowsArePitchBApart) {
  constexpr uint32_t kWidth = 16, kRows = 5, kPitchA = 80, kPitchB = 100;
  for (uint32_t code : {0u, 1u, 3u, 8u, 22u, 0x80000000u, 0x80000001u, 0x80000003u, 0x80000008u}) {
    zr::test::Frames f(kPitchB * kRows, code);
    const auto before = f.d;
    zr::test::RunFrontDoor({f.a.data(), kPitchA, f.b.data(), kPitchB, f.d.data(), kWidth * 4, code, 1,
                            kWidth,     kRows,   0,          0,       0,          0,          0,    10,
                            74,         64,      0,          0,       0,          0});
    for (uint32_t y = 0; y < kRows; ++y)
      for (uint32_t i = 0; i < kPitchB; ++i)
        ASSERT_EQ(f.d[y * kPitchB + i], i >= kWidth * 4 ? before[y * kPitchB + i]
                                        : code >> 31    ? f.a[y * kPitchA + i]
                                                        : f.b[y * kPitchB + i])
            << "code " << std::hex << code << std::dec << " row " << y << " byte " << i;
  }
}

}  // namespace
