// Every vector form of the kernel family against the scalar reference, on
// seeded random data over many sizes, and golden checksums of whole calls
// that every variant and every build must reproduce.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/crc32.h"
#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "resize/resize_setup.h"
#include "resize/resize_sp.h"
#include "resize_test_util.h"

namespace zr::test {
namespace {

std::vector<const ResizeVariant*> RunnableVariants() {
  std::vector<const ResizeVariant*> out;
  for (const ResizeVariant& v : kResizeVariants)
    if (MachineHas(v.needs)) out.push_back(&v);
  return out;
}

// "x,y" of the first differing byte, rows of `rowBytes`, or "" when equal.
std::string FirstDiff(const uint8_t* a, const uint8_t* b, size_t n, size_t rowBytes) {
  for (size_t i = 0; i < n; ++i)
    if (a[i] != b[i]) return std::to_string(i % rowBytes) + "," + std::to_string(i / rowBytes);
  return "";
}

const int32_t kWidths[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17,  18,
                           19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 64, 257, 1023};

TEST(ResizeKernels, FillTableMatchesScalar) {
  const uint64_t seed = 0x7AB1E5EEDull;
  Rng rng(seed);
  const double kInv[] = {2.0, 1.0, 0.5, 1.0 / 0.37, 1.0 / 3.0, 1e12, -0.75};
  const double kOff[] = {-1e-10, 0.0 - 1e-10, -2.5 / 0.5 - 1e-10, 1.25 - 1e-10, -3e9, 7.5};
  for (const ResizeVariant* v : RunnableVariants()) {
    for (int32_t n : kWidths) {
      for (int trial = 0; trial < 12; ++trial) {
        const int32_t first = trial % 3 == 0   ? 0
                              : trial % 3 == 1 ? static_cast<int32_t>(rng.Below(5000))
                                               : INT32_MAX - n - static_cast<int32_t>(rng.Below(3));
        const double inv = trial < 7 ? kInv[trial] : (rng.Below(1000000) + 1) / 1000.0;
        const double off = kOff[rng.Below(6)];
        const int32_t scale = trial % 2 ? 4 : static_cast<int32_t>(rng.Next32());
        const size_t misalign = 4 * rng.Below(4);
        GuardedBuffer want(4 * static_cast<size_t>(n), misalign), got(4 * static_cast<size_t>(n), misalign);
        ownResizeKernels_C.fillTable(reinterpret_cast<int32_t*>(want.data()), first, n, inv, off, scale);
        v->kernels->fillTable(reinterpret_cast<int32_t*>(got.data()), first, n, inv, off, scale);
        ASSERT_TRUE(got.GuardsIntact()) << v->name << " seed " << seed << " n " << n;
        ASSERT_EQ(FirstDiff(want.data(), got.data(), want.size(), 4), "")
            << v->name << " seed " << seed << " n " << n << " first " << first << " inv " << inv << " off "
            << off << " scale " << scale;
      }
    }
  }
}

// Runs one row form of a variant and of the reference over the same source
// (ending exactly at its last needed byte) and destination.
void CheckRow(const ResizeVariant& v, ownResizeRowFn ownResizeKernels::*form, const std::vector<int32_t>& col,
              size_t srcBytes, size_t srcMisalign, size_t dstMisalign, Rng& rng, uint64_t seed) {
  const int32_t n = static_cast<int32_t>(col.size());
  TightBuffer src(srcBytes, srcMisalign);
  rng.Fill(src.data(), srcBytes);
  const std::vector<uint8_t> before(src.data(), src.data() + srcBytes);
  GuardedBuffer want(4 * col.size(), dstMisalign), got(4 * col.size(), dstMisalign);
  rng.Fill(want.data(), want.size());
  std::memcpy(got.data(), want.data(), want.size());
  (ownResizeKernels_C.*form)(src.data(), col.data(), want.data(), n);
  (v.kernels->*form)(src.data(), col.data(), got.data(), n);
  ASSERT_TRUE(got.GuardsIntact()) << v.name << " seed " << seed << " n " << n;
  ASSERT_EQ(FirstDiff(want.data(), got.data(), want.size(), want.size()), "")
      << v.name << " seed " << seed << " n " << n << " misalign " << srcMisalign << "/" << dstMisalign;
  ASSERT_TRUE(std::equal(before.begin(), before.end(), src.data())) << v.name << " wrote its source";
}

TEST(ResizeKernels, RowFormsMatchScalar) {
  const uint64_t seed = 0x40075EEDull;
  Rng rng(seed);
  for (const ResizeVariant* v : RunnableVariants()) {
    for (int32_t n : kWidths) {
      for (size_t srcMis = 0; srcMis < 2; ++srcMis) {
        for (size_t dstMis : {0, 1, 4, 8, 12}) {
          const int32_t col0 = 4 * static_cast<int32_t>(rng.Below(3));
          std::vector<int32_t> col(n);
          for (int32_t j = 0; j < n; ++j) col[j] = col0 + 4 * j;
          CheckRow(*v, &ownResizeKernels::rowCopy, col, col0 + 4 * n, srcMis, dstMis, rng, seed);
          for (int32_t j = 0; j < n; ++j) col[j] = col0 + 8 * j;
          CheckRow(*v, &ownResizeKernels::rowHalf, col, col0 + 8 * (n - 1) + 4, srcMis, dstMis, rng, seed);
          CheckRow(*v, &ownResizeKernels::rowHalfStream, col, col0 + 8 * (n - 1) + 4, srcMis, dstMis, rng,
                   seed);
          const int32_t extent = 4 * (n + 3);
          for (int32_t j = 0; j < n; ++j) col[j] = 4 * static_cast<int32_t>(rng.Below(n + 3));
          CheckRow(*v, &ownResizeKernels::rowGather, col, extent, srcMis, dstMis, rng, seed);
        }
      }
    }
  }
}

// One whole resize: a source that ends where its last row does, a scratch
// of exactly the queried size, a guarded destination.
struct Task {
  int32_t srcW, srcH, srcStep, dstW, dstH, dstStep;
  IppiRect srcRoi, dstRoi;
  double xf, yf, xs, ys;
  size_t srcMis, dstMis, scratchMis;
};

struct Result {
  IppStatus status;
  std::vector<uint8_t> dst;
  bool guards;
};

Result RunTask(const Task& t, const ownResizeKernels* kernels, ownResizeSqrPixelFn resize, uint64_t seed) {
  const size_t rowBytes = 4 * static_cast<size_t>(t.srcW);
  const size_t absStep = static_cast<size_t>(t.srcStep < 0 ? -t.srcStep : t.srcStep);
  const size_t srcBytes = absStep * (t.srcH - 1) + rowBytes;
  TightBuffer src(srcBytes, t.srcMis);
  Rng fill(seed);
  fill.Fill(src.data(), srcBytes);
  const uint8_t* pSrc = t.srcStep < 0 ? src.data() + absStep * (t.srcH - 1) : src.data();

  const size_t dstBytes = static_cast<size_t>(t.dstStep) * t.dstH;
  GuardedBuffer dst(dstBytes, t.dstMis);
  fill.Fill(dst.data(), dstBytes);

  int32_t size = 0;
  EXPECT_EQ(ippiResizeGetBufSize(t.srcRoi, t.dstRoi, 4, ZRIPP_INTER_NN, &size), 0);
  TightBuffer scratch(static_cast<size_t>(size), t.scratchMis);

  Result r;
  r.status = kernels ? ownpiResizeSqrPixel_8u_C4R(pSrc, Size(t.srcW, t.srcH), t.srcStep, t.srcRoi, dst.data(),
                                                  t.dstStep, t.dstRoi, t.xf, t.yf, t.xs, t.ys, ZRIPP_INTER_NN,
                                                  scratch.data(), *kernels)
                     : resize(pSrc, Size(t.srcW, t.srcH), t.srcStep, t.srcRoi, dst.data(), t.dstStep,
                              t.dstRoi, t.xf, t.yf, t.xs, t.ys, ZRIPP_INTER_NN, scratch.data());
  r.dst.assign(dst.data(), dst.data() + dstBytes);
  r.guards = dst.GuardsIntact();
  Rng check(seed);
  std::vector<uint8_t> original(srcBytes);
  check.Fill(original.data(), srcBytes);
  EXPECT_TRUE(std::equal(original.begin(), original.end(), src.data())) << "source written";
  return r;
}

Task RandomTask(Rng& rng) {
  const double kFactors[] = {0.5, 1.0, 2.0, 0.37, 1.7, 0.25, 3.0, 0.75, 1.0 / 3.0};
  const double kShifts[] = {0.0, 0.5, -1.25, 2.3, -0.1};
  Task t{};
  t.srcW = rng.Below(8) == 0 ? 300 + static_cast<int32_t>(rng.Below(800))
                             : 1 + static_cast<int32_t>(rng.Below(33));
  t.srcH = 1 + static_cast<int32_t>(rng.Below(12));
  t.srcStep = 4 * t.srcW + static_cast<int32_t>(rng.Below(10));
  if (rng.Below(4) == 0) t.srcStep = -t.srcStep;
  t.xf = kFactors[rng.Below(9)];
  t.yf = kFactors[rng.Below(9)];
  t.xs = rng.Below(3) ? 0.0 : kShifts[rng.Below(5)];
  t.ys = rng.Below(3) ? 0.0 : kShifts[rng.Below(5)];
  const int32_t sx = static_cast<int32_t>(rng.Below(t.srcW)), sy = static_cast<int32_t>(rng.Below(t.srcH));
  t.srcRoi =
      Rect(rng.Below(4) ? 0 : sx, rng.Below(4) ? 0 : sy, 1 + static_cast<int32_t>(rng.Below(t.srcW + 4)),
           1 + static_cast<int32_t>(rng.Below(t.srcH + 2)));
  const int32_t spanW = static_cast<int32_t>(t.srcW * t.xf) + 4,
                spanH = static_cast<int32_t>(t.srcH * t.yf) + 4;
  t.dstRoi = Rect(rng.Below(3) ? 0 : static_cast<int32_t>(rng.Below(3)),
                  rng.Below(3) ? 0 : static_cast<int32_t>(rng.Below(3)),
                  spanW - static_cast<int32_t>(rng.Below(spanW / 8 + 1)),
                  spanH - static_cast<int32_t>(rng.Below(spanH / 8 + 1)));
  t.dstW = t.dstRoi.x + t.dstRoi.width;
  t.dstH = t.dstRoi.y + t.dstRoi.height;
  t.dstStep = 4 * t.dstW + 4 * static_cast<int32_t>(rng.Below(3));
  t.srcMis = rng.Below(2);
  t.dstMis = rng.Below(2);
  t.scratchMis = rng.Below(16);
  return t;
}

TEST(ResizeKernels, WholeCallsMatchScalar) {
  const uint64_t seed = 0xCA11ED5EEDull;
  Rng rng(seed);
  const auto variants = RunnableVariants();
  int drawn = 0;
  for (int trial = 0; trial < 600; ++trial) {
    const Task t = RandomTask(rng);
    const Result want = RunTask(t, &ownResizeKernels_C, nullptr, seed + trial);
    ASSERT_TRUE(want.guards);
    drawn += want.status == 0;
    for (const ResizeVariant* v : variants) {
      const Result got = RunTask(t, nullptr, v->resize, seed + trial);
      ASSERT_TRUE(got.guards) << v->name << " seed " << seed << " trial " << trial;
      ASSERT_EQ(got.status, want.status) << v->name << " seed " << seed << " trial " << trial;
      ASSERT_EQ(FirstDiff(want.dst.data(), got.dst.data(), want.dst.size(), t.dstStep), "")
          << v->name << " seed " << seed << " trial " << trial << " src " << t.srcW << "x" << t.srcH
          << " step " << t.srcStep << " factors " << t.xf << "," << t.yf << " shifts " << t.xs << "," << t.ys;
    }
  }
  // Most tasks must reach the kernel, or the comparison above proves little.
  EXPECT_GT(drawn, 450);
}

// Fixed seeded calls and the CRC-32 of the whole destination after each.
// The same constants hold for the reference, every variant, and the public
// name at whatever slot it stands on.
struct GoldenCase {
  const char* name;
  Task task;
  uint32_t crc;
};

const GoldenCase kGolden[] = {
    {"mux half, odd width",
     {61, 17, 244, 61, 17, 244, Rect(0, 0, 61, 17), Rect(0, 0, 61, 17), 0.5, 1.0, 0, 0, 0, 0, 0},
     0x32993273u},
    {"mux half, HD rows",
     {1920, 4, 7680, 1920, 4, 7680, Rect(0, 0, 1920, 4), Rect(0, 0, 1920, 4), 0.5, 1.0, 0, 0, 1, 0, 0},
     0xEFF8BD76u},
    {"scaled and shifted",
     {45, 31, 190, 31, 51, 132, Rect(3, 2, 40, 25), Rect(1, 1, 30, 50), 0.37, 1.7, 0.5, -1.25, 1, 1, 5},
     0x3BE15258u},
    // Large enough for the output to be streamed around the caches.
    {"half of a 4096 x 1040 frame",
     {4096, 1040, 16384, 4096, 1040, 16384, Rect(0, 0, 4096, 1040), Rect(0, 0, 4096, 1040), 0.5, 1.0, 0, 0, 0,
      4, 0},
     0xED5B8250u},
    {"doubled, cut at the left",
     {33, 9, -140, 70, 5, 280, Rect(0, 0, 33, 9), Rect(3, 0, 60, 5), 2.0, 0.5, 0, 0, 0, 1, 9},
     0x1EADC2BBu},
};

TEST(ResizeKernels, GoldenChecksums) {
  const uint64_t seed = 0x601D5EEDull;
  for (const GoldenCase& g : kGolden) {
    const Result ref = RunTask(g.task, &ownResizeKernels_C, nullptr, seed);
    ASSERT_EQ(ref.status, 0) << g.name;
    EXPECT_EQ(Crc32(ref.dst.data(), ref.dst.size()), g.crc) << g.name << ": reference";
    const Result pub = RunTask(g.task, nullptr, ippiResizeSqrPixel_8u_C4R, seed);
    EXPECT_EQ(Crc32(pub.dst.data(), pub.dst.size()), g.crc) << g.name << ": public name";
    for (const ResizeVariant* v : RunnableVariants()) {
      const Result got = RunTask(g.task, nullptr, v->resize, seed);
      EXPECT_EQ(Crc32(got.dst.data(), got.dst.size()), g.crc) << g.name << ": " << v->name;
    }
  }
}

}  // namespace
}  // namespace zr::test
