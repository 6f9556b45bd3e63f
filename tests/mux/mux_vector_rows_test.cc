// Every vector form of the pixel mix rows and of weigh_plane's row against
// its scalar form: seeded random data, every remainder of the vector step,
// misaligned buffers, outputs that overlap a source, and the bytes around
// the row, which must stay as they were.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "mux/cpu_choice.h"
#include "mux/pixel_rows.h"
#include "mux/weigh_rows.h"

namespace zr::test {
namespace {

using mux::PixelRowFn;
using mux::PixelRowParams;
using mux::PixelRowSet;

std::vector<const PixelRowSet*> VectorPixelSets() {
#if defined(__x86_64__)
  std::vector<const PixelRowSet*> sets{&mux::kPixelRowsSse41};
  if (mux::HasAvx2()) sets.push_back(&mux::kPixelRowsAvx2);
  if (mux::HasAvx512Bw()) sets.push_back(&mux::kPixelRowsAvx512);
  return sets;
#else
  return {&mux::kPixelRowsNeon};
#endif
}

std::vector<std::pair<const char*, mux::WeighRowFn>> VectorWeighRows() {
#if defined(__x86_64__)
  std::vector<std::pair<const char*, mux::WeighRowFn>> rows{{"sse41", mux::WeighRowSse41}};
  if (mux::HasAvx2()) rows.emplace_back("avx2", mux::WeighRowAvx2);
  if (mux::HasAvx512Bw()) rows.emplace_back("avx512", mux::WeighRowAvx512);
  return rows;
#else
  return {{"neon", mux::WeighRowNeon}};
#endif
}

constexpr struct {
  const char* name;
  PixelRowFn PixelRowSet::*row;
} kPixelRows[] = {{"merge", &PixelRowSet::merge},           {"average", &PixelRowSet::average},
                  {"difference", &PixelRowSet::difference}, {"matchGate", &PixelRowSet::matchGate},
                  {"crossfade", &PixelRowSet::crossfade},   {"channelView", &PixelRowSet::channelView}};

std::vector<uint32_t> Widths() {
  std::vector<uint32_t> widths;
  for (uint32_t w = 1; w <= 33; ++w) widths.push_back(w);
  for (uint32_t w : {63u, 64u, 65u, 257u, 1000u, 1921u}) widths.push_back(w);
  return widths;
}

PixelRowParams RandomParams(Rng& rng) {
  PixelRowParams k;
  k.maskA = rng.Next32();
  k.maskB = rng.Next32();
  k.gain = 1 + rng.Below(255);
  const uint32_t tolerances[] = {0, 1, 7, 128, 254, 255, 256, rng.Next32()};
  k.tolerance = tolerances[rng.Below(8)];
  k.fill = rng.Below(2) ? 0xFFFFFFFF : 0;
  const uint32_t positions[] = {0, 1, 128, 255, 256, 0x10000, 0x12345, rng.Next32() >> 8, rng.Next32()};
  k.p = positions[rng.Below(9)];
  k.q = rng.Below(4) ? 256 - k.p : rng.Next32();
  k.channel = rng.Below(5);
  return k;
}

// The first differing byte as "x <element from origin>, byte <i>", or empty.
std::string FirstDifference(const uint8_t* got, const uint8_t* want, size_t bytes, long origin, long unit) {
  for (size_t i = 0; i < bytes; ++i)
    if (got[i] != want[i])
      return "x " + std::to_string((static_cast<long>(i) - origin) / unit) + " byte " + std::to_string(i) +
             ": " + std::to_string(got[i]) + " instead of " + std::to_string(want[i]);
  return "";
}

TEST(MuxVectorRows, PixelRowsMatchScalarOnSeparateBuffers) {
  constexpr size_t kPad = 40;
  for (const PixelRowSet* set : VectorPixelSets())
    for (const auto& kind : kPixelRows) {
      uint64_t seed = 1;
      for (uint32_t width : Widths())
        for (size_t misalign : {0, 1, 3}) {
          ++seed;
          Rng rng(seed);
          const PixelRowParams k = RandomParams(rng);
          const size_t bytes = size_t{width} * 4 + 2 * kPad;
          GuardedBuffer a(bytes, misalign), b(bytes, misalign + 1), out(bytes, misalign);
          rng.Fill(a.data(), bytes);
          rng.Fill(b.data(), bytes);
          rng.Fill(out.data(), bytes);
          const std::vector<uint8_t> a0(a.data(), a.data() + bytes), b0(b.data(), b.data() + bytes);
          std::vector<uint8_t> want(out.data(), out.data() + bytes);

          (mux::kPixelRowsScalar.*kind.row)(a0.data() + kPad, b0.data() + kPad, want.data() + kPad, width, k);
          (set->*kind.row)(a.data() + kPad, b.data() + kPad, out.data() + kPad, width, k);

          const std::string diff = FirstDifference(out.data(), want.data(), bytes, kPad, 4);
          ASSERT_EQ(diff, "") << set->name << " " << kind.name << " width " << width << " seed " << seed;
          ASSERT_EQ(std::memcmp(a.data(), a0.data(), bytes), 0)
              << set->name << " " << kind.name << " wrote A";
          ASSERT_EQ(std::memcmp(b.data(), b0.data(), bytes), 0)
              << set->name << " " << kind.name << " wrote B";
          ASSERT_TRUE(a.GuardsIntact() && b.GuardsIntact() && out.GuardsIntact());
        }
    }
}

// Rows of a whole frame's length go out through streaming stores from the
// first 64-byte line on; an output that never meets a line does not.
TEST(MuxVectorRows, FrameLongRowsMatchScalar) {
  constexpr uint32_t kWidth = (1u << 20) + 37;
  constexpr size_t kBytes = size_t{kWidth} * 4 + 64;
  for (const PixelRowSet* set : VectorPixelSets())
    for (size_t misalign : {0, 4, 1}) {
      Rng rng(misalign + 1);
      const PixelRowParams k = RandomParams(rng);
      GuardedBuffer a(kBytes), b(kBytes), out(kBytes, misalign);
      rng.Fill(a.data(), kBytes);
      rng.Fill(b.data(), kBytes);
      std::vector<uint8_t> want(kBytes);
      for (const auto& kind : kPixelRows) {
        (mux::kPixelRowsScalar.*kind.row)(a.data(), b.data(), want.data(), kWidth, k);
        (set->*kind.row)(a.data(), b.data(), out.data(), kWidth, k);
        ASSERT_EQ(FirstDifference(out.data(), want.data(), size_t{kWidth} * 4, 0, 4), "")
            << set->name << " " << kind.name << " misalign " << misalign;
        ASSERT_TRUE(out.GuardsIntact());
      }
    }
}

// One buffer holds a source and the output at a distance: where out starts
// above a source and runs into it, the pixel order shows, and every form must
// give the scalar bytes.
TEST(MuxVectorRows, PixelRowsMatchScalarWhenOutputOverlapsASource) {
  constexpr size_t kPad = 200;
  const long shifts[] = {-64, -9, -4, -1, 0, 1, 2, 4, 12, 36, 64};
  for (const PixelRowSet* set : VectorPixelSets())
    for (const auto& kind : kPixelRows)
      for (uint32_t width : {5u, 16u, 33u, 100u})
        for (long shift : shifts)
          for (bool overB : {false, true}) {
            const uint64_t seed = width * 1000 + static_cast<uint64_t>(shift + 100) * 2 + overB;
            Rng rng(seed);
            const PixelRowParams k = RandomParams(rng);
            const size_t bytes = size_t{width} * 4 + 2 * kPad;
            std::vector<uint8_t> shared(bytes), other(bytes);
            rng.Fill(shared.data(), bytes);
            rng.Fill(other.data(), bytes);
            std::vector<uint8_t> sharedWant = shared, otherWant = other;

            const auto run = [&](PixelRowFn fn, std::vector<uint8_t>& s, std::vector<uint8_t>& o) {
              uint8_t* src = s.data() + kPad;
              uint8_t* out = src + shift;
              if (overB)
                fn(o.data() + kPad, src, out, width, k);
              else
                fn(src, o.data() + kPad, out, width, k);
            };
            run(mux::kPixelRowsScalar.*kind.row, sharedWant, otherWant);
            run(set->*kind.row, shared, other);
            ASSERT_EQ(FirstDifference(shared.data(), sharedWant.data(), bytes, kPad + shift, 4), "")
                << set->name << " " << kind.name << " width " << width << " shift " << shift << " seed "
                << seed;
            ASSERT_EQ(other, otherWant);
          }
}

TEST(MuxVectorRows, WeighRowsMatchScalar) {
  constexpr size_t kPad = 40;
  const uint32_t weights[] = {0,     1,     0x7FFF,   0x8000,    32768,      65535,
                              65536, 65537, 0xFFFFFF, 0x1000000, 0x80000000, 0xFFFFFFFF};
  for (const auto& [name, row] : VectorWeighRows()) {
    uint64_t seed = 1;
    for (uint32_t width : Widths())
      for (size_t misalign : {0, 1, 3}) {
        ++seed;
        Rng rng(seed);
        // Every kind of split: no carry, a carry of 1 on either or both
        // weights, and the general case.
        const uint32_t ws = rng.Below(3) ? weights[rng.Below(12)] : rng.Next32();
        const uint32_t wd = rng.Below(3) ? weights[rng.Below(12)] : rng.Next32() >> (rng.Below(2) * 16);
        const size_t bytes = width + 2 * kPad;
        GuardedBuffer dst(bytes, misalign), src(bytes, misalign + 2);
        rng.Fill(dst.data(), bytes);
        rng.Fill(src.data(), bytes);
        const std::vector<uint8_t> src0(src.data(), src.data() + bytes);
        std::vector<uint8_t> want(dst.data(), dst.data() + bytes);

        mux::WeighRowScalar(want.data() + kPad, src0.data() + kPad, width, ws, wd);
        row(dst.data() + kPad, src.data() + kPad, width, ws, wd);

        ASSERT_EQ(FirstDifference(dst.data(), want.data(), bytes, kPad, 1), "")
            << name << " width " << width << " weights " << ws << ", " << wd << " seed " << seed;
        ASSERT_EQ(std::memcmp(src.data(), src0.data(), bytes), 0) << name << " wrote src";
        ASSERT_TRUE(dst.GuardsIntact() && src.GuardsIntact());
      }
  }
}

TEST(MuxVectorRows, WeighRowsMatchScalarWhenPlanesOverlap) {
  constexpr size_t kPad = 100;
  for (const auto& [name, row] : VectorWeighRows())
    for (uint32_t width : {7u, 16u, 17u, 64u, 129u})
      for (long shift : {-40L, -17L, -16L, -1L, 0L, 1L, 5L, 16L, 31L, 32L, 90L}) {
        const uint64_t seed = width * 1000 + static_cast<uint64_t>(shift + 100);
        Rng rng(seed);
        const uint32_t ws = rng.Next32() >> 12, wd = rng.Next32() >> 12;
        std::vector<uint8_t> plane(width + 2 * kPad);
        rng.Fill(plane.data(), plane.size());
        std::vector<uint8_t> want = plane;
        // src = dst + shift: below dst, bytes already written are read again.
        mux::WeighRowScalar(want.data() + kPad, want.data() + kPad + shift, width, ws, wd);
        row(plane.data() + kPad, plane.data() + kPad + shift, width, ws, wd);
        ASSERT_EQ(FirstDifference(plane.data(), want.data(), plane.size(), kPad, 1), "")
            << name << " width " << width << " shift " << shift << " seed " << seed;
      }
}

}  // namespace
}  // namespace zr::test
