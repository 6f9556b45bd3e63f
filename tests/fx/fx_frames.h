// Helpers of the effect tests: seeded pictures, one effect call over a whole
// picture or a band of it, and the wait for workers that outlive the
// driver's bounded wait.
#ifndef ZR_TESTS_FX_FX_FRAMES_H
#define ZR_TESTS_FX_FX_FRAMES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "common/test_random.h"
#include "fx/band_job.h"
#include "fx/fx_call.h"
#include "zrfx.h"

namespace zr::test {

// One format of each group and its pixel size.
inline constexpr uint32_t kGroupFormats[6][2] = {{1, 4}, {5, 3}, {31, 6}, {32, 8}, {29, 16}, {30, 12}};

// The driver stops waiting after 100 ms, so on a loaded machine a worker may
// still be writing when it returns: wait until every worker has let go.
inline void WaitForLateWorkers() {
  for (int i = 0; i < 60000 && zr::fx::BandJobBlock::LiveBlocks() != 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  ASSERT_EQ(zr::fx::BandJobBlock::LiveBlocks(), 0) << "a worker never finished";
}

// srcA, srcB and dst, `bytes` each, seeded.
struct Frames {
  std::vector<uint8_t> a, b, d;
  Frames(size_t bytes, uint64_t seed) : a(bytes), b(bytes), d(bytes) {
    Rng r(seed);
    for (auto* v : {&a, &b, &d}) r.Fill(v->data(), bytes);
  }
  // The whole picture as one band, all pitches `pitch`, the span from 0.
  fx::FxCall Call(uint32_t pitch, uint32_t code, uint32_t format, uint32_t w, uint32_t h, uint32_t span,
                  uint32_t progress) {
    return {a.data(), pitch, b.data(), pitch, d.data(), pitch, code,     format, w, h, 0,
            0,        0,     0,        0,     0,        span,  progress, 0,      w, 0, h};
  }
};

// Runs `c` as one band on this thread, or on the driver, which sets the bands.
inline uint32_t Run(zrfxEffectFn* effect, const fx::FxCall& c, bool driver = false) {
  if (!driver) return effect(ZRFX_CALL_VALUES(c));
  const uint32_t result = ZrDraw_FXMultiThread(ZRFX_CALL_VALUES(c), effect);
  WaitForLateWorkers();
  return result;
}

// Runs the first 18 arguments of `c` through ZrDraw_DisplayWipe.
inline uint32_t RunFrontDoor(const fx::FxCall& c) {
  const uint32_t result =
      ZrDraw_DisplayWipe(c.srcA, c.pitchA, c.srcB, c.pitchB, c.dst, c.dstPitch, c.wipeCode, c.format, c.width,
                         c.height, c.fxReserved0, c.fxReserved1, c.fxReserved2, c.fxReserved3, c.fxReserved4,
                         c.progressStart, c.progressEnd, c.progress);
  WaitForLateWorkers();
  return result;
}

// Runs the whole-picture call `c` on `f`, then again from the same dst over
// a random band, which may be empty or inverted: the band's pixels must come
// out as the whole picture's and every other byte stay as it was.
inline void ExpectBandWritesItsPixels(zrfxEffectFn* effect, Frames& f, fx::FxCall c, uint32_t bpp, Rng& r) {
  const std::vector<uint8_t> before = f.d;
  Run(effect, c);
  const std::vector<uint8_t> whole = f.d;
  std::copy(before.begin(), before.end(), f.d.begin());
  c.bandLeft = r.Below(c.width + 1), c.bandRight = r.Below(c.width + 1);
  c.bandTop = r.Below(c.height + 1), c.bandBottom = r.Below(c.height + 1);
  Run(effect, c);
  for (uint32_t i = 0; i < f.d.size(); ++i) {
    const uint32_t x = i % c.pitchB, y = i / c.pitchB;
    const bool in = y >= c.bandTop && y < c.bandBottom && x >= c.bandLeft * bpp && x < c.bandRight * bpp;
    ASSERT_EQ(f.d[i], (in ? whole : before)[i])
        << "format " << c.format << ", " << c.width << "x" << c.height << ", byte " << x << " of row " << y;
  }
}

}  // namespace zr::test

#endif
