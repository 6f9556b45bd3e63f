// The bitmap format table: golden checksums of what GetDrawSize and the
// record form of GetDraw make of every known code and of random records.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Crc32;
using zr::test::State;

// Every code the table knows, by its bytes in memory; 0 and 3 come first.
const std::string kCodes =
    std::string("\0\0\0\0\3\0\0\0", 8) +
    "BW10BT20CC12YC12V422RGB2AUR2V655YUV8RGBACPLAIUVA84GB46GB84GR46GRRGBTBTCVIRAW84YX46YXCYUY"
    "VDTZI420Y211YV12YUV4IF09YVU9CLPLY41PCLJRY41TY42TIYUVr84ba46b612v803v014v024y4vuydv50yuV2"
    "auv2yuv280d3dv25MMESUYNVUYVY1cvadvhddvsdn1vdp1vdn5vdp5vd cvdpcvdnfvdpfvd2hvd3hvd5hvd6hvd"
    "phvdqhvdnpvdppvdmpegdvcp52dv05dvcyuvctrw2Vuy2vuyYUY2YUNVYVYUv21001d3012va12v21ia31ia51ia"
    "61iap1iaq1ia25ia35ia55ia65iap5iaq5ia03d3R01LRF1LR04LRF4LL10RL40Rg01Rk01RL1FRL4FR23d31SCA"
    "2SCAccCAgcCAtcCAxpCA61lfsi2kbggrrggbCBYRDBYRPBYRgbrggrbgVcvaBGGRBGGcRGGBRGGcGBRGGBRcGRBG"
    "GRBcRYBPhcpancpaocpascpah4pa";

uint32_t Code(const char* s) {
  uint32_t c;
  std::memcpy(&c, s, 4);
  return c;
}
tagBITMAPINFO Record(uint32_t code, int32_t w, int32_t h, uint16_t bits, uint32_t sizeImage = 0,
                     uint32_t mask = 0) {
  tagBITMAPINFO b{};
  b.bmiHeader = {40, w, h, 1, bits, code, sizeImage, 0, 0, 0, 0};
  std::memcpy(b.bmiColors, &mask, 4);
  return b;
}

// The size, the type written (or the caller's 0xC0FFEE) and the whole record
// afterwards, folded into `crc`.
uint32_t Fold(tagBITMAPINFO b, uint32_t crc) {
  unsigned int type = 0xC0FFEE;
  const uint32_t out[2] = {GetDrawSize(&b, &type), type};
  return Crc32(&b, sizeof b, Crc32(out, sizeof out, crc));
}

TEST(BitmapFormat, GoldenOverEveryCode) {
  ASSERT_EQ(141u * 4, kCodes.size());
  uint32_t sizes = 0, canvases = 0;
  std::string mem(64 * 1024, '\0');
  for (size_t i = 0; i < kCodes.size(); i += 4)
    for (uint16_t bits : {0, 8, 10, 12, 15, 16, 24, 30, 32, 48, 64})
      for (uint32_t mask : {0u, 0x10u, 0x2000u, 0xFF0000u, 0x1000000u}) {
        const uint32_t code = Code(&kCodes[i]);
        sizes = Fold(Record(code, 1921, -3, bits, 0, mask), sizes);
        sizes = Fold(Record(code, 7, 5, bits, mask ? 100 : 1000, mask), sizes);
        tagBITMAPINFO b = Record(code, 9, -5, bits, mask ? 700 : 0, mask);
        ZrDraw* c = nullptr;
        tagBITMAPINFO copy = b;
        const int result = GetDraw(&b, mem.data(), c);
        ZrDraw* q = qtGetDrawBMI(&copy, mem.data());  // the same, or null
        EXPECT_EQ(c ? State(c) : "", q ? State(q) : "");
        const std::string got = std::to_string(result) + (c ? State(c) : "");
        canvases = Crc32(got.data(), got.size(), canvases);
        if (c) ReleaseDraw(c), ReleaseDraw(q);
      }
  EXPECT_EQ(1080105573u, sizes);
  EXPECT_EQ(4045686552u, canvases);
}

// Known and unknown codes, sizes that wrap, any depth and any biSizeImage.
TEST(BitmapFormat, GoldenOverRandomRecords) {
  zr::test::Rng rng(0xB1F0);
  uint32_t crc = 0;
  const uint16_t depths[] = {0, 1, 4, 8, 10, 12, 15, 16, 24, 30, 32, 48, 64, 65535};
  for (int i = 0; i < 20000; ++i) {
    const uint32_t code = rng.Below(8) ? Code(&kCodes[4 * rng.Below(141)]) : rng.Next32();
    const int32_t w = rng.Below(4) ? int32_t(rng.Below(5000)) : int32_t(rng.Next32());
    const int32_t h = rng.Below(4) ? int32_t(rng.Below(5000)) - 2500 : int32_t(rng.Next32());
    const uint16_t bits = rng.Below(8) ? depths[rng.Below(14)] : uint16_t(rng.Next32());
    const uint32_t sizeImage = rng.Below(2) ? 0 : rng.Next32() >> rng.Below(32);
    const uint32_t mask = rng.Next32();  // one byte of it kept; drawn apart, as operand order is open
    crc = Fold(Record(code, w, h, bits, sizeImage, mask & (0xFFu << 8 * rng.Below(4))), crc);
  }
  EXPECT_EQ(1260306158u, crc);
}

// The size-only form sizes nothing; a failed record nulls the handle.
TEST(BitmapFormat, OddCases) {
  EXPECT_EQ(0u, GetDrawSize(1, 640, 480, 0));
  ZrDraw* c = reinterpret_cast<ZrDraw*>(uintptr_t{0x40});
  tagBITMAPINFO b = Record(Code("YUY2"), 10, 7, 16, 0xFFFFFFFF);
  EXPECT_EQ(-1, GetDraw(&b, nullptr, c));
  EXPECT_EQ(nullptr, c);
}

}  // namespace
