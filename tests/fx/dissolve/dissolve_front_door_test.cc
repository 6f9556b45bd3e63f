// The dissolve through the wipe front door and the four-band driver: every
// number without an effect of its own plays it, and four bands give the
// golden bytes of one.
#include <gtest/gtest.h>

#include "dissolve_golden.h"
#include "dissolve_test_support.h"
#include "zrfx.h"

namespace zr::test {
namespace {

TEST(DissolveFrontDoor, FourBandsGiveTheGoldenDissolve) {
  for (const auto& g : kDissolveGoldens) {
    for (uint32_t number : {0u, 9u, 300u, 516u, 0x7FFFFFFFu}) {
      GoldenFrames frames(g.format);
      EffectArgs args = frames.Args(g);
      args.wipeCode = g.wipeCode | number;
      EXPECT_EQ(RunFrontDoor(args), 0u);
      EXPECT_EQ(frames.DstCrc(), g.crc) << "format " << g.format << " number " << number;
    }
    for (zrfxEffectFn* effect : {zrfxDISSOLVE, zrfxDISSOLVE2}) {
      GoldenFrames frames(g.format);
      const EffectArgs a = frames.Args(g);
      // The band arguments are the driver's to set.
      EXPECT_EQ(ZrDraw_FXMultiThread(a.srcA, a.pitchA, a.srcB, a.pitchB, a.dst, a.dstPitch, a.wipeCode,
                                     a.format, a.width, a.height, 1, 1, 0, 0, 0, a.progressStart,
                                     a.progressEnd, a.progress, 7, 3, 9, 2, effect),
                0u);
      EXPECT_EQ(frames.DstCrc(), g.crc) << "format " << g.format << " through the driver";
    }
  }
}

}  // namespace
}  // namespace zr::test
