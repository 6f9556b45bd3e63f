// The resize contract: statuses and their order, the scratch size and
// layout, the allocator, and what the pixels become.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "resize/resize_sp.h"
#include "resize_test_util.h"

namespace zr::test {
namespace {

constexpr int32_t kNN = ZRIPP_INTER_NN;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

// A frame whose pixel (x, y) reads 0xA5yyyxxx, so that every output pixel
// tells where it came from.
struct Frame {
  Frame(int32_t w, int32_t h, int32_t padPixels = 0)
      : width(w), height(h), step(4 * (w + padPixels)), bytes(static_cast<size_t>(step) * h) {
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w + padPixels; ++x) Set(x, y, 0xA5000000u | (uint32_t(y) << 12) | uint32_t(x));
  }
  uint32_t At(int32_t x, int32_t y) const { return PixelAt(bytes.data() + y * step + 4 * x); }
  void Set(int32_t x, int32_t y, uint32_t v) { std::memcpy(bytes.data() + y * step + 4 * x, &v, 4); }
  static uint32_t Source(int32_t x, int32_t y) { return 0xA5000000u | (uint32_t(y) << 12) | uint32_t(x); }

  int32_t width, height, step;
  std::vector<uint8_t> bytes;
};

constexpr uint32_t kUntouched = 0x11223344u;

struct Output {
  Output(int32_t w, int32_t h) : width(w), height(h), step(4 * w), bytes(static_cast<size_t>(step) * h) {
    for (size_t i = 0; i < bytes.size(); i += 4) std::memcpy(&bytes[i], &kUntouched, 4);
  }
  uint32_t At(int32_t x, int32_t y) const { return PixelAt(bytes.data() + y * step + 4 * x); }
  bool Untouched() const {
    for (size_t i = 0; i < bytes.size(); i += 4)
      if (PixelAt(&bytes[i]) != kUntouched) return false;
    return true;
  }
  int32_t width, height, step;
  std::vector<uint8_t> bytes;
};

// One call through the public name, with a scratch of the queried size.
IppStatus Resize(const Frame& src, IppiRect srcRoi, Output& dst, IppiRect dstRoi, double xf, double yf,
                 double xs = 0.0, double ys = 0.0, int32_t interpolation = kNN) {
  int32_t size = 0;
  EXPECT_EQ(ippiResizeGetBufSize(srcRoi, dstRoi, 4, kNN, &size), 0);
  uint8_t* scratch = ippsMalloc_8u(size);
  const IppStatus status =
      ippiResizeSqrPixel_8u_C4R(src.bytes.data(), Size(src.width, src.height), src.step, srcRoi,
                                dst.bytes.data(), dst.step, dstRoi, xf, yf, xs, ys, interpolation, scratch);
  ippsFree(scratch);
  return status;
}

TEST(ResizeGetBufSize, SizeOfTheTwoTables) {
  int32_t size = 0;
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 1920, 1080), Rect(0, 0, 1920, 1080), 1, kNN, &size), 0);
  EXPECT_EQ(size, 12048);
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 1, 1), Rect(0, 0, 1, 1), 4, kNN, &size), 0);
  EXPECT_EQ(size, 144);
  // Only the destination counts: not the source, not the channels.
  EXPECT_EQ(ippiResizeGetBufSize(Rect(5, 7, 3, 9000), Rect(9, 9, 17, 16), 3, kNN, &size), 0);
  EXPECT_EQ(size, 64 * (2 + 1) + 16);
  // Nearest neighbour ignores the antialiasing flag.
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 4, 4), Rect(0, 0, 33, 1), 4, kNN | ZRIPP_INTER_ANTIALIAS, &size),
            0);
  EXPECT_EQ(size, 64 * (3 + 1) + 16);
}

TEST(ResizeGetBufSize, TwoGibLimitStoresZero) {
  // 64 * (33554430 + 1) + 16 is the largest size below 2^31.
  int32_t size = 0;
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 1, 1), Rect(0, 0, 16 * 33554430, 1), 4, kNN, &size), 0);
  EXPECT_EQ(size, 2147483600);
  size = 99;
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 1, 1), Rect(0, 0, 16 * 33554431, 1), 4, kNN, &size),
            ZRIPP_SIZE_ERR);
  EXPECT_EQ(size, 0);
  size = 99;
  EXPECT_EQ(ippiResizeGetBufSize(Rect(0, 0, 1, 1), Rect(0, 0, INT32_MAX, INT32_MAX), 4, kNN, &size),
            ZRIPP_SIZE_ERR);
  EXPECT_EQ(size, 0);
}

TEST(ResizeGetBufSize, ChecksInOrderAndStoresNothingOnError) {
  const IppiRect good = Rect(0, 0, 8, 8);
  EXPECT_EQ(ippiResizeGetBufSize(Rect(-1, 0, 0, 0), good, 7, 3, nullptr), ZRIPP_NULL_PTR_ERR);
  struct Case {
    IppiRect src, dst;
    int32_t channels, interpolation;
    IppStatus status;
  };
  const Case cases[] = {
      {Rect(-1, 0, 8, 8), good, 7, 3, ZRIPP_SIZE_ERR},
      {good, Rect(0, -1, 8, 8), 4, kNN, ZRIPP_SIZE_ERR},
      {good, Rect(0, 0, 0, 8), 4, kNN, ZRIPP_SIZE_ERR},
      {Rect(0, 0, 8, -3), good, 4, kNN, ZRIPP_SIZE_ERR},
      {good, good, 2, 3, ZRIPP_CHANNEL_ERR},
      {good, good, 0, kNN, ZRIPP_CHANNEL_ERR},
      {good, good, 1, kNN | ZRIPP_INTER_ANTIALIAS | ZRIPP_INTER_SUBPIXEL_EDGE, ZRIPP_INTERPOLATION_ERR},
      {good, good, 1, kNN | ZRIPP_INTER_SMOOTH_EDGE | ZRIPP_INTER_ANTIALIAS, ZRIPP_INTERPOLATION_ERR},
  };
  for (const Case& c : cases) {
    int32_t size = 0;
    EXPECT_EQ(ippiResizeGetBufSize(c.src, c.dst, c.channels, c.interpolation, &size), c.status)
        << "channels " << c.channels << " interpolation " << c.interpolation;
    EXPECT_EQ(size, 0);
  }
}

TEST(ResizeGetBufSize, InterpolationNumbersAndFlags) {
  const IppiRect r = Rect(0, 0, 4, 4);
  const int32_t flags[] = {0, ZRIPP_INTER_ANTIALIAS, ZRIPP_INTER_SUBPIXEL_EDGE, ZRIPP_INTER_SMOOTH_EDGE};
  for (int32_t flag : flags) {
    for (int32_t number = 0; number < 40; ++number) {
      const bool accepted = number == 1 || number == 2 || (number >= 4 && number <= 8) || number == 16;
      const bool built = number == kNN && (flag == 0 || flag == ZRIPP_INTER_ANTIALIAS);
      int32_t size = 0;
      EXPECT_EQ(ippiResizeGetBufSize(r, r, 4, number | flag, &size), !accepted ? ZRIPP_INTERPOLATION_ERR
                                                                     : built   ? ZRIPP_OK
                                                                               : ZRIPP_MODE_NOT_BUILT)
          << number << " flag " << flag;
    }
  }
}

TEST(ResizeAllocator, AlignedBlockWithRawPointerInFront) {
  EXPECT_EQ(ippsMalloc_8u(0), nullptr);
  EXPECT_EQ(ippsMalloc_8u(-5), nullptr);
  ippsFree(nullptr);
  for (int32_t len : {1, 63, 64, 65, 4096, 12048}) {
    uint8_t* p = ippsMalloc_8u(len);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
    std::memset(p, 0x5A, static_cast<size_t>(len));  // the whole block is usable
    ippsFree(p);
  }
}

// The replaceable allocator: what it is asked for and what it gets back.
struct AllocLog {
  static inline size_t lastSize = 0;
  static inline void* lastRaw = nullptr;
  static inline void* lastFreed = nullptr;
  static inline bool fail = false;
  static void* Malloc(size_t n) {
    lastSize = n;
    lastRaw = fail ? nullptr : std::malloc(n);
    return lastRaw;
  }
  static void Free(void* p) {
    lastFreed = p;
    std::free(p);
  }
};

TEST(ResizeAllocator, GoesThroughReplaceablePointers) {
  void* (*savedMalloc)(size_t) = i_malloc;
  void (*savedFree)(void*) = i_free;
  i_malloc = AllocLog::Malloc;
  i_free = AllocLog::Free;

  uint8_t* p = ippsMalloc_8u(100);
  EXPECT_EQ(AllocLog::lastSize, 172u);
  const auto raw = reinterpret_cast<uintptr_t>(AllocLog::lastRaw);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(p), (raw + 71) & ~uintptr_t{63});
  void* stored;
  std::memcpy(&stored, p - 8, 8);
  EXPECT_EQ(stored, AllocLog::lastRaw);
  ippsFree(p);
  EXPECT_EQ(AllocLog::lastFreed, AllocLog::lastRaw);

  AllocLog::fail = true;
  EXPECT_EQ(ippsMalloc_8u(100), nullptr);
  AllocLog::fail = false;

  i_malloc = savedMalloc;
  i_free = savedFree;
}

TEST(ResizeSqrPixel, ChecksInOrderAndLeavesDestinationAlone) {
  const Frame src(8, 4);
  Output dst(8, 4);
  uint8_t scratch[1024];
  const uint8_t* s = src.bytes.data();
  uint8_t* d = dst.bytes.data();
  const IppiSize size = Size(8, 4);
  const IppiRect all = Rect(0, 0, 8, 4);
  struct Case {
    const uint8_t* src;
    IppiSize size;
    IppiRect srcRoi;
    uint8_t* dst;
    IppiRect dstRoi;
    double xf, yf, xs, ys;
    int32_t interpolation;
    uint8_t* buffer;
    IppStatus status;
  };
  const Case cases[] = {
      // A null scratch is refused before anything else, even an empty task.
      {s, Size(0, 0), Rect(-1, 0, 0, 0), d, all, 0.0, 0.0, 0.0, 0.0, 3, nullptr, ZRIPP_NULL_PTR_ERR},
      {nullptr, size, all, d, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_NULL_PTR_ERR},
      {s, size, all, nullptr, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_NULL_PTR_ERR},
      {s, Size(0, 4), all, d, all, 0.0, 1.0, 0.0, 0.0, 3, scratch, ZRIPP_SIZE_ERR},
      {s, Size(8, -1), all, d, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_SIZE_ERR},
      {s, size, Rect(0, -1, 8, 4), d, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_SIZE_ERR},
      {s, size, all, d, Rect(0, 0, 8, 0), 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_SIZE_ERR},
      {s, size, all, d, all, 0.0, 1.0, 0.0, 0.0, 3, scratch, ZRIPP_FACTOR_ERR},
      {s, size, all, d, all, 0.5, -1.0, 0.0, 0.0, kNN, scratch, ZRIPP_FACTOR_ERR},
      {s, size, all, d, all, kNaN, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_FACTOR_ERR},
      {s, size, Rect(8, 0, 1, 1), d, all, 0.5, 1.0, 0.0, 0.0, 3, scratch, ZRIPP_INTERPOLATION_ERR},
      {s, size, Rect(8, 0, 1, 1), d, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_ROI_OUTSIDE_SOURCE},
      {s, size, Rect(0, 4, 1, 1), d, all, 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_ROI_OUTSIDE_SOURCE},
      {s, size, Rect(8, 0, 1, 1), d, all, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_LINEAR, scratch,
       ZRIPP_ROI_OUTSIDE_SOURCE},
      // The scaled picture misses the destination rectangle.
      {s, size, all, d, Rect(4, 0, 4, 4), 0.5, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, 0.5, 1.0, 8.0, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, 0.01, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      // Shifts and factors that put the picture nowhere.
      {s, size, all, d, all, 1.0, 1.0, kNaN, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, 1.0, 1.0, 0.0, kInf, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, 1.0, 1.0, -kInf, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, kInf, 1.0, 0.0, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      {s, size, all, d, all, 1.0, 1.0, 3e9, 0.0, kNN, scratch, ZRIPP_NO_OUTPUT},
      // Past the setup, a resampling this engine does not carry.
      {s, size, all, d, all, 0.5, 1.0, 0.0, 0.0, ZRIPP_INTER_CUBIC + 2, scratch, ZRIPP_MODE_NOT_BUILT},
      {s, size, all, d, all, 0.5, 1.0, 0.0, 0.0, kNN | ZRIPP_INTER_SUBPIXEL_EDGE, scratch,
       ZRIPP_MODE_NOT_BUILT},
  };
  for (const Case& c : cases) {
    std::memset(scratch, 0x77, sizeof scratch);
    EXPECT_EQ(ippiResizeSqrPixel_8u_C4R(c.src, c.size, src.step, c.srcRoi, c.dst, dst.step, c.dstRoi, c.xf,
                                        c.yf, c.xs, c.ys, c.interpolation, c.buffer),
              c.status)
        << "case " << (&c - cases);
    EXPECT_TRUE(dst.Untouched()) << "case " << (&c - cases);
    for (uint8_t b : scratch) ASSERT_EQ(b, 0x77) << "case " << (&c - cases);
  }
}

TEST(ResizeSqrPixel, HalfWidthKeepsEvenColumns) {
  for (int32_t w : {4, 5, 1, 2, 3, 40, 41}) {
    const Frame src(w, 3);
    Output dst(w, 3);
    ASSERT_EQ(Resize(src, Rect(0, 0, w, 3), dst, Rect(0, 0, w, 3), 0.5, 1.0), 0) << w;
    // End column (w * 0.5 + 0.5000000001) truncated: w / 2 for even w, (w + 1) / 2 for odd.
    const int32_t drawn = (w + 1) / 2;
    for (int32_t y = 0; y < 3; ++y) {
      for (int32_t x = 0; x < drawn; ++x) EXPECT_EQ(dst.At(x, y), Frame::Source(2 * x, y)) << w << " " << x;
      for (int32_t x = drawn; x < w; ++x) EXPECT_EQ(dst.At(x, y), kUntouched) << w << " " << x;
    }
  }
}

TEST(ResizeSqrPixel, ScaleExamples) {
  {  // 1.0 x 1.0 is a copy.
    const Frame src(7, 5);
    Output dst(7, 5);
    ASSERT_EQ(Resize(src, Rect(0, 0, 7, 5), dst, Rect(0, 0, 7, 5), 1.0, 1.0), 0);
    for (int32_t y = 0; y < 5; ++y)
      for (int32_t x = 0; x < 7; ++x) EXPECT_EQ(dst.At(x, y), Frame::Source(x, y));
  }
  {  // 2.0 x 0.5: columns 0, 0, 1, 1, ...; rows 0, 2, 4 (row centres 0.5, 1.5, 2.5 map to 1 - eps, 3 -
     // eps...).
    const Frame src(3, 6);
    Output dst(6, 3);
    ASSERT_EQ(Resize(src, Rect(0, 0, 3, 6), dst, Rect(0, 0, 6, 3), 2.0, 0.5), 0);
    for (int32_t y = 0; y < 3; ++y)
      for (int32_t x = 0; x < 6; ++x) EXPECT_EQ(dst.At(x, y), Frame::Source(x / 2, 2 * y)) << x << "," << y;
  }
  {  // A shift of 2.5: column x takes T(x - 2 - 1e-10), truncated toward zero, so columns 2 and 3 both
     // show source column 0; the end column is T(4 + 2.5 + 0.5000000001) = 7.
    const Frame src(4, 1);
    Output dst(8, 1);
    ASSERT_EQ(Resize(src, Rect(0, 0, 4, 1), dst, Rect(0, 0, 8, 1), 1.0, 1.0, 2.5, 0.0), 0);
    const uint32_t want[8] = {kUntouched,          kUntouched,          Frame::Source(0, 0),
                              Frame::Source(0, 0), Frame::Source(1, 0), Frame::Source(2, 0),
                              Frame::Source(3, 0), kUntouched};
    for (int32_t x = 0; x < 8; ++x) EXPECT_EQ(dst.At(x, 0), want[x]) << x;
  }
}

TEST(ResizeSqrPixel, RectanglesCutThePicture) {
  const Frame src(10, 4);
  {  // srcRoi beyond the image is cut to it.
    Output a(10, 4), b(10, 4);
    ASSERT_EQ(Resize(src, Rect(0, 0, 10, 4), a, Rect(0, 0, 10, 4), 1.0, 1.0), 0);
    ASSERT_EQ(Resize(src, Rect(0, 0, 500, 90), b, Rect(0, 0, 10, 4), 1.0, 1.0), 0);
    EXPECT_EQ(a.bytes, b.bytes);
  }
  {  // dstRoi at x 3: absolute columns, so the picture keeps its place and loses its left part.
    Output dst(10, 4);
    ASSERT_EQ(Resize(src, Rect(0, 0, 10, 4), dst, Rect(3, 1, 4, 2), 1.0, 1.0), 0);
    for (int32_t y = 0; y < 4; ++y)
      for (int32_t x = 0; x < 10; ++x) {
        const bool inside = x >= 3 && x < 7 && y >= 1 && y < 3;
        EXPECT_EQ(dst.At(x, y), inside ? Frame::Source(x, y) : kUntouched) << x << "," << y;
      }
  }
  {  // srcRoi starting inside the image: source coordinates stay absolute.
    Output dst(10, 4);
    ASSERT_EQ(Resize(src, Rect(4, 1, 3, 2), dst, Rect(0, 0, 10, 4), 1.0, 1.0), 0);
    for (int32_t y = 0; y < 4; ++y)
      for (int32_t x = 0; x < 10; ++x) {
        const bool inside = x >= 4 && x < 7 && y >= 1 && y < 3;
        EXPECT_EQ(dst.At(x, y), inside ? Frame::Source(x, y) : kUntouched) << x << "," << y;
      }
  }
}

TEST(ResizeSqrPixel, StepsAreIndependentAndMayBeNegative) {
  const Frame src(9, 5, /*padPixels=*/3);
  // Bottom-up destination: the first row at the end of the buffer, a negative step.
  const int32_t dstStep = -(4 * 5 + 4);
  std::vector<uint8_t> out(static_cast<size_t>(-dstStep) * 5, 0);
  uint8_t* first = out.data() + static_cast<size_t>(-dstStep) * 4;
  uint8_t scratch[256];
  ASSERT_EQ(ippiResizeSqrPixel_8u_C4R(src.bytes.data(), Size(9, 5), src.step, Rect(0, 0, 9, 5), first,
                                      dstStep, Rect(0, 0, 5, 5), 0.5, 1.0, 0.0, 0.0, kNN, scratch),
            0);
  for (int32_t y = 0; y < 5; ++y)
    for (int32_t x = 0; x < 5; ++x)
      EXPECT_EQ(PixelAt(first + y * dstStep + 4 * x), Frame::Source(2 * x, y)) << x << "," << y;
}

TEST(ResizeSqrPixel, AntialiasFlagIsIgnoredAndReported) {
  const Frame src(12, 3);
  Output plain(12, 3), flagged(12, 3);
  ASSERT_EQ(Resize(src, Rect(0, 0, 12, 3), plain, Rect(0, 0, 12, 3), 0.5, 1.0), 0);
  EXPECT_EQ(Resize(src, Rect(0, 0, 12, 3), flagged, Rect(0, 0, 12, 3), 0.5, 1.0, 0.0, 0.0,
                   kNN | ZRIPP_INTER_ANTIALIAS),
            ZRIPP_ANTIALIAS_IGNORED);
  EXPECT_EQ(plain.bytes, flagged.bytes);
}

// The tables lie in the scratch where the caller can see them: the column
// table at the first 16-byte boundary, the row table at the next one behind it.
TEST(ResizeSqrPixel, TablesInScratch) {
  const Frame src(21, 7, 2);
  Output dst(21, 7);
  for (size_t misalign : {0, 4, 12}) {
    int32_t size = 0;
    ASSERT_EQ(ippiResizeGetBufSize(Rect(0, 0, 21, 7), Rect(0, 0, 21, 7), 1, kNN, &size), 0);
    TightBuffer scratch(static_cast<size_t>(size) + 64);
    uint8_t* buffer =
        scratch.data() + ((64 - reinterpret_cast<uintptr_t>(scratch.data()) % 64) % 64) + misalign;
    ASSERT_EQ(ippiResizeSqrPixel_8u_C4R(src.bytes.data(), Size(21, 7), src.step, Rect(0, 0, 21, 7),
                                        dst.bytes.data(), dst.step, Rect(0, 0, 21, 7), 0.5, 1.0, 0.0, 0.0,
                                        kNN, buffer),
              0);
    const uint8_t* col = buffer + (16 - misalign) % 16;
    const int32_t columns = 11;
    for (int32_t j = 0; j < columns; ++j) EXPECT_EQ(PixelAt(col + 4 * j), uint32_t(8 * j)) << j;
    const uint8_t* row = col + ((4 * columns + 15) / 16) * 16;
    for (int32_t i = 0; i < 7; ++i) EXPECT_EQ(PixelAt(row + 4 * i), uint32_t(i * src.step)) << i;
  }
}

}  // namespace
}  // namespace zr::test
