// The colour arithmetic: a golden checksum of every conversion over a sweep
// of inputs in every mode (unknown and unclamped ones included), bit for bit.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "common/crc32.h"
#include "common/test_random.h"
#include "zrdraw.h"

namespace {

// One conversion of the sweep; outputs start at marks, so that an output
// left unwritten shows too.
void Convert(int which, ZrPixel& p, const double* i, double* o) {
  if (which == 0) p.YCbCrToRGB(i[0], i[1], i[2], i[3], o[0], o[1], o[2], o[3]);
  if (which == 1) p.RGBToYCbCr(i[0], i[1], i[2], i[3], o[0], o[1], o[2], o[3]);
  if (which == 2) p.RGBToYCbCr10(i[4] * i[0], i[4] * i[1], i[4] * i[2], i[3], o[0], o[1], o[2], o[3]);
  if (which == 3) p.YCbCrToHSV(i[0], i[1], i[2], i[3], o[0], o[1], o[2], o[3]);
  if (which == 4) p.RGBToHSV(i[5], i[6], i[7], i[3], o[0], o[1], o[2], o[3]);
  if (which == 5) p.BlendPixel(o[0], o[1], o[2], i[0], i[1], i[2], static_cast<int>(i[8]));
}

TEST(ColourArithmetic, GoldenSweepOfEveryConversion) {
  const int modes[] = {INT_MIN, -1,   0,    1,    2,    3,    4,    5,    6,    7,    8,    9,    999,
                       1000,    1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008, 1009, 2001, 2006, INT_MAX};
  const char* names[] = {"YCbCrToRGB", "RGBToYCbCr", "RGBToYCbCr10", "YCbCrToHSV", "RGBToHSV", "BlendPixel"};
  const uint32_t golden[] = {20092230u, 1843610220u, 1380502388u, 3980194509u, 1067070237u, 2218456784u};
  for (int which = 0; which < 6; ++which) {
    zr::test::Rng rng(0xC0C0);
    uint32_t crc = 0;
    ZrPixel px;
    for (int mode : modes) {
      px.SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(mode));
      for (int i = 0; i < 600; ++i) {
        // Components from -0.5 to 1.5; the first 10-bit set wants 0 to 255;
        // HSV inputs on a coarse grid, so that ties and greys come up.
        double in[9], out[4];
        for (int k = 0; k < 4; ++k) in[k] = (static_cast<int>(rng.Below(4001)) - 1000) / 2000.0;
        in[4] = i % 2 ? 255.0 : 1.0;
        for (int k = 5; k < 8; ++k) in[k] = rng.Below(i % 2 ? 4 : 256) / (i % 2 ? 3.0 : 255.0);
        in[8] = static_cast<int>(rng.Below(301)) - 100;
        for (double& o : out) o = 7.0 + rng.Below(1000) / 1000.0;
        Convert(which, px, in, out);
        crc = zr::test::Crc32(out, sizeof out, crc);
      }
    }
    EXPECT_EQ(golden[which], crc) << names[which];
  }
}

}  // namespace
