// The shapes of the wipes on a 10 x 6 picture with a span of 100, at
// progress 0, 33, 100 and 130, edge rows and columns and wraps included.
// '#' is a pixel of `incoming`, '.' one of `outgoing`.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "late_workers.h"
#include "zrfx.h"

namespace {

constexpr uint32_t kW = 10, kH = 6;

struct Shape {
  zrfxEffectFn* effect;
  const char* name;
  uint32_t progress;
  const char* rows[kH];
};

// clang-format off
#define ALL {"##########", "##########", "##########", "##########", "##########", "##########"}
#define NONE {"..........", "..........", "..........", "..........", "..........", ".........."}

const Shape kShapes[] = {
    {zrfxSMPTE_Horizontal, "Horizontal", 0, NONE},
    {zrfxSMPTE_Horizontal, "Horizontal", 33, {"###.......", "###.......", "###.......", "###.......", "###.......", "###......."}},
    {zrfxSMPTE_Horizontal, "Horizontal", 100, ALL},
    {zrfxSMPTE_Horizontal, "Horizontal", 130, ALL},
    {zrfxSMPTE_Vertical, "Vertical", 0, NONE},
    {zrfxSMPTE_Vertical, "Vertical", 33, {"##########", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_Vertical, "Vertical", 100, ALL},
    {zrfxSMPTE_Vertical, "Vertical", 130, ALL},
    {zrfxSMPTE_BarnDoorVertical, "BarnDoorVertical", 0, {"#.........", "#.........", "#.........", "#.........", "#.........", "#........."}},
    {zrfxSMPTE_BarnDoorVertical, "BarnDoorVertical", 33, {"##.......#", "##.......#", "##.......#", "##.......#", "##.......#", "##.......#"}},
    {zrfxSMPTE_BarnDoorVertical, "BarnDoorVertical", 100, ALL},
    {zrfxSMPTE_BarnDoorVertical, "BarnDoorVertical", 130, ALL},
    {zrfxSMPTE_BarnDoorHorizontal, "BarnDoorHorizontal", 0, {"##########", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_BarnDoorHorizontal, "BarnDoorHorizontal", 33, {"##########", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_BarnDoorHorizontal, "BarnDoorHorizontal", 100, ALL},
    {zrfxSMPTE_BarnDoorHorizontal, "BarnDoorHorizontal", 130, ALL},
    {zrfxSMPTE_TopLeft, "TopLeft", 0, NONE},
    {zrfxSMPTE_TopLeft, "TopLeft", 33, {"###.......", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_TopLeft, "TopLeft", 100, ALL},
    {zrfxSMPTE_TopLeft, "TopLeft", 130, ALL},
    {zrfxSMPTE_TopRight, "TopRight", 0, NONE},
    {zrfxSMPTE_TopRight, "TopRight", 33, {".......###", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_TopRight, "TopRight", 100, ALL},
    {zrfxSMPTE_TopRight, "TopRight", 130, ALL},
    {zrfxSMPTE_BottomRight, "BottomRight", 0, NONE},
    {zrfxSMPTE_BottomRight, "BottomRight", 33, NONE},
    {zrfxSMPTE_BottomRight, "BottomRight", 100, {"..........", ".#########", ".#########", ".#########", ".#########", ".#########"}},
    {zrfxSMPTE_BottomRight, "BottomRight", 130, NONE},
    {zrfxSMPTE_BottomLeft, "BottomLeft", 0, NONE},
    {zrfxSMPTE_BottomLeft, "BottomLeft", 33, NONE},
    {zrfxSMPTE_BottomLeft, "BottomLeft", 100, {"..........", "##########", "##########", "##########", "##########", "##########"}},
    {zrfxSMPTE_BottomLeft, "BottomLeft", 130, ALL},
    {zrfxSMPTE_FourCorners, "FourCorners", 0, {"#.........", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_FourCorners, "FourCorners", 33, {"##.......#", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_FourCorners, "FourCorners", 100, ALL},
    {zrfxSMPTE_FourCorners, "FourCorners", 130, ALL},
    {zrfxSMPTE_FourSquare, "FourSquare", 0, {"##########", "#.........", "#.........", "#.........", "#.........", "#........."}},
    {zrfxSMPTE_FourSquare, "FourSquare", 33, {"##########", "##.......#", "##.......#", "##.......#", "##.......#", "##.......#"}},
    {zrfxSMPTE_FourSquare, "FourSquare", 100, ALL},
    {zrfxSMPTE_FourSquare, "FourSquare", 130, ALL},
    {zrfxSMPTE_TopCenter, "TopCenter", 0, {"#.........", "#.........", "#.........", "#.........", "#.........", "#........."}},
    {zrfxSMPTE_TopCenter, "TopCenter", 33, {"##.......#", "##.......#", "##.......#", "##.......#", "##.......#", "##########"}},
    {zrfxSMPTE_TopCenter, "TopCenter", 100, ALL},
    {zrfxSMPTE_TopCenter, "TopCenter", 130, ALL},
    {zrfxSMPTE_RightCenter, "RightCenter", 0, {"##########", "#.........", "#.........", "#.........", "#.........", "#........."}},
    {zrfxSMPTE_RightCenter, "RightCenter", 33, {"##########", "####......", "####......", "####......", "####......", "####......"}},
    {zrfxSMPTE_RightCenter, "RightCenter", 100, ALL},
    {zrfxSMPTE_RightCenter, "RightCenter", 130, ALL},
    {zrfxSMPTE_BottomCenter, "BottomCenter", 0, {"##########", "#.........", "#.........", "#.........", "#.........", "#........."}},
    {zrfxSMPTE_BottomCenter, "BottomCenter", 33, {"##########", "##########", "##.......#", "##.......#", "##.......#", "##.......#"}},
    {zrfxSMPTE_BottomCenter, "BottomCenter", 100, ALL},
    {zrfxSMPTE_BottomCenter, "BottomCenter", 130, ALL},
    {zrfxSMPTE_LeftCenter, "LeftCenter", 0, {"##########", "..........", "..........", "..........", "..........", ".........."}},
    {zrfxSMPTE_LeftCenter, "LeftCenter", 33, {"##########", ".......###", ".......###", ".......###", ".......###", ".......###"}},
    {zrfxSMPTE_LeftCenter, "LeftCenter", 100, ALL},
    {zrfxSMPTE_LeftCenter, "LeftCenter", 130, ALL},
    {zrfxSMPTE_Rectangle, "Rectangle", 0, NONE},
    {zrfxSMPTE_Rectangle, "Rectangle", 33, NONE},
    {zrfxSMPTE_Rectangle, "Rectangle", 100, {"..........", "##########", "##########", "##########", "##########", "##########"}},
    {zrfxSMPTE_Rectangle, "Rectangle", 130, NONE},
};
// clang-format on

constexpr uint32_t kFormats[] = {1, 5, 31, 32, 29, 30};
constexpr uint32_t kBytes[] = {4, 3, 6, 8, 16, 12};

// Runs the effect over the whole picture, as one band or on the driver, and
// reads back which picture each pixel came from.
std::vector<std::string> Render(const Shape& s, uint32_t format, uint32_t bpp, bool reversed, bool driver) {
  const uint32_t pitch = kW * bpp;
  std::vector<uint8_t> a(pitch * kH, 0xA1), b(pitch * kH, 0xB2), d(pitch * kH, 0x5C);
  const uint32_t code = reversed ? 0x80000000u : 0;
  if (driver) {
    ZrDraw_FXMultiThread(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, format, kW, kH, 0, 0, 0, 0,
                         0, 0, 100, s.progress, 0, 0, 0, 0, s.effect);
    zr::test::WaitForLateWorkers();
  } else {
    s.effect(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, format, kW, kH, 0, 0, 0, 0, 0, 0, 100,
             s.progress, 0, kW, 0, kH);
  }
  const uint8_t incoming = reversed ? 0xA1 : 0xB2, outgoing = reversed ? 0xB2 : 0xA1;
  std::vector<std::string> rows(kH, std::string(kW, '?'));
  for (uint32_t y = 0; y < kH; ++y)
    for (uint32_t x = 0; x < kW; ++x) {
      const uint8_t* p = &d[y * pitch + x * bpp];
      bool allIn = true, allOut = true;
      for (uint32_t i = 0; i < bpp; ++i) {
        allIn &= p[i] == incoming;
        allOut &= p[i] == outgoing;
      }
      rows[y][x] = allIn ? '#' : allOut ? '.' : '?';
    }
  return rows;
}

TEST(WipeShapes, EveryMemberAtTheEdgesOfTheScaleInEveryFormatGroup) {
  for (const Shape& s : kShapes) {
    const std::vector<std::string> want(std::begin(s.rows), std::end(s.rows));
    for (size_t f = 0; f < std::size(kFormats); ++f)
      for (bool reversed : {false, true})
        for (bool driver : {false, true})
          EXPECT_EQ(Render(s, kFormats[f], kBytes[f], reversed, driver), want)
              << s.name << " progress " << s.progress << " format " << kFormats[f]
              << (reversed ? " reversed" : "") << (driver ? " on the driver" : " as one band");
  }
}

}  // namespace
