// The four-band driver: its bands, its threads, its bounded wait and the
// block that outlives a late worker.
#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

#include "fx/band_job.h"
#include "fx/fx_call.h"
#include "late_workers.h"
#include "platform/zrutil.h"
#include "wipe_model.h"
#include "zrfx.h"

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
  bool onCaller;
  int arrived;
};

std::mutex gSeenLock;
std::vector<Seen> gSeen;
pthread_t gCaller;
std::atomic<int> gArrived{0};

uint32_t Recorder(ZRFX_EFFECT_ARGS) {
  Seen s{ZRFX_CALL_RECORD, {}, 0, pthread_equal(pthread_self(), gCaller) != 0, 0};
  pthread_getname_np(pthread_self(), s.name, sizeof s.name);
  // The driver raises each worker just after creating it.
  WaitFor([] { return zrOSGetThreadPriority(zrOSGetCurrentThread()) == 15; }, 5000);
  s.priority = zrOSGetThreadPriority(zrOSGetCurrentThread());
  // Four workers alive at once: each waits here for the others.
  gArrived.fetch_add(1);
  WaitFor([] { return gArrived.load() == 4; }, 5000);
  s.arrived = gArrived.load();
  std::lock_guard<std::mutex> lock(gSeenLock);
  gSeen.push_back(s);
  return 77;
}

TEST(ThreadDriver, FourNamedRaisedWorkersGetTheQuadrantsAndTheCallUnchanged) {
  const uint32_t sizes[][2] = {{10, 6}, {11, 7}, {1, 1}, {0, 0}, {1, 5}, {3840, 2160}};
  gCaller = pthread_self();
  zrOSSetThreadPriority(zrOSGetCurrentThread(), 3);
  uint8_t a = 0, b = 0, d = 0;
  for (const auto& size : sizes) {
    const uint32_t w = size[0], h = size[1];
    gSeen.clear();
    gArrived = 0;
    EXPECT_EQ(ZrDraw_FXMultiThread(&a, 11, &b, 22, &d, 33, 0x80000007u, 29, w, h, 1, 2, 3, 4, 5, 6, 7, 8, 111,
                                   222, 333, 444, Recorder),
              0u);
    EXPECT_EQ(zrOSGetThreadPriority(zrOSGetCurrentThread()), 3) << "the caller keeps its priority";
    zr::test::WaitForLateWorkers();
    std::lock_guard<std::mutex> lock(gSeenLock);
    ASSERT_EQ(gSeen.size(), 4u) << w << "x" << h;
    std::vector<std::array<uint32_t, 4>> bands;
    for (const Seen& s : gSeen) {
      const FxCall& c = s.call;
      EXPECT_EQ(c.srcA, &a);
      EXPECT_EQ(c.pitchA, 11u);
      EXPECT_EQ(c.srcB, &b);
      EXPECT_EQ(c.pitchB, 22u);
      EXPECT_EQ(c.dst, &d);
      EXPECT_EQ(c.dstPitch, 33u);
      EXPECT_EQ(c.wipeCode, 0x80000007u);
      EXPECT_EQ(c.format, 29u);
      EXPECT_EQ(c.width, w);
      EXPECT_EQ(c.height, h);
      EXPECT_EQ((std::array<uint32_t, 5>{c.fxReserved0, c.fxReserved1, c.fxReserved2, c.fxReserved3,
                                         c.fxReserved4}),
                (std::array<uint32_t, 5>{1, 2, 3, 4, 5}));
      EXPECT_EQ(c.progressStart, 6u);
      EXPECT_EQ(c.progressEnd, 7u);
      EXPECT_EQ(c.progress, 8u);
      EXPECT_STREQ(s.name, "dffx");
      EXPECT_EQ(s.priority, 15);
      EXPECT_FALSE(s.onCaller);
      EXPECT_EQ(s.arrived, 4);
      bands.push_back({c.bandLeft, c.bandRight, c.bandTop, c.bandBottom});
    }
    std::sort(bands.begin(), bands.end());
    std::vector<std::array<uint32_t, 4>> want = {
        {0, w >> 1, 0, h >> 1}, {w >> 1, w, 0, h >> 1}, {0, w >> 1, h >> 1, h}, {w >> 1, w, h >> 1, h}};
    std::sort(want.begin(), want.end());
    EXPECT_EQ(bands, want) << w << "x" << h;
  }
  zrOSSetThreadPriority(zrOSGetCurrentThread(), 0);
}

uint32_t Instant(ZRFX_EFFECT_ARGS) { return ZRFX_CALL_RECORD.format; }

std::atomic<int> gFinished{0};

uint32_t SlowThenDone(ZRFX_EFFECT_ARGS) {
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  gFinished.fetch_add(1);
  return ZRFX_CALL_RECORD.format;
}

TEST(ThreadDriver, ReturnsWhenTheWorkersAreThroughAndNoLater) {
  gFinished = 0;
  const auto start = Clock::now();
  ZrDraw_FXMultiThread(nullptr, 0, nullptr, 0, nullptr, 0, 0, 1, 8, 8, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0,
                       SlowThenDone);
  // Either all four are through, or the machine is so loaded that the bound
  // ran out first.
  const int finished = gFinished.load();
  EXPECT_TRUE(finished == 4 || Clock::now() - start >= std::chrono::milliseconds(99)) << finished;
  zr::test::WaitForLateWorkers();
  // Woken on completion rather than at the bound: a waiting driver would
  // never return sooner than 100 ms.
  auto fastest = Clock::duration::max();
  for (int i = 0; i < 10; ++i) {
    const auto start = Clock::now();
    ZrDraw_FXMultiThread(nullptr, 0, nullptr, 0, nullptr, 0, 0, 1, 8, 8, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0,
                         Instant);
    fastest = std::min(fastest, Clock::now() - start);
  }
  EXPECT_LT(fastest, std::chrono::milliseconds(50));
  zr::test::WaitForLateWorkers();
}

std::atomic<bool> gRelease{false};
std::atomic<bool> gLateDone{false};
std::atomic<int> gOthersDone{0};

// Job 0 holds on until the test lets it go; the others wipe at once.
uint32_t HeldHorizontal(ZRFX_EFFECT_ARGS) {
  const bool held = bandLeft == 0 && bandTop == 0;
  if (held) WaitFor([] { return gRelease.load(); }, 10000);
  zrfxSMPTE_Horizontal(ZRFX_CALL_VALUES(ZRFX_CALL_RECORD));
  if (held)
    gLateDone = true;
  else
    gOthersDone.fetch_add(1);
  return 0;
}

TEST(ThreadDriver, GivesUpAfterTheBoundAndTheLateWorkerStillFindsItsRecord) {
  const uint32_t w = 8, h = 4;
  std::vector<uint8_t> a(w * h * 4, 0xAA), b(w * h * 4, 0xBB), d(w * h * 4, 0);
  const int live = zr::fx::BandJobBlock::LiveBlocks();
  gRelease = false;
  gLateDone = false;
  gOthersDone = 0;
  const auto start = Clock::now();
  EXPECT_EQ(ZrDraw_FXMultiThread(a.data(), w * 4, b.data(), w * 4, d.data(), w * 4, 0, 1, w, h, 0, 0, 0, 0, 0,
                                 0, 1, 1, 0, 0, 0, 0, HeldHorizontal),
            0u);
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(99));
  EXPECT_EQ(zr::fx::BandJobBlock::LiveBlocks(), live + 1) << "the late worker holds the block";
  ASSERT_TRUE(WaitFor([] { return gOthersDone.load() == 3; }, 10000));
  for (uint32_t y = 0; y < h; ++y)
    for (uint32_t x = 0; x < w; ++x)
      EXPECT_EQ(d[(y * w + x) * 4], x < w / 2 && y < h / 2 ? 0 : 0xBB) << x << "," << y;
  gRelease = true;
  ASSERT_TRUE(WaitFor([] { return gLateDone.load(); }, 10000));
  // What a late worker writes into the caller's frame stays written.
  for (uint32_t y = 0; y < h / 2; ++y)
    for (uint32_t x = 0; x < w / 2; ++x) EXPECT_EQ(d[(y * w + x) * 4], 0xBB);
  zr::test::WaitForLateWorkers();
}

TEST(ThreadDriver, WorkerEntryRunsItsRecordAndStepsTheCountDown) {
  volatile int count = 2;
  zrfxBandJob job{};
  job.call.format = 42;
  job.effect = Instant;
  job.pendingCount = &count;
  EXPECT_EQ(zrfxFXThread(&job), 42u);
  EXPECT_EQ(count, 1);
}

// Frames one pixel wide or high have several bands at row and column 0, and
// the slide and the edge from the top run in each of them at once; under
// ThreadSanitizer this shows whether those writes are well defined.
TEST(ThreadDriver, SlideAndVerticalOnOnePixelFramesMatchOneBand) {
  const uint32_t sizes[][2] = {{1, 1}, {1, 9}, {9, 1}, {0, 3}};
  for (const auto& size : sizes)
    for (zrfxEffectFn* effect : {zrfxSLIDE_Basic, zrfxSMPTE_Vertical})
      for (uint32_t code : {500u, 501u, 502u, 503u}) {
        const uint32_t w = size[0], h = size[1], pitch = w * 8;
        std::vector<uint8_t> a(64 + pitch * h), b(a.size()), d(a.size(), 0x33), want(d);
        for (size_t i = 0; i < a.size(); ++i) {
          a[i] = static_cast<uint8_t>(i);
          b[i] = static_cast<uint8_t>(~i);
        }
        FxCall c{a.data(), pitch, b.data(), pitch, want.data(), pitch, code, 32, w, h, 0,
                 0,        0,     0,        0,     0,           10,    3,    0,  w, 0, h};
        zr::test::ModelEffect(effect, c);
        ZrDraw_FXMultiThread(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, 32, w, h, 0, 0, 0, 0, 0,
                             0, 10, 3, 0, 0, 0, 0, effect);
        zr::test::WaitForLateWorkers();
        EXPECT_EQ(d, want) << w << "x" << h << " code " << code;
      }
}

}  // namespace
