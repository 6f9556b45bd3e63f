// The four-band driver: its bands, its threads, its bounded wait and the
// block that outlives a late worker.
#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <mutex>
#include <tuple>

#include "fx/run_bands.h"
#include "fx_frames.h"
#include "platform/zrutil.h"

namespace {

using Clock = std::chrono::steady_clock;
using zr::fx::FxCall;

// Waits up to `ms` for `done`, sleeping 1 ms between looks.
template <class Done>
bool WaitFor(Done done, int ms) {
  for (int i = 0; i < ms && !done(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return done();
}

struct Seen {
  FxCall call;
  char name[16];
  int priority;
};

std::mutex gSeenLock;
std::vector<Seen> gSeen;

// Records the call, the thread's name and its priority (the driver raises
// each worker just after creating it); the caller's thread is not "dffx".
uint32_t Recorder(ZRFX_EFFECT_ARGS) {
  Seen s{ZRFX_CALL_RECORD, {}, 0};
  pthread_getname_np(pthread_self(), s.name, sizeof s.name);
  WaitFor([] { return zrOSGetThreadPriority(zrOSGetCurrentThread()) == 15; }, 5000);
  s.priority = zrOSGetThreadPriority(zrOSGetCurrentThread());
  std::lock_guard<std::mutex> lock(gSeenLock);
  gSeen.push_back(s);
  return 77;
}

auto Arguments(const FxCall& c) {
  return std::make_tuple(c.srcA, c.pitchA, c.srcB, c.pitchB, c.dst, c.dstPitch, c.wipeCode, c.format, c.width,
                         c.height, c.fxReserved0, c.fxReserved1, c.fxReserved2, c.fxReserved3, c.fxReserved4,
                         c.progressStart, c.progressEnd, c.progress);
}

// Odd sizes give the extra column to the right bands and the extra row to the
// lower ones; a size of 1 or 0 leaves bands empty, and all four still run.
TEST(ThreadDriver, FourNamedRaisedWorkersGetTheQuadrantsAndTheCallUnchanged) {
  const uint32_t sizes[][2] = {{10, 6}, {11, 7}, {1, 1}, {0, 0}, {1, 5}, {3840, 2160}};
  zrOSSetThreadPriority(zrOSGetCurrentThread(), 3);
  uint8_t a = 0, b = 0, d = 0;
  for (const auto& [w, h] : sizes) {
    gSeen.clear();
    const FxCall call{&a, 11, &b, 22, &d, 33, 0x80000007u, 29,  w,   h,   1,
                      2,  3,  4,  5,  6,  7,  8,           111, 222, 333, 444};
    EXPECT_EQ(ZrDraw_FXMultiThread(ZRFX_CALL_VALUES(call), Recorder), 0u);
    EXPECT_EQ(zrOSGetThreadPriority(zrOSGetCurrentThread()), 3) << "the caller keeps its priority";
    zr::test::WaitForLateWorkers();
    std::lock_guard<std::mutex> lock(gSeenLock);
    ASSERT_EQ(gSeen.size(), 4u) << w << "x" << h;
    std::vector<std::array<uint32_t, 4>> bands;
    for (const Seen& s : gSeen) {
      EXPECT_EQ(Arguments(s.call), Arguments(call));
      EXPECT_STREQ(s.name, "dffx");
      EXPECT_EQ(s.priority, 15);
      bands.push_back({s.call.bandLeft, s.call.bandRight, s.call.bandTop, s.call.bandBottom});
    }
    std::sort(bands.begin(), bands.end());
    std::vector<std::array<uint32_t, 4>> want = {
        {0, w >> 1, 0, h >> 1}, {w >> 1, w, 0, h >> 1}, {0, w >> 1, h >> 1, h}, {w >> 1, w, h >> 1, h}};
    std::sort(want.begin(), want.end());
    EXPECT_EQ(bands, want) << w << "x" << h;
  }
  zrOSSetThreadPriority(zrOSGetCurrentThread(), 0);
}

std::atomic<bool> gRelease{false};
std::atomic<int> gOthersDone{0};

// Job 0 holds on until the test lets it go; the others wipe at once.
uint32_t HeldHorizontal(ZRFX_EFFECT_ARGS) {
  const bool held = bandLeft == 0 && bandTop == 0;
  if (held) WaitFor([] { return gRelease.load(); }, 10000);
  zrfxSMPTE_Horizontal(ZRFX_CALL_VALUES(ZRFX_CALL_RECORD));
  if (!held) gOthersDone.fetch_add(1);
  return 0;
}

// The driver gives up after its bound, and the late worker still finds its
// record. The pictures live in scratch that the caller lets go of while the
// worker still runs, as an adapter does: the last worker frees it (the
// sanitizer build catches a write into freed memory).
TEST(ThreadDriver, GivesUpAfterTheBoundAndTheLateWorkerKeepsItsMemory) {
  constexpr uint32_t kW = 8, kH = 4, kPitch = kW * 4, kBytes = 4096;
  auto* block = static_cast<uint8_t*>(ZrAlloc(kBytes));
  ASSERT_NE(block, nullptr);
  uint8_t *a = block, *b = block + kPitch * kH, *d = b + kPitch * kH;
  std::memset(a, 0xAA, kPitch * kH), std::memset(b, 0xBB, kPitch * kH), std::memset(d, 0, kPitch * kH);
  zr::fx::SharedScratch* scratch = zr::fx::SharedScratch::Adopt(block, kBytes);
  const int live = zr::fx::BandJobBlock::LiveBlocks();
  gRelease = false;
  gOthersDone = 0;
  const auto start = Clock::now();
  const zr::fx::FxCall call{a, kPitch, b, kPitch, d, kPitch, 0, 1, kW, kH, 0, 0, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0};
  EXPECT_EQ(zr::fx::RunBands(call, HeldHorizontal, scratch), 0u);
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(99));
  EXPECT_EQ(zr::fx::BandJobBlock::LiveBlocks(), live + 1) << "the late worker holds its record";
  ASSERT_TRUE(WaitFor([] { return gOthersDone.load() == 3; }, 10000));
  // Each worker writes only its own quarter.
  for (uint32_t i = 0; i < kW * kH; ++i)
    EXPECT_EQ(d[i * 4], i % kW >= kW / 2 || i / kW >= kH / 2 ? 0xBB : 0) << i;
  scratch->Release();
  gRelease = true;
  zr::test::WaitForLateWorkers();
}

// Frames one pixel wide or high have several bands at row and column 0, and
// the slide and the edge from the top run in each of them at once; under
// ThreadSanitizer this shows whether those writes are well defined.
TEST(ThreadDriver, SlideAndVerticalOnOnePixelFramesMatchOneBand) {
  const uint32_t sizes[][2] = {{1, 1}, {1, 9}, {9, 1}, {0, 3}};
  for (const auto& [w, h] : sizes)
    for (zrfxEffectFn* effect : {zrfxSLIDE_Basic, zrfxSMPTE_Vertical})
      for (uint32_t code : {500u, 501u, 502u, 503u}) {
        zr::test::Frames oneBand(64 + w * 8 * h, code), driver = oneBand;
        zr::test::Run(effect, oneBand.Call(w * 8, code, 32, w, h, 10, 3));
        zr::test::Run(effect, driver.Call(w * 8, code, 32, w, h, 10, 3), true);
        EXPECT_EQ(driver.d, oneBand.d) << w << "x" << h << " code " << code;
      }
}

}  // namespace
