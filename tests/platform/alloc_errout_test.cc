#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {

std::vector<std::string> gLines;
void Capture(const std::string& line) { gLines.push_back(line); }
void* NullAlloc(size_t) { return nullptr; }
void* ThrowingAlloc(size_t) { throw std::bad_alloc(); }

TEST(Hooks, AllocHookMakesZrAllocFailOrThrowThenRestores) {
  zr::testhooks::SetAllocHook(NullAlloc);
  EXPECT_EQ(ZrAlloc(16), nullptr);
  zr::testhooks::SetAllocHook(ThrowingAlloc);
  EXPECT_THROW(ZrAlloc(16), std::bad_alloc);
  zr::testhooks::SetAllocHook(nullptr);
  void* p = ZrAlloc(16);
  EXPECT_NE(p, nullptr);
  ZrFree(p);
  ZrFree(nullptr);
}

TEST(Hooks, ErrOutHookReceivesTheFormattedLine) {
  gLines.clear();
  zr::testhooks::SetErrOutHook(Capture);
  ErrOut("No Memory %s", "ZrDraw_DisplayWipeYCbCr");
  ErrOut("%d", 42);
  zr::testhooks::SetErrOutHook(nullptr);
  ASSERT_EQ(gLines.size(), 2u);
  EXPECT_EQ(gLines[0], "No Memory ZrDraw_DisplayWipeYCbCr");
  EXPECT_EQ(gLines[1], "42");
}

TEST(Files, AppDirEndsWithSeparatorAndExists) {
  char buf[4096] = {};
  zrOSGetAppDir(buf);
  std::string dir(buf);
  ASSERT_FALSE(dir.empty());
  EXPECT_EQ(dir.back(), '/');
  EXPECT_NE(zrOSFileExists(buf), 0);
  EXPECT_EQ(zrOSFileExists((dir + "no-such-file.bmp").c_str()), 0);
}

}  // namespace

namespace {

TEST(Alloc, LargeBlocksAreReusedWhenTheyFit) {
  const size_t frame = size_t{8} << 20;
  void* a = ZrAlloc(frame);
  ASSERT_NE(a, nullptr);
  static_cast<char*>(a)[frame - 1] = 1;
  ZrFree(a);
  void* b = ZrAlloc(frame - 4096);
  EXPECT_EQ(b, a);
  static_cast<char*>(b)[frame - 4097] = 2;
  ZrFree(b);
  // A request that the kept block cannot hold gets a block of its own.
  void* c = ZrAlloc(2 * frame);
  ASSERT_NE(c, nullptr);
  static_cast<char*>(c)[2 * frame - 1] = 3;
  ZrFree(c);
  void* small = ZrAlloc(64);
  ASSERT_NE(small, nullptr);
  ZrFree(small);
}

}  // namespace
