// The packed 4:2:2 canvases, 8-bit in four byte orders and v210: what a
// write sets and keeps at each place in a group, the geometry and matrix
// rules, and golden checksums of a drawing and of every read-back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "canvas/test_canvas.h"
#include "common/crc32.h"
#include "common/test_random.h"

namespace {

using zr::test::Crc32;
using zr::test::TestCanvas;
using Bytes = std::vector<uint8_t>;

// Width 5, height 2, pitch 14 (two spare bytes a row) over 0x11, colour Y 50
// Cb 60 Cr 70: the group after a write at an even and an odd x, then the luma
// read back from it.
TEST(YuyvCanvas, WriteKeepsOneOldByteByTheParityOfX) {
  const uint8_t groups[5][2][5] = {
      {{0x11, 0x60, 0x50, 0x70, 0x11}, {0x50, 0x60, 0x11, 0x70, 0x50}},
      {{0x60, 0x50, 0x70, 0x11, 0x50}, {0x60, 0x11, 0x70, 0x50, 0x11}},
      {{0x11, 0x70, 0x50, 0x60, 0x11}, {0x50, 0x70, 0x11, 0x60, 0x50}},
      {{0x70, 0x50, 0x60, 0x11, 0x50}, {0x70, 0x11, 0x60, 0x50, 0x11}},
      {{0x60, 0x50, 0x70, 0x11, 0x50}, {0x60, 0x11, 0x70, 0x50, 0x11}},  // any other type: as 11
  };
  for (unsigned type = 10; type <= 14; ++type)
    for (int x : {0, 1, 2, 3, 4, 5, 6, -1}) {  // 5 and -1 wrap to column 0 with an odd x, 6 to 1 with an even
      TestCanvas c(type < 14 ? type : 10, 5, 2, 14, 28);
      c->mPixelType = static_cast<pixelType>(type < 14 ? type : 7);
      dynamic_cast<CDrawYCbCrYUYV*>(c.get())->SetColorYCbCr8(0x50, 0x60, 0x70, 0, true);
      c->SetColorYCbCr10(0x143, 0x183, 0x1C3, 0, false);  // the same colour
      EXPECT_EQ(0, c->PutPixel(x, 3, x & 2));             // row 3 wraps to 1
      const uint8_t* group = groups[type - 10][x & 1];
      const int col = static_cast<int>(static_cast<uint32_t>(x) % 5);
      Bytes want(28, 0x11);
      std::memcpy(&want[14 + 2 * (col & ~1)], group, 4);
      EXPECT_EQ(want, Bytes(c.rows(), c.rows() + 28)) << type << " x " << x;
      EXPECT_EQ(group[4], c->GetLuma(col, 1) * 256);
    }
}

// Width 12 (two groups, rows of 128 bytes) over all ones, colour Y 2A5 Cb 15A
// Cr 103 at row 1: the group's words after a write at each x mod 6, then the
// 10-bit luma, the 8-bit Cr and GetLuma read back there.
TEST(V210Canvas, WriteAndReadEachPixelOfAGroup) {
  const uint32_t rows[6][7] = {
      {0xD03A955A, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0x2A5, 0x03, 0x2A5},
      {0xD03FFD5A, 0xFFFFFEA5, 0xFFFFFFFF, 0xFFFFFFFF, 0x2A5, 0x40, 0x2A5},
      {0xFFFFFFFF, 0xEA556BFF, 0xFFFFFD03, 0xFFFFFFFF, 0x2A5, 0x40, 0x2A5},
      {0xFFFFFFFF, 0xFFF56BFF, 0xFFFA9503, 0xFFFFFFFF, 0x2A5, 0x40, 0x3FF},
      {0xFFFFFFFF, 0xFFFFFFFF, 0xD5AFFFFF, 0xFFF40EA5, 0x2A5, 0x40, 0x3FF},
      {0xFFFFFFFF, 0xFFFFFFFF, 0xD5AFFFFF, 0xEA540FFF, 0x3FF, 0x40, 0x3FF},  // reads Y2 for Y5
  };
  for (int x = 0; x < 12; ++x) {
    TestCanvas c(pixelV210, 12, 2, 0, 256);
    std::memset(c.rows(), 0xFF, 256);
    c->SetColorYCbCr10(0x2A5, 0x15A, 0x103, 0, x < 6);
    EXPECT_EQ(0, c->PutPixel(x, 1, x < 6));
    const uint32_t* r = rows[x % 6];
    Bytes want(256, 0xFF);
    std::memcpy(&want[128 + 16 * (x / 6)], r, 16);
    EXPECT_EQ(want, Bytes(c.rows(), c.rows() + 256)) << x;
    unsigned v[9];
    unsigned char v8[4];
    c->GetPixelYCbCr10(x, 1, v[0], v[1], v[2], v[3]);
    c->GetPixelYCbCr8(x, 1, v8[0], v8[1], v8[2], v8[3]);
    std::copy(v8, v8 + 4, v + 4);
    v[8] = static_cast<unsigned>(c->GetLuma(x, 1) * 1024);
    EXPECT_EQ((std::vector<unsigned>{r[4], 0x15A, 0x103, 1, r[4] >> 2, 0x56, r[5], 1, r[6]}),
              std::vector<unsigned>(v, v + 9))
        << x;
  }
}

// The pitch, matrix, height and flip flag after SetCanvas(height -1, width,
// pitch) over a matrix set before.
TEST(YCbCr422Canvas, GeometryAndMatrixRules) {
  const int rules[][6] = {
      {11, 720, 0, 4, 1440, 1},     {11, 721, 0, 2, 1442, 3},    {11, 720, 0, 2, 1440, 2},
      {11, 721, 0, 1004, 1442, 3},  {11, 1920, 100, 4, 3840, 4}, {11, 1920, 5000, 1, 5000, 3},
      {14, 1280, 5000, 2, 5000, 3}, {14, 1280, 100, 4, 3456, 3}, {14, 1280, -100, 2, 100, 3},
      {14, 720, 0, 2, 1920, 1},     {14, 721, 0, 1, 2048, 3}};
  for (const auto& r : rules) {
    TestCanvas c(r[0], 1, 1, 0, 16);
    c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(r[3]));
    c->SetCanvas(reinterpret_cast<char*>(c.rows()), -1, r[1], r[2]);
    EXPECT_EQ((std::vector<unsigned>{unsigned(r[4]), unsigned(r[5]), r[0] == 11 ? ~0u : 1u, 0}),
              (std::vector<unsigned>{c->mPitch, unsigned(c->mYCbCrMode), c->mHeight, c->mbBottomUp}));
  }
  const CDrawYCbCrYUYV yuyv(static_cast<pixelType>(7));
  const CDrawYCbCr10 kept(static_cast<pixelType>(16)), forced(pixelYUYV);
  EXPECT_EQ((std::vector<double>{64, 940, 74, 876, 74, 876}),
            (std::vector<double>{kept.mYBase, kept.mYRange, kept.mCbBase, kept.mCbRange, kept.mCrBase,
                                 kept.mCrRange}));
  EXPECT_EQ((std::vector<uint64_t>{11, 3, 0x80EB80EB, 0x80108010, 16, 14, 1}),
            (std::vector<uint64_t>{uint64_t(yuyv.mPixelType), uint64_t(yuyv.mYCbCrMode), yuyv.mForeWord,
                                   yuyv.mBackWord, uint64_t(kept.mPixelType), uint64_t(forced.mPixelType),
                                   uint64_t(kept.mYCbCrMode)}));
  TestCanvas v210(pixelV210, 6, 1, 0, 16);
  v210->SetColorYCbCr(-1, 0, 0, 0, true);  // -876 as an unsigned 64-bit number
  EXPECT_EQ(uint64_t{74 * 1024 + 74 * 1048576 - 876}, dynamic_cast<CDrawYCbCr10*>(v210.get())->mForeWord);
  EXPECT_EQ(-2, v210->PutPixel(-1, 0, true) + v210->PutPixel(0, -1, true));
#if defined(__x86_64__)
  TestCanvas empty(pixelYUYV, 0, 1, 4, 4);
  EXPECT_DEATH(empty->PutPixel(0, 0, true), "");  // a zero width divides by zero
#endif
}

// A drawing over random memory (the default colours first, then colours
// through every setter, out of range too), then every read-back of random
// memory in every matrix, and with no memory.
TEST(YCbCr422Canvas, GoldenChecksums) {
  struct Kind {
    unsigned type;
    int width, height, pitch, bytes, xFrom, xTo;
    uint32_t drawn, read;
  };
  const Kind kinds[] = {{10, 23, 7, 50, 350, -1, 24, 4053790351u, 3695629246u},
                        {11, 23, 7, 50, 350, -1, 24, 2947393351u, 3014537108u},
                        {12, 23, 7, 50, 350, -1, 24, 1282115415u, 553747753u},
                        {13, 23, 7, 50, 350, -1, 24, 3652197695u, 1716378123u},
                        {14, 50, 5, 0, 1280, -5, 96, 3666148995u, 1314757038u}};
  for (const Kind& k : kinds) {
    TestCanvas c(k.type, k.width, k.height, k.pitch, k.bytes);
    zr::test::Rng(0x4220 + k.type).Fill(c.rows(), k.bytes);
    const int w = k.width - 1, h = k.height - 1;
    const RECT box = {5, 1, 17, h};
    c->Line(0, 0, w, h);
    c->Point(w, 0, false);
    c->SetColorRGBA(0.9, 0.2, 0.1, 1, true);
    c->Rectangle(2, 1, w - 2, h - 1);
    c->SetColorYCbCr(0.3, 0.42, 0.46, 0, true);
    c->FillRect(&box);
    c->SetColorYCbCr10(0x523, 0x2F0, 0x0C4, 0, true);
    c->Dash(0, h, w, 0, 3, 2);
    c->SetPixel(w - 1, 2, 1.2, -0.1, 1.3, 1, false);
    c->SetColorYCbCr8(200, 100, 50, 0, true);
    c->Line(w, 1, 0, h - 1);
    uint32_t drawn = Crc32(c.rows(), k.bytes), read = 0;
    zr::test::Rng(0x4230 + k.type).Fill(c.rows(), k.bytes);
    for (char* memory : {reinterpret_cast<char*>(c.rows()), static_cast<char*>(nullptr)}) {
      c->SetCanvas(memory, k.height, k.width, k.pitch);
      for (int mode = -1; mode <= 1009; mode += mode == 9 ? 991 : 1) {
        c->SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(mode));
        for (int y = 0; y < k.height; ++y)
          for (int x = k.xFrom; x < k.xTo; ++x) {
            double v[13] = {0.25, 1.5, -0.5, 0.75};
            unsigned char v8[4] = {};
            unsigned v10[4] = {};
            v[12] = (memory ? c->GetLuma(x, y) : 0) + c->GetPixelRGBA(x, y, v[0], v[1], v[2], v[3]) +
                    c->GetPixelYCbCr(x, y, v[4], v[5], v[6], v[7]) +
                    c->GetPixelHSV(x, y, v[8], v[9], v[10], v[11]) +
                    c->GetPixelYCbCr8(x, y, v8[0], v8[1], v8[2], v8[3]) +
                    c->GetPixelYCbCr10(x, y, v10[0], v10[1], v10[2], v10[3]);
            read = Crc32(v10, sizeof v10, Crc32(v8, 4, Crc32(v, sizeof v, read)));
          }
      }
    }
    EXPECT_EQ(k.drawn, drawn) << k.type;
    EXPECT_EQ(k.read, read) << k.type;
  }
}

}  // namespace
