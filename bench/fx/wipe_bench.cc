// The wipes and the slide at 1920x1080, 3840x2160 and 7680x4320, through the front door
// (four new threads a call, creation included) and as one band on the
// calling thread, beside a memcpy of one frame and a read-two-write-one
// stream of the same bytes; and the driver's own cost on a 64x64 frame.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <thread>

#include "common/baselines.h"
#include "zrfx.h"

namespace zr::bench {
namespace {

struct WipeCase {
  const char* name;
  uint32_t number;
  zrfxEffectFn* effect;
};

constexpr WipeCase kWipes[] = {
    {"Horizontal", 1, zrfxSMPTE_Horizontal}, {"Vertical", 2, zrfxSMPTE_Vertical},
    {"TopRight", 4, zrfxSMPTE_TopRight},     {"BarnDoorVertical", 21, zrfxSMPTE_BarnDoorVertical},
    {"FourSquare", 8, zrfxSMPTE_FourSquare}, {"Rectangle", 41, zrfxSMPTE_Rectangle},
    {"SlideUp", 500, zrfxSLIDE_Basic},       {"SlideLeft", 501, zrfxSLIDE_Basic},
};

struct Format {
  uint32_t code;
  uint32_t bytesPerPixel;
};
constexpr Format kFormats[] = {{1, 4}, {31, 6}, {32, 8}};

constexpr uint32_t kSpan = 65536;
constexpr uint32_t kHalfway = kSpan / 2;

size_t FrameBytes(FrameSize s, uint32_t bpp) { return size_t(s.width) * s.height * bpp; }

void FrontDoor(benchmark::State& state, WipeCase wipe, Format f, FrameSize s) {
  const size_t n = FrameBytes(s, f.bytesPerPixel);
  const uint32_t pitch = s.width * f.bytesPerPixel;
  uint8_t* a = Frame(n, 0).data();
  uint8_t* b = Frame(n, 2).data();
  uint8_t* d = Frame(n, 1).data();
  TimeFrames(state, n, [&] {
    ZrDraw_DisplayWipe(a, pitch, b, pitch, d, pitch, wipe.number, f.code, s.width, s.height, 0, 0, 0, 0, 0, 0,
                       kSpan, kHalfway);
  });
}

void OneBand(benchmark::State& state, WipeCase wipe, Format f, FrameSize s) {
  const size_t n = FrameBytes(s, f.bytesPerPixel);
  const uint32_t pitch = s.width * f.bytesPerPixel;
  uint8_t* a = Frame(n, 0).data();
  uint8_t* b = Frame(n, 2).data();
  uint8_t* d = Frame(n, 1).data();
  TimeFrames(state, n, [&] {
    wipe.effect(a, pitch, b, pitch, d, pitch, wipe.number, f.code, s.width, s.height, 0, 0, 0, 0, 0, 0, kSpan,
                kHalfway, 0, s.width, 0, s.height);
  });
}

// Baselines of the same byte counts, for the 6- and 8-byte formats too.
void FrameMemcpy(benchmark::State& state, size_t n) {
  uint8_t* src = Frame(n, 0).data();
  uint8_t* dst = Frame(n, 1).data();
  TimeFrames(state, n, [&] { std::memcpy(dst, src, n); });
}

void FrameReadTwoWriteOne(benchmark::State& state, size_t n) {
  const uint8_t* a = Frame(n, 0).data();
  const uint8_t* b = Frame(n, 2).data();
  uint8_t* out = Frame(n, 1).data();
  TimeFrames(state, n, [&] { ReadTwoWriteOne(a, b, out, n); });
}

// The price of one driver call itself: four thread creations and the wait,
// on a frame small enough that the copying does not count.
void DriverOverhead(benchmark::State& state) {
  constexpr uint32_t kSide = 64, kPitch = kSide * 4;
  uint8_t* a = Frame(kPitch * kSide, 0).data();
  uint8_t* b = Frame(kPitch * kSide, 2).data();
  uint8_t* d = Frame(kPitch * kSide, 1).data();
  for (auto _ : state) {
    ZrDraw_DisplayWipe(a, kPitch, b, kPitch, d, kPitch, 1, 1, kSide, kSide, 0, 0, 0, 0, 0, 0, kSpan,
                       kHalfway);
    benchmark::ClobberMemory();
  }
}

// The floor under that price on this machine: four threads created and
// joined, doing nothing.
void FourThreads(benchmark::State& state) {
  for (auto _ : state) {
    std::thread threads[4];
    for (std::thread& t : threads) t = std::thread([] {});
    for (std::thread& t : threads) t.join();
  }
}

std::string SizeName(FrameSize s) { return std::to_string(s.width) + "x" + std::to_string(s.height); }

const int kRegistered = [] {
  for (FrameSize s : kFrameSizes)
    for (Format f : kFormats) {
      const std::string tail = "/fmt" + std::to_string(f.code) + "/" + SizeName(s);
      const size_t n = FrameBytes(s, f.bytesPerPixel);
      benchmark::RegisterBenchmark(("BM_FxMemcpy" + tail).c_str(), FrameMemcpy, n)->UseRealTime();
      benchmark::RegisterBenchmark(("BM_FxReadTwoWriteOne" + tail).c_str(), FrameReadTwoWriteOne, n)
          ->UseRealTime();
      for (const WipeCase& w : kWipes) {
        const std::string name = std::string("BM_Wipe/") + w.name + tail;
        benchmark::RegisterBenchmark((name + "/front_door").c_str(), FrontDoor, w, f, s)->UseRealTime();
        benchmark::RegisterBenchmark((name + "/one_band").c_str(), OneBand, w, f, s)->UseRealTime();
      }
    }
  benchmark::RegisterBenchmark("BM_WipeDriverOverhead/64x64", DriverOverhead)->UseRealTime();
  benchmark::RegisterBenchmark("BM_FxFourThreads", FourThreads)->UseRealTime();
  return 0;
}();

}  // namespace
}  // namespace zr::bench
