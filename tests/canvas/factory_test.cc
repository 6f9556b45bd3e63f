// The factory, the reference count and the plain-function interface.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <typeinfo>
#include <vector>

#include "canvas/test_canvas.h"
#include "platform/zrutil.h"

namespace {

using zr::test::State;

// Every type with a class: the class, the type and matrix it ends with, and
// the pitch it computes for a pitch of 0, at SD and HD widths.
TEST(Factory, BuildsTheClassOfEachType) {
  struct Row {
    unsigned int type;
    const std::type_info& cls;
    unsigned int pitch640, pitch1920;
    int mode640, mode1920;
  };
  const Row rows[] = {
      {1, typeid(CDrawRGBA32), 2560, 7680, 1, 1},      {4, typeid(CDrawRGBA32), 2560, 7680, 1, 1},
      {5, typeid(CDrawRGB24), 1920, 5760, 1, 1},       {6, typeid(CDrawRGB24), 1920, 5760, 1, 1},
      {10, typeid(CDrawYCbCrYUYV), 1280, 3840, 1, 3},  {13, typeid(CDrawYCbCrYUYV), 1280, 3840, 1, 3},
      {14, typeid(CDrawYCbCr10), 1792, 5120, 1, 3},    {20, typeid(CDrawRGB30DPX), 2560, 7680, 1, 1},
      {21, typeid(CDrawBayer), 960, 2880, 1, 1},       {28, typeid(CDrawBayer), 960, 2880, 1, 1},
      {31, typeid(CDrawRGB48), 3840, 11520, 1, 1},     {32, typeid(CDrawARGB64), 5120, 15360, 1, 1},
      {37, typeid(CDrawRGBHalf48), 3840, 11520, 1, 1}, {38, typeid(CDrawARGB64), 5120, 15360, 1, 1},
      {10000, typeid(CDrawUV8), 1280, 3840, 1, 3},     {10001, typeid(CDrawUV16), 2560, 7680, 1, 3},
  };
  std::vector<char> mem(64);
  for (const Row& row : rows) {
    for (int width : {640, 1920}) {
      ZrDraw* c = nullptr;
      ASSERT_EQ(0, GetDraw(row.type, width, 4, 0, mem.data(), c)) << row.type;  // height goes first
      EXPECT_EQ("type " + std::to_string(row.type) + " " + std::to_string(width) + "x4 pitch " +
                    std::to_string(width == 640 ? row.pitch640 : row.pitch1920) + " font refs 1",
                State(c));
      EXPECT_TRUE(typeid(*c) == row.cls) << row.type;
      EXPECT_EQ(width == 640 ? row.mode640 : row.mode1920, c->mYCbCrMode) << row.type;
      EXPECT_TRUE(mem.data() == c->mpCanvas && c->mChangeEvent);
      EXPECT_EQ(0, ReleaseDraw(c));
      EXPECT_FALSE(c);
    }
  }
  ZrDraw* c = reinterpret_cast<ZrDraw*>(uintptr_t{0x1234});
  EXPECT_EQ(-1, GetDraw(0xFFFFFFFF, 8, 8, 0, nullptr, c));
  EXPECT_EQ(0x1234u, reinterpret_cast<uintptr_t>(c));
}

TEST(Factory, TypesWithoutAClassRepointALiveCanvas) {
  std::vector<char> a(4096), b(4096);
  for (unsigned int type : {0u, 7u, 9u, 15u, 16u, 19u, 29u, 30u, 33u, 36u, 99u, 0x7FFFFFFFu}) {
    ZrDraw* c = nullptr;
    EXPECT_EQ(-2, GetDraw(type, 8, 8, 0, a.data(), c)) << type;
    EXPECT_EQ(nullptr, c);
    EXPECT_EQ(nullptr, qtGetDraw(type, 640, 480, 0, a.data()));
    ASSERT_EQ(0, GetDraw(pixelBGR24, 4, 4, 0, a.data(), c));
    c->mbUseBuiltInFont = false;
    ZrDraw* before = c;
    EXPECT_EQ(0, GetDraw(type, 16, 9, 0, b.data(), c)) << type;
    EXPECT_TRUE(before == c && c->mpCanvas == b.data());
    EXPECT_EQ("type 6 16x9 pitch 48 font refs 1", State(c));  // the old type stays
    ReleaseDraw(c);
  }
}

TEST(Factory, ReferenceCountAndFonts) {
  ZrDraw* c = qtGetDraw(pixelRGBA32, 4, 4, 0, nullptr);
  EXPECT_EQ(0, AddRefDraw(c));
  EXPECT_EQ(0, qtAddRefDraw(c));
  EXPECT_EQ(0, qtReleaseDraw(c));
  ZrDraw* keep = c;
  EXPECT_EQ(0, ReleaseDraw(c));  // a count of 2: the caller's pointer stays
  EXPECT_TRUE(keep == c && c->mRefCount == 1);
  c->mbUseBuiltInFont = false;
  EXPECT_EQ(0, UseDefaultFont(c, false));
  EXPECT_EQ("type 1 4x4 pitch 16 font refs 1", State(c));
  c->mbUseBuiltInFont = false;
  char name[] = "deffont_sd.bmp";
  EXPECT_EQ(0, qtUseDefaultFont(c, false) + SetFont(c, name) + qtSetFont(c, nullptr) + c->HaveFont());
  EXPECT_TRUE(c->mbUseBuiltInFont);
  c->mRefCount = -5;  // a count at or below 0 also ends the object
  EXPECT_EQ(0, ReleaseDraw(c));
  EXPECT_EQ(nullptr, c);
}

TEST(QtInterface, NullCanvasAndEmptySizeFunctions) {
  EXPECT_EQ(-6, qtZrPixelLock(nullptr, 5) + qtZrPixelTryLock(nullptr) + qtZrPixelUnlock(nullptr) +
                    qtZrPixelLastChange(nullptr, 5) + qtZrPixelSetCanvas(nullptr, nullptr, 1, 1, 0) +
                    static_cast<int>(qtZrPixelWaitForChangeEvent(nullptr, 0)));
  qtZrPixelSetChangeEvent(nullptr);
  tagBITMAPINFO b;
  std::memset(&b, 0x5A, sizeof b);
  const tagBITMAPINFO copy = b;
  unsigned int type = 77;
  EXPECT_EQ(0u, qtGetDrawSizeBMI(&b, &type) + qtGetDrawSizeBMI(nullptr, nullptr) + qtGetDrawSize(1, 9, 9, 0));
  EXPECT_EQ(77u, type);
  EXPECT_EQ(0, std::memcmp(&b, &copy, sizeof b));
}

TEST(QtInterface, StateThroughTheHandle) {
  ZrDraw* c = qtGetDraw(pixelRGB24, 8, 8, 0, nullptr);
  EXPECT_EQ((std::vector<int>{0, 77, 77, -2}),
            (std::vector<int>{qtZrPixelLastChange(c, -1), qtZrPixelLastChange(c, 77),
                              qtZrPixelLastChange(c, -1), qtZrPixelLastChange(c, -2)}));
  std::vector<char> mem(100);
  c->mbUseBuiltInFont = false;
  EXPECT_EQ(0, qtZrPixelSetCanvas(c, mem.data(), 3, 5, 1));
  EXPECT_EQ("type 5 5x3 pitch 15 refs 1", State(c));
  qtZrPixelSetChangeEvent(c);
  EXPECT_EQ(kZrWaitSignaled, qtZrPixelWaitForChangeEvent(c, 0));
  EXPECT_EQ(kZrWaitTimeout, qtZrPixelWaitForChangeEvent(c, 1));
  EXPECT_EQ((std::vector<int>{0, 128, 1}),
            (std::vector<int>{qtZrPixelLock(c, 0), qtZrPixelLock(c, 10), qtZrPixelTryLock(c)}));  // recursive
  EXPECT_EQ(0, qtZrPixelUnlock(c) + qtZrPixelUnlock(c) + qtZrPixelUnlock(c));
  zrOSCloseEvent(c->mChangeEvent);  // a null change event is tolerated
  c->mChangeEvent = nullptr;
  EXPECT_EQ(0, c->SetChangeEvent());
  EXPECT_EQ(kZrWaitFailed, c->WaitForChangeEvent(0));
  qtReleaseDraw(c);
}

}  // namespace
