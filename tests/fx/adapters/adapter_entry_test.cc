// ZrDraw_DisplayWipeYCbCr and ZrDraw_DisplayWipeV210 through the wipe front
// door: the scratch request, the priority, the failure paths, the pitches,
// and what comes back into dst.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "fx/adapters/adapter_scratch.h"
#include "fx/adapters/v210_rows.h"
#include "platform/testhooks.h"
#include "platform/zrutil.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

using AdapterFn = uint32_t (*)(ZRFX_FRONT_DOOR_ARGS);
constexpr AdapterFn kAdapters[] = {ZrDraw_DisplayWipeYCbCr, ZrDraw_DisplayWipeV210};

// What the allocation hook saw, and the lines of the error log.
struct Seen {
  size_t size = 0;
  int priority = -1;
  std::vector<std::string> log;
} gSeen;

void* RecordingAlloc(size_t size) {
  gSeen.size = size;
  gSeen.priority = zrOSGetThreadPriority(zrOSGetCurrentThread());
  return std::malloc(size);
}
void* NullAlloc(size_t size) { return std::free(RecordingAlloc(size)), nullptr; }
void* ThrowingAlloc(size_t) { throw std::bad_alloc(); }

int Priority() { return zrOSGetThreadPriority(zrOSGetCurrentThread()); }

// A picture of `height` rows `pitch` bytes apart, seeded.
struct Frame {
  Frame(uint32_t pitch, uint32_t height, uint64_t seed) : pitch(pitch), bytes(size_t{pitch} * height) {
    test::Rng(seed).Fill(bytes.data(), bytes.size());
  }
  uint8_t* row(uint32_t y) { return bytes.data() + size_t{y} * pitch; }
  uint32_t pitch;
  std::vector<uint8_t> bytes;
};

// The log is captured during each test, and everything unhooked after.
class AdapterEntry : public ::testing::Test {
 protected:
  void SetUp() override {
    zr::testhooks::SetErrOutHook([](const std::string& line) { gSeen.log.push_back(line); });
  }
  void TearDown() override {
    zr::testhooks::SetAllocHook(nullptr);
    zr::testhooks::SetErrOutHook(nullptr);
    zrOSSetThreadPriority(zrOSGetCurrentThread(), 0);
  }
  // Format 99 is not read: the planes go to the wipe as format 33.
  static uint32_t Call(AdapterFn adapter, Frame& a, Frame& b, Frame& dst, uint32_t wipeCode, uint32_t width,
                       uint32_t height, uint32_t span, uint32_t progress) {
    return adapter(a.bytes.data(), a.pitch, b.bytes.data(), b.pitch, dst.bytes.data(), dst.pitch, wipeCode,
                   99, width, height, 1, 1, 0, 0, 0, 0, span, progress);
  }
};

// Success, an empty picture, no memory, a throwing allocator, and a size
// whose 32-bit scratch size would wrap: the result, the size asked for, the
// log, where the priority ends, and dst.
TEST_F(AdapterEntry, AllocationOutcomes) {
  const struct {
    const char* name;
    void* (*alloc)(size_t);
    uint32_t width, height, result, asked;
    bool logged;
    int priorityAfter;
  } cases[] = {
      {"success", RecordingAlloc, 10, 4, 0, 3432, false, 3},
      {"no width", RecordingAlloc, 0, 4, 0, 3072, false, 3},
      {"no height", RecordingAlloc, 10, 0, 0, 3072, false, 3},
      {"null", NullAlloc, 10, 4, 0xFFFFFFFFu, 3432, true, 3},
      // Nothing logged and the thread left at 15: keep this asymmetry.
      {"throws", ThrowingAlloc, 10, 4, 0xFFFFFFFFu, 0, false, 15},
      // Refused before any picture is read: the pictures may be null.
      {"wraps", RecordingAlloc, 100000, 5000, 0xFFFFFFFFu, 0, true, 3},
  };
  for (AdapterFn adapter : kAdapters) {
    for (const auto& c : cases) {
      gSeen = Seen{};
      zrOSSetThreadPriority(zrOSGetCurrentThread(), 3);
      zr::testhooks::SetAllocHook(c.alloc);
      Frame a(256, 4, 1), b(256, 4, 2), dst(256, 4, 3);
      const auto before = dst.bytes;
      const bool wraps = c.width == 100000;
      const uint32_t result = wraps ? adapter(nullptr, 0, nullptr, 0, nullptr, 0, 0, 99, c.width, c.height, 0,
                                              0, 0, 0, 0, 0, 100, 50)
                                    : Call(adapter, a, b, dst, 1, c.width, c.height, 100, 50);
      const std::string context =
          std::string(c.name) + (adapter == ZrDraw_DisplayWipeV210 ? " v210" : " 4:2:2");
      EXPECT_EQ(result, c.result) << context;
      EXPECT_EQ(gSeen.size, c.asked) << context;
      EXPECT_EQ(gSeen.log, c.logged ? std::vector<std::string>{"No Memory ZrDraw_DisplayWipeYCbCr"}
                                    : std::vector<std::string>{})
          << context;
      EXPECT_EQ(Priority(), c.priorityAfter) << context;
      if (c.asked) {
        EXPECT_EQ(gSeen.priority, 15) << context << ": the scratch work runs at 15 too";
      }
      if (c.result || !c.width || !c.height) {
        EXPECT_EQ(dst.bytes, before) << context;
      }
    }
  }
}

// Wipe 1 moves a vertical edge in from the left: at 3 of 10 over a width of
// 10 the first three pixels are incoming (srcB). The pair of pixels 2 and 3
// straddles the edge, so its byte 2 (the odd pixel's Y) comes from srcA and
// the rest from srcB. Each pitch is the caller's own.
TEST_F(AdapterEntry, YCbCrPairsOnTheEdgeTakeByteTwoFromTheOtherPicture) {
  Frame a(24, 4, 1), b(20, 4, 2), dst(22, 4, 3);
  const auto before = dst.bytes;
  EXPECT_EQ(Call(ZrDraw_DisplayWipeYCbCr, a, b, dst, 1, 10, 4, 10, 3), 0u);
  for (uint32_t y = 0; y < 4; ++y)
    for (uint32_t i = 0; i < 22; ++i) {
      const uint8_t want = i >= 20 ? before[y * 22 + i] : (i < 8 && i != 6) ? b.row(y)[i] : a.row(y)[i];
      EXPECT_EQ(dst.row(y)[i], want) << "x=" << i << " y=" << y;
    }
}

TEST_F(AdapterEntry, YCbCrDissolveEndsGiveEitherPictureBackWhole) {
  const struct {
    uint32_t wipeCode, progress;
    bool wantB;
  } cases[] = {{0, 0, false}, {0, 64, true}, {0x80000000u, 0, true}, {0x80000000u, 64, false}};
  for (const auto& c : cases) {
    Frame a(40, 5, 1), b(36, 5, 2), dst(38, 5, 3);
    EXPECT_EQ(Call(ZrDraw_DisplayWipeYCbCr, a, b, dst, c.wipeCode, 16, 5, 64, c.progress), 0u);
    for (uint32_t y = 0; y < 5; ++y)
      EXPECT_EQ(std::memcmp(dst.row(y), (c.wantB ? b : a).row(y), 32), 0) << y << " code " << c.wipeCode;
  }
}

TEST_F(AdapterEntry, V210WipeAtZeroGivesSourceAWithTheLowBitsCleared) {
  // Width 48 is one v210 block: pitches of 100 rise to 128.
  Frame a(128, 3, 1), b(128, 3, 2), dst(128, 3, 3);
  a.pitch = b.pitch = dst.pitch = 100;
  EXPECT_EQ(Call(ZrDraw_DisplayWipeV210, a, b, dst, 1, 48, 3, 100, 0), 0u);
  for (size_t i = 0; i < dst.bytes.size(); i += 4) {
    uint32_t got, src;
    std::memcpy(&got, &dst.bytes[i], 4);
    std::memcpy(&src, &a.bytes[i], 4);
    EXPECT_EQ(got, src & 0x3FCFF3FCu) << "byte " << i;
  }
}

// Width 14 with pitches 500, 100 and 140: 100 rises to 128, the others stand.
// The third group of a row (pixels 12 to 17) is written whole, its last four
// pixels from the plane bytes after the row: the next row's first pixels, or
// zeros after the last row.
TEST_F(AdapterEntry, V210RaisesShortPitchesAndWritesTheLastGroupWhole) {
  for (uint32_t progress : {0u, 100u}) {
    Frame a(500, 3, 1), b(128, 3, 2), dst(140, 3, 3);
    b.pitch = 100;
    const auto before = dst.bytes;
    EXPECT_EQ(Call(ZrDraw_DisplayWipeV210, a, b, dst, 1, 14, 3, 100, progress), 0u);
    b.pitch = 128;
    std::vector<uint8_t> plane(3 * 42 + kPlaneTail, 0);
    for (uint32_t y = 0; y < 3; ++y) ExpandV210Row_C((progress ? b : a).row(y), &plane[y * 42], 14);
    for (uint32_t y = 0; y < 3; ++y) {
      uint8_t want[48];
      PackV210Row_C(&plane[y * 42], want, 14);
      EXPECT_EQ(std::memcmp(dst.row(y), want, 48), 0) << "row " << y << " progress " << progress;
      EXPECT_EQ(std::memcmp(dst.row(y) + 48, &before[y * 140 + 48], 140 - 48), 0) << "row " << y;
    }
  }
}

TEST_F(AdapterEntry, GoldenDissolveThroughBothAdapters) {
  const struct {
    AdapterFn adapter;
    uint32_t pitch, progress, crc;
  } cases[] = {
      {ZrDraw_DisplayWipeYCbCr, 104, 23456, 0x205341e1},
      {ZrDraw_DisplayWipeYCbCr, 104, 65536, 0xbc8de9f9},
      {ZrDraw_DisplayWipeV210, 256, 23456, 0x4db71650},
      {ZrDraw_DisplayWipeV210, 256, 65536, 0x5990e132},
  };
  for (const auto& c : cases) {
    Frame a(c.pitch, 9, 11), b(c.pitch, 9, 12), dst(c.pitch, 9, 13);
    EXPECT_EQ(Call(c.adapter, a, b, dst, 0, 50, 9, 65536, c.progress), 0u);
    const uint32_t crc = test::Crc32(dst.bytes.data(), dst.bytes.size());
    EXPECT_EQ(crc, c.crc) << std::hex << "got 0x" << crc;
  }
}

}  // namespace
}  // namespace zr::fx
