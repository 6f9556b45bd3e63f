// The gallery, as the README's first command runs it: it must finish and
// produce the contact sheet with every picture it names.
#include <gtest/gtest.h>

#include <regex>

#include "run_zrfx.h"
#include "zrfx/png_io.h"

namespace zrfx {
namespace {

TEST(Gallery, WritesTheContactSheetAndEveryPicture) {
  test::ScratchDir dir;
  const test::RunResult r = test::RunZrfx({"--out", dir / "gallery"});
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  EXPECT_TRUE(r.err.empty()) << r.err;
  EXPECT_NE(r.out.find("contact sheet: "), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("index.html"), std::string::npos) << r.out;

  const std::string html = test::ReadFile(dir / "gallery/index.html");
  const std::regex image("<img src=\"([^\"]+)\"");
  size_t pictures = 0;
  for (auto it = std::sregex_iterator(html.begin(), html.end(), image); it != std::sregex_iterator(); ++it) {
    const PngPicture picture = ReadPng(dir / ("gallery/" + (*it)[1].str()));
    EXPECT_EQ(picture.frame.width(), 384u) << (*it)[1];
    EXPECT_EQ(picture.frame.height(), 216u) << (*it)[1];
    ++pictures;
  }
  // Sources, 20 wipe families and the reverse row at three progress values,
  // the adapters, the mux modes and grids, and at least the RGB canvases.
  EXPECT_GE(pictures, 2u + 63u + 6u + 39u + 4u);
  for (const char* caption : {"wipe 22 (zrfxSMPTE_BarnDoorHorizontal), progress 75 of 100",
                              "ZrDraw_DisplayWipeV210", "SIDE_BY_SIDE (0x000400)",
                              "SPLIT (0x000800) + DIVIDER", "grid mode 1 at 25%", "qtGetDraw(pixelRGB24 = 5"})
    EXPECT_NE(html.find(caption), std::string::npos) << caption;
}

TEST(Gallery, MontagesAtAnotherSize) {
  test::ScratchDir dir;
  const test::RunResult r = test::RunZrfx({"gallery", "--out", dir / "g", "--size", "96x54", "--sheet-png"});
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  const PngPicture first = ReadPng(dir / "g/sheet-1.png");
  EXPECT_GT(first.frame.width(), 96u);
  EXPECT_EQ(ReadPng(dir / "g/wipe-001-50.png").frame.width(), 96u);
}

}  // namespace
}  // namespace zrfx
