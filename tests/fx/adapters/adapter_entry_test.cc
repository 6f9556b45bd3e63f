// ZrDraw_DisplayWipeYCbCr and ZrDraw_DisplayWipeV210 through the wipe front
// door: the scratch request, the priority, the failure paths, the pitches,
// and what comes back into dst.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "common/crc32.h"
#include "fx/adapters/adapter_scratch.h"
#include "fx/fx_frames.h"
#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {

using AdapterFn = uint32_t (*)(ZRFX_FRONT_DOOR_ARGS);

// What the allocation hook saw: the size, the caller's priority meanwhile.
size_t gAsked;
int gAskedAt;
std::vector<std::string> gLog;

int Priority() { return zrOSGetThreadPriority(zrOSGetCurrentThread()); }
void* RecordingAlloc(size_t size) { return gAsked = size, gAskedAt = Priority(), std::malloc(size); }
void* NullAlloc(size_t size) { return std::free(RecordingAlloc(size)), nullptr; }
void* ThrowingAlloc(size_t) { throw std::bad_alloc(); }

// Seeded pictures of `height` rows, each with its own pitch. Format 99 is not
// read: the planes go to the wipe as format 33.
struct Frames {
  uint32_t pitch[3];
  std::vector<uint8_t> bytes[3];
  Frames(uint32_t pitchA, uint32_t pitchB, uint32_t pitchD, uint32_t height, uint32_t least = 0)
      : pitch{pitchA, pitchB, pitchD} {
    for (int i = 0; i < 3; ++i) bytes[i].resize(size_t{std::max(pitch[i], least)} * height);
    for (int i = 0; i < 3; ++i) zr::test::Rng(11 + i).Fill(bytes[i].data(), bytes[i].size());
  }
  uint32_t Run(AdapterFn adapter, uint32_t code, uint32_t width, uint32_t height, uint32_t span,
               uint32_t progress) {
    return adapter(bytes[0].data(), pitch[0], bytes[1].data(), pitch[1], bytes[2].data(), pitch[2], code, 99,
                   width, height, 1, 1, 0, 0, 0, 0, span, progress);
  }
};

class AdapterEntry : public ::testing::Test {
 protected:
  void SetUp() override {
    zr::testhooks::SetErrOutHook([](const std::string& line) { gLog.push_back(line); });
  }
  void TearDown() override {
    zr::testhooks::SetAllocHook(nullptr);
    zr::testhooks::SetErrOutHook(nullptr);
    zrOSSetThreadPriority(zrOSGetCurrentThread(), 0);
  }
};

// Success, an empty picture, no memory, a throwing allocator, and a size
// whose 32-bit scratch size would wrap (refused before any picture is read,
// so the pictures may be null): the result, the size asked for, the log,
// where the priority ends, and dst. After a throwing allocator nothing is
// logged and the thread stays at 15: keep this asymmetry.
TEST_F(AdapterEntry, AllocationOutcomes) {
  const struct {
    void* (*alloc)(size_t);
    uint32_t width, height, result, asked;
    bool logged;
    int priorityAfter;
  } cases[] = {
      {RecordingAlloc, 10, 4, 0, 3432, false, 3},
      {RecordingAlloc, 0, 4, 0, 3072, false, 3},
      {RecordingAlloc, 10, 0, 0, 3072, false, 3},
      {NullAlloc, 10, 4, 0xFFFFFFFFu, 3432, true, 3},
      {ThrowingAlloc, 10, 4, 0xFFFFFFFFu, 0, false, 15},
      {RecordingAlloc, 100000, 5000, 0xFFFFFFFFu, 0, true, 3},
  };
  for (AdapterFn adapter : {ZrDraw_DisplayWipeYCbCr, ZrDraw_DisplayWipeV210})
    for (const auto& c : cases) {
      gAsked = 0, gAskedAt = -1, gLog.clear();
      zrOSSetThreadPriority(zrOSGetCurrentThread(), 3);
      zr::testhooks::SetAllocHook(c.alloc);
      Frames f(256, 256, 256, 4);
      const auto before = f.bytes[2];
      const bool wraps = c.width == 100000;
      EXPECT_EQ(wraps ? adapter(nullptr, 0, nullptr, 0, nullptr, 0, 0, 99, c.width, c.height, 0, 0, 0, 0, 0,
                                0, 100, 50)
                      : f.Run(adapter, 1, c.width, c.height, 100, 50),
                c.result);
      const std::string context =
          std::to_string(&c - cases) + (adapter == ZrDraw_DisplayWipeV210 ? " v210" : "");
      EXPECT_EQ(gAsked, c.asked) << context;
      EXPECT_EQ(gLog, std::vector<std::string>(c.logged, "No Memory ZrDraw_DisplayWipeYCbCr")) << context;
      EXPECT_EQ(Priority(), c.priorityAfter) << context;
      EXPECT_EQ(gAskedAt, c.asked ? 15 : -1) << context << ": the scratch work runs at 15 too";
      EXPECT_TRUE(!(c.result || !c.width || !c.height) || f.bytes[2] == before) << context;
    }
  // No wipe of this library throws, so the guard around the 4:2:2 adapter's
  // wipe never logs here; its line is fixed all the same.
  EXPECT_STREQ(zr::fx::kWipeExceptionText, "Exception Error ZrDraw_DisplayWipeYCbCr");
}

// CRCs of the whole dst buffer, each pitch the caller's own (each buffer
// holds at least a whole row a line, for the pitches below the row).
//
// 4:2:2, wipe 1 at 3 of 10 over a width of 10: the first three pixels are
// incoming. The pair of pixels 2 and 3 straddles the edge, so its byte 2 (the
// odd pixel's Y) comes from the outgoing picture and the rest from the
// incoming one.
//
// v210, wipe 1 at progress 0 over width 48: srcA with the two low bits of
// every sample cleared (each word masked with 0x3FCFF3FC). The smallest v210
// row is 128 bytes for each started group of 48 pixels, and a shorter pitch is
// raised to it: at width 50 a pitch of 0 gives the same bytes as 256. At width
// 14 the pitches 500, 100 and 140 are in force as 500, 128 and 140: each row's
// third group (pixels 12 to 17) is written whole, its last four pixels from the
// plane bytes after the row (the next row's first pixels, or zeros after the
// last row), and the rest of the row stays.
//
// From 63 rows on, pictures are tall enough for the row loops to run on two
// threads. A 4:2:2 dst pitch of 40 under rows of 52 bytes overlaps each row
// with the next, and a pitch of 0 puts every row in one place: the rows are
// packed top to bottom, so the lower row's bytes stand.
TEST_F(AdapterEntry, GoldenThroughBothAdapters) {
  const struct {
    AdapterFn adapter;
    uint32_t width, height, pitchA, pitchB, pitchD, code, span, progress, crc;
  } cases[] = {
      {ZrDraw_DisplayWipeYCbCr, 10, 4, 24, 20, 22, 1, 10, 3, 0x05433384},
      {ZrDraw_DisplayWipeYCbCr, 10, 4, 24, 20, 22, 0x80000001u, 10, 3, 0x492631da},
      {ZrDraw_DisplayWipeV210, 48, 3, 100, 100, 100, 1, 100, 0, 0xdc9d2621},
      {ZrDraw_DisplayWipeYCbCr, 50, 9, 104, 104, 104, 0, 65536, 23456, 0x205341e1},
      {ZrDraw_DisplayWipeYCbCr, 50, 9, 104, 104, 104, 0, 65536, 65536, 0xbc8de9f9},
      {ZrDraw_DisplayWipeV210, 50, 9, 256, 256, 256, 0, 65536, 23456, 0x4db71650},
      {ZrDraw_DisplayWipeV210, 50, 9, 256, 256, 256, 0, 65536, 65536, 0x5990e132},
      {ZrDraw_DisplayWipeV210, 50, 9, 0, 0, 0, 0, 65536, 23456, 0x4db71650},
      {ZrDraw_DisplayWipeV210, 14, 3, 500, 100, 140, 1, 100, 0, 0xfec14ead},
      {ZrDraw_DisplayWipeV210, 14, 3, 500, 100, 140, 1, 100, 100, 0x29a6a2f9},
      {ZrDraw_DisplayWipeYCbCr, 26, 63, 56, 60, 52, 0, 65536, 23456, 0xbe80276f},
      {ZrDraw_DisplayWipeYCbCr, 26, 64, 56, 60, 52, 1, 26, 9, 0x53bdb8f2},
      {ZrDraw_DisplayWipeYCbCr, 27, 65, 56, 60, 64, 0x80000003u, 100, 37, 0x14001b23},
      {ZrDraw_DisplayWipeYCbCr, 101, 131, 204, 208, 212, 0, 65536, 40000, 0xee0b1a7c},
      {ZrDraw_DisplayWipeYCbCr, 26, 97, 56, 60, 40, 1, 26, 9, 0x0bcaba78},
      {ZrDraw_DisplayWipeYCbCr, 26, 97, 56, 60, 0, 0, 65536, 23456, 0x9c2d854e},
      {ZrDraw_DisplayWipeV210, 50, 63, 256, 300, 256, 0, 65536, 23456, 0xb0de7ba0},
      {ZrDraw_DisplayWipeV210, 50, 64, 0, 256, 260, 1, 50, 17, 0x24ac0664},
      {ZrDraw_DisplayWipeV210, 14, 65, 500, 100, 140, 3, 100, 61, 0xe06fc612},
      {ZrDraw_DisplayWipeV210, 97, 131, 384, 400, 0, 0x80000000u, 65536, 40000, 0xbb721ebc},
  };
  for (const auto& c : cases) {
    Frames f(c.pitchA, c.pitchB, c.pitchD, c.height,
             c.adapter == ZrDraw_DisplayWipeV210 ? 128 * (c.width / 48 + 1) : 2 * c.width);
    EXPECT_EQ(f.Run(c.adapter, c.code, c.width, c.height, c.span, c.progress), 0u);
    const uint32_t crc = zr::test::Crc32(f.bytes[2].data(), f.bytes[2].size());
    EXPECT_EQ(crc, c.crc) << "case " << &c - cases << std::hex << " got 0x" << crc;
  }
}

}  // namespace
