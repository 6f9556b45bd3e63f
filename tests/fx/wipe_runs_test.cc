// The run-based wipes and the slide against the per-pixel model, on random
// pictures: every format group, widths 1 to 33 and large ones, pitches above
// the row, sub-rectangle bands (also past the picture's width, into the
// padding), misaligned buffers, any progress including the wrapping ones.
// The whole output buffer is compared, padding and guard bytes included, and
// neither source may change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "fx/fx_call.h"
#include "wipe_model.h"

namespace {

using zr::test::GuardedBuffer;
using zr::test::kWipeMembers;
using zr::test::Rng;

constexpr uint32_t kGroupFormats[] = {1, 2, 3, 4, 34, 5, 6, 33, 31, 35, 32, 36, 29, 30};

struct Case {
  uint32_t format, bpp, width, height, pitchA, pitchB, wipeCode;
  uint32_t progressStart, progressEnd, progress;
  uint32_t bandLeft, bandRight, bandTop, bandBottom;
  size_t misalignA, misalignB, misalignD;
};

uint32_t PickWidth(Rng& r) {
  static constexpr uint32_t kLarge[] = {64, 255, 257, 1000, 1921};
  return r.Below(4) ? 1 + r.Below(33) : kLarge[r.Below(5)];
}

uint32_t PickProgress(Rng& r, uint32_t span) {
  switch (r.Below(6)) {
    case 0:
      return 0;
    case 1:
      return span;
    case 2:
      return span + 1 + r.Below(span / 2 + 1);  // past the end: the wraps
    case 3:
      return r.Next32();  // the product wraps too
    default:
      return r.Below(span + 1);
  }
}

Case PickCase(Rng& r, bool slide, uint32_t slideCode) {
  Case c{};
  c.format = r.Below(12) ? kGroupFormats[r.Below(std::size(kGroupFormats))] : 7 + r.Below(22);
  const uint32_t groupBpp = zr::test::ModelBytesPerPixel(c.format);
  c.bpp = groupBpp ? groupBpp : 4;
  c.width = PickWidth(r);
  c.height = 1 + r.Below(c.width > 64 ? 4 : 9);
  static constexpr uint32_t kSpans[] = {1, 7, 100, 1080, 65536};
  c.progressStart = r.Below(3) ? 0 : r.Below(50);
  const uint32_t span = r.Below(5) ? kSpans[r.Below(5)] : 1 + r.Below(0x7FFFFFFF);
  c.progressEnd = c.progressStart + span;
  c.progress = PickProgress(r, span);
  c.wipeCode = slide ? slideCode : r.Below(2) << 31;
  if (slide) {
    // The slide reads packed frames and acts for a band at the origin only.
    c.pitchA = c.pitchB = c.width * c.bpp;
    c.bandLeft = r.Below(6) ? 0 : 1;
    c.bandTop = r.Below(6) ? 0 : 1;
    c.bandRight = r.Next32();
    c.bandBottom = r.Next32();
  } else {
    // Columns up to the padding may be named by a band.
    const uint32_t columns = c.width + r.Below(3);
    c.pitchA = columns * c.bpp + r.Below(2) * r.Below(40);
    c.pitchB = columns * c.bpp + r.Below(2) * r.Below(40);
    c.bandLeft = r.Below(4) ? 0 : r.Below(columns + 1);
    c.bandRight = r.Below(4) ? columns : r.Below(columns + 1);
    c.bandTop = r.Below(4) ? 0 : r.Below(c.height + 1);
    c.bandBottom = r.Below(4) ? c.height : r.Below(c.height + 1);
  }
  c.misalignA = r.Below(2);
  c.misalignB = r.Below(2);
  c.misalignD = r.Below(2);
  return c;
}

// A zero span faults on x86-64; the wipes that divide are not run with one.
bool ZeroSpanWouldFault(const Case& c) {
#if defined(__x86_64__)
  return c.progressEnd == c.progressStart;
#else
  static_cast<void>(c);
  return false;
#endif
}

void CheckMember(const zr::test::WipeMember& m, uint64_t seed, int cases) {
  Rng r(seed);
  const bool slide = m.effect == zrfxSLIDE_Basic;
  for (int i = 0; i < cases; ++i) {
    const Case c = PickCase(r, slide, 500 + r.Below(16) + (r.Below(5) ? 0 : 0x80000000u));
    if (ZeroSpanWouldFault(c)) continue;
    // Room for the longest row copy (the edge from the top copies pitchA
    // bytes at a pitchB stride) on every row.
    const size_t bytes = size_t{c.height} * std::max(c.pitchA, c.pitchB) + std::max(c.pitchA, c.pitchB);
    GuardedBuffer a(bytes, c.misalignA), b(bytes, c.misalignB), d(bytes, c.misalignD);
    r.Fill(a.data(), bytes);
    r.Fill(b.data(), bytes);
    r.Fill(d.data(), bytes);
    const std::vector<uint8_t> a0(a.data(), a.data() + bytes), b0(b.data(), b.data() + bytes);
    std::vector<uint8_t> want(d.data(), d.data() + bytes);

    zr::fx::FxCall call{
        a.data(),    c.pitchA,        b.data(),      c.pitchB,   d.data(),   0xDEAD,      c.wipeCode,
        c.format,    c.width,         c.height,      1,          2,          3,           4,
        5,           c.progressStart, c.progressEnd, c.progress, c.bandLeft, c.bandRight, c.bandTop,
        c.bandBottom};
    EXPECT_EQ(m.effect(ZRFX_CALL_VALUES(call)), 0u);
    call.dst = want.data();
    zr::test::ModelEffect(m.effect, call);

    const auto diff = std::mismatch(want.begin(), want.end(), d.data()).first - want.begin();
    const uint32_t row = std::max(c.pitchB, 1u);
    ASSERT_EQ(diff, static_cast<ptrdiff_t>(bytes))
        << m.name << " seed " << seed << " case " << i << ": first difference at x " << (diff % row) / c.bpp
        << ", y " << diff / row << " (format " << c.format << ", " << c.width << "x" << c.height
        << ", pitches " << c.pitchA << "/" << c.pitchB << ", code " << std::hex << c.wipeCode << std::dec
        << ", progress " << c.progress << " of " << c.progressStart << ".." << c.progressEnd << ", band "
        << c.bandLeft << ".." << c.bandRight << " x " << c.bandTop << ".." << c.bandBottom << ")";
    ASSERT_TRUE(d.GuardsIntact() && a.GuardsIntact() && b.GuardsIntact()) << m.name << " seed " << seed;
    ASSERT_TRUE(std::equal(a0.begin(), a0.end(), a.data())) << m.name << " wrote srcA, seed " << seed;
    ASSERT_TRUE(std::equal(b0.begin(), b0.end(), b.data())) << m.name << " wrote srcB, seed " << seed;
  }
}

TEST(WipeRuns, EveryMemberMatchesThePerPixelModel) {
  for (size_t m = 0; m < std::size(kWipeMembers); ++m) CheckMember(kWipeMembers[m], 0x5EED0000 + m, 1500);
}

// Every width 1 to 33 at every progress step of a small span, both sources
// in either role: each boundary position of each member is reached.
TEST(WipeRuns, EveryBoundaryOfSmallPictures) {
  for (const auto& m : kWipeMembers) {
    if (m.effect == zrfxSLIDE_Basic) continue;
    for (uint32_t w = 1; w <= 33; ++w)
      for (uint32_t h : {1u, 2u, 5u}) {
        const uint32_t pitch = (w + 1) * 4 + 3;
        const size_t bytes = size_t{pitch} * h + pitch;
        GuardedBuffer a(bytes), b(bytes, 1), d(bytes);
        Rng r(w * 131 + h);
        r.Fill(a.data(), bytes);
        r.Fill(b.data(), bytes);
        for (uint32_t progress = 0; progress <= 24; ++progress) {
          r.Fill(d.data(), bytes);
          std::vector<uint8_t> want(d.data(), d.data() + bytes);
          const uint32_t code = (progress & 1) << 31;
          zr::fx::FxCall call{a.data(), pitch, b.data(), pitch, d.data(), pitch, code,     1, w,     h, 0,
                              0,        0,     0,        0,     0,        20,    progress, 0, w + 1, 0, h};
          m.effect(ZRFX_CALL_VALUES(call));
          call.dst = want.data();
          zr::test::ModelEffect(m.effect, call);
          const auto diff = std::mismatch(want.begin(), want.end(), d.data()).first - want.begin();
          ASSERT_EQ(diff, static_cast<ptrdiff_t>(bytes))
              << m.name << " width " << w << " height " << h << " progress " << progress
              << ": first difference at x " << (diff % pitch) / 4 << ", y " << diff / pitch;
          ASSERT_TRUE(d.GuardsIntact());
        }
      }
  }
}

}  // namespace
