// The shapes of the wipes on tiny pictures. '#' is a pixel of `incoming`,
// '.' one of `outgoing`, rows are separated by spaces, and "#" or "." alone
// stands for the whole picture. Every shape is drawn in every format group,
// with either source coming in, as one band and on the four-band driver.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "fx_frames.h"

namespace {

// '#' fills the incoming picture and '.' the outgoing one; dst starts as '?'.
std::string Render(zrfxEffectFn* effect, uint32_t w, uint32_t h, uint32_t span, uint32_t progress,
                   uint32_t format, uint32_t bpp, bool reversed, bool driver) {
  zr::test::Frames f(w * h * bpp, 0);
  std::fill(f.a.begin(), f.a.end(), reversed ? '#' : '.'),
      std::fill(f.b.begin(), f.b.end(), reversed ? '.' : '#');
  std::fill(f.d.begin(), f.d.end(), '?');
  zr::test::Run(effect, f.Call(w * bpp, uint32_t{reversed} << 31, format, w, h, span, progress), driver);
  std::string picture;
  for (uint32_t i = 0; i < w * h; ++i) {
    const uint8_t* p = &f.d[i * bpp];
    const bool whole = std::all_of(p, p + bpp, [p](uint8_t v) { return v == *p; });
    picture += std::string(i && i % w == 0, ' ') + char(whole ? *p : '?');
  }
  return picture;
}

void ExpectShape(zrfxEffectFn* effect, uint32_t w, uint32_t h, uint32_t span, uint32_t progress,
                 std::string want) {
  if (want.size() == 1) {
    const std::string row(w, want[0]);
    for (uint32_t y = 1; y < h; ++y) want += row.substr(1) + ' ' + want[0];
    want += row.substr(1);
  }
  for (const auto& [format, bpp] : zr::test::kGroupFormats)
    for (bool reversed : {false, true})
      for (bool driver : {false, true})
        EXPECT_EQ(Render(effect, w, h, span, progress, format, bpp, reversed, driver), want)
            << w << "x" << h << " progress " << progress << " of " << span << " format " << format
            << (reversed ? " reversed" : "") << (driver ? " on the driver" : " as one band");
}

// 10 x 6 with a span of 100, at progress 0, 33, 100 and 130: the edge rows and
// columns that each comparison's strictness decides, and the wraps past the
// end, where the bottom right and the rectangle fall back to `outgoing`.
struct Steps {
  zrfxEffectFn* effect;
  const char* at[4];
};

// clang-format off
const Steps kTenBySix[] = {
  {zrfxSMPTE_Horizontal, {".", "###....... ###....... ###....... ###....... ###....... ###.......", "#", "#"}},
  {zrfxSMPTE_Vertical, {".", "########## .......... .......... .......... .......... ..........", "#", "#"}},
  {zrfxSMPTE_BarnDoorVertical, {"#......... #......... #......... #......... #......... #.........",
                                "##.......# ##.......# ##.......# ##.......# ##.......# ##.......#", "#", "#"}},
  {zrfxSMPTE_BarnDoorHorizontal, {"########## .......... .......... .......... .......... ..........",
                                  "########## .......... .......... .......... .......... ..........", "#", "#"}},
  {zrfxSMPTE_TopLeft, {".", "###....... .......... .......... .......... .......... ..........", "#", "#"}},
  {zrfxSMPTE_TopRight, {".", ".......### .......... .......... .......... .......... ..........", "#", "#"}},
  {zrfxSMPTE_BottomRight, {".", ".", ".......... .######### .######### .######### .######### .#########", "."}},
  {zrfxSMPTE_BottomLeft, {".", ".", ".......... ########## ########## ########## ########## ##########", "#"}},
  {zrfxSMPTE_FourCorners, {"#......... .......... .......... .......... .......... ..........",
                           "##.......# .......... .......... .......... .......... ..........", "#", "#"}},
  {zrfxSMPTE_FourSquare, {"########## #......... #......... #......... #......... #.........",
                          "########## ##.......# ##.......# ##.......# ##.......# ##.......#", "#", "#"}},
  {zrfxSMPTE_TopCenter, {"#......... #......... #......... #......... #......... #.........",
                         "##.......# ##.......# ##.......# ##.......# ##.......# ##########", "#", "#"}},
  {zrfxSMPTE_RightCenter, {"########## #......... #......... #......... #......... #.........",
                           "########## ####...... ####...... ####...... ####...... ####......", "#", "#"}},
  {zrfxSMPTE_BottomCenter, {"########## #......... #......... #......... #......... #.........",
                            "########## ########## ##.......# ##.......# ##.......# ##.......#", "#", "#"}},
  {zrfxSMPTE_LeftCenter, {"########## .......... .......... .......... .......... ..........",
                          "########## .......### .......### .......### .......### .......###", "#", "#"}},
  {zrfxSMPTE_Rectangle, {".", ".", ".......... ########## ########## ########## ########## ##########", "."}},
};

// Odd and one-pixel sizes, and a product that wraps at 2^32.
const struct {
  zrfxEffectFn* effect;
  uint32_t width, height, span, progress;
  const char* picture;
} kOddSizes[] = {
  {zrfxSMPTE_BarnDoorVertical, 5, 3, 4, 3, "##..# ##..# ##..#"},
  {zrfxSMPTE_BarnDoorHorizontal, 2, 7, 6, 2, "## ## .. .. .. .. ##"},
  {zrfxSMPTE_FourCorners, 7, 5, 10, 5, "##....# ##....# ....... ....... ##....#"},
  {zrfxSMPTE_FourSquare, 7, 5, 10, 5, "####### ####### ##....# ##....# #######"},
  {zrfxSMPTE_TopCenter, 7, 5, 10, 3, "#...... #...... #...... #...... #######"},
  {zrfxSMPTE_LeftCenter, 7, 5, 10, 3, "####### .....## .....## .....## .....##"},
  {zrfxSMPTE_Rectangle, 7, 5, 10, 5, "....... ....... ..####. ..####. ......."},
  {zrfxSMPTE_Rectangle, 2, 7, 10, 4, ".. .. .. .# .# .. .."},
  {zrfxSMPTE_BottomLeft, 1, 3, 3, 3, ". # #"},
  {zrfxSMPTE_TopRight, 3, 2, 2, 1, "..# ..."},
  // 7 x 2^30 wraps to 3 x 2^30: one column instead of three and a half.
  {zrfxSMPTE_Horizontal, 7, 2, 0x80000000u, 0x40000000u, "#...... #......"},
};
// clang-format on

TEST(WipeShapes, TenBySixAndOddSizes) {
  constexpr uint32_t kProgress[] = {0, 33, 100, 130};
  for (const Steps& s : kTenBySix)
    for (int i = 0; i < 4; ++i) ExpectShape(s.effect, 10, 6, 100, kProgress[i], s.at[i]);
  for (const auto& s : kOddSizes) ExpectShape(s.effect, s.width, s.height, s.span, s.progress, s.picture);
}

// A band may reach into the padding. There the top right's difference
// width - x wraps, so with scaledW at 2^32 - 4 the columns from 8 on come in
// again: width 4, band of 10 columns.
TEST(WipeShapes, TopRightColumnsPastTheWidthWrap) {
  zr::test::Frames f(40, 0);
  std::fill(f.a.begin(), f.a.end(), '.'), std::fill(f.b.begin(), f.b.end(), '#');
  auto call = f.Call(40, 0, 1, 4, 1, 1, 0x3FFFFFFF);
  call.bandRight = 10;
  zr::test::Run(zrfxSMPTE_TopRight, call);
  std::string picture;
  for (size_t i = 0; i < 40; i += 4) picture += char(f.d[i]);
  EXPECT_EQ(picture, "#####...##");
}

// A band writes its own pixels as the whole picture would and nothing else.
// The edge from the top does whole rows (see vertical_slide_test.cc).
TEST(WipeShapes, EveryBandWritesExactlyItsPixels) {
  zr::test::Rng r(0xBA2D);
  for (const Steps& s : kTenBySix)
    for (int i = 0; s.effect != zrfxSMPTE_Vertical && i < 60; ++i) {
      const auto [format, bpp] = zr::test::kGroupFormats[i % 6];
      const uint32_t w = 1 + r.Below(12), h = 1 + r.Below(6), pitch = w * bpp + 3;
      zr::test::Frames f(pitch * h, i);
      const auto call = f.Call(pitch, r.Below(2) << 31, format, w, h, 20, r.Below(27));
      zr::test::ExpectBandWritesItsPixels(s.effect, f, call, bpp, r);
    }
}

}  // namespace
