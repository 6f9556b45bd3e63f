// Every form of the pixel mix rows and of weigh_plane's row against the
// scalar rows, chosen through the processor choice, and each form through
// the entry points against the build's baseline form.
#include <gtest/gtest.h>

#include "common/form_check.h"
#include "mux/mux_args.h"
#include "mux/pixel_rows.h"
#include "mux/weigh_rows.h"
#include "zrmux.h"

namespace zr::test {
namespace {

using mux::PixelRowSet;

// Each row kind and a mode of the entry point that runs it.
constexpr std::pair<mux::PixelRowFn PixelRowSet::*, uint32_t> kKinds[] = {
    {&PixelRowSet::merge, MUX_MERGE_ODD_EVEN},  {&PixelRowSet::average, MUX_AVERAGE},
    {&PixelRowSet::difference, MUX_DIFFERENCE}, {&PixelRowSet::matchGate, MUX_MATCH_GATE},
    {&PixelRowSet::crossfade, MUX_CROSSFADE},   {&PixelRowSet::channelView, MUX_CHANNEL_VIEW}};

mux::PixelRowParams RandomParams(uint64_t seed) {
  Rng r(~seed);
  const uint32_t tolerances[] = {0, 1, 7, 128, 254, 255, 256, r.Next32()};
  const uint32_t positions[] = {0, 1, 128, 255, 256, 0x10000, 0x12345, r.Next32() >> 8, r.Next32()};
  const uint32_t maskA = r.Next32(), maskB = r.Next32(), gain = 1 + r.Below(255);
  const uint32_t tolerance = tolerances[r.Below(8)], fill = r.Below(2) ? ~0u : 0u, p = positions[r.Below(9)];
  const uint32_t q = r.Below(4) ? 256 - p : r.Next32();
  return {maskA, maskB, gain, tolerance, fill, p, q, r.Below(5)};
}

// Every kind of weight split: no carry, a carry of 1, and the general case.
uint32_t RandomWeight(Rng& rng) {
  const uint32_t weights[] = {0, 1, 0x7FFF, 0x8000, 65535, 65536, 65537, 0xFFFFFF, 0x1000000, 0xFFFFFFFF};
  return rng.Below(3) ? weights[rng.Below(10)] : rng.Next32() >> (rng.Below(2) * 16);
}

// The entry point with the current choice against the same call limited to
// the baseline form, on three padded rows (the baseline form is held to the
// scalar rows above).
bool SameAsBaseline(uint32_t mode, uint32_t width) {
  MuxArgs g;
  g.flags = mode, g.width = width, g.height = 3, g.pitch = width * 4 + 8 * (width % 2);
  g.sizeA = g.sizeB = g.pitch * 3, g.mixPosition = 0x9A00, g.mixLevel = 40;
  std::vector<uint8_t> a(g.pitch * 4), b(a.size()), got(a.size()), want(a.size());
  Rng rng(mode + width);
  for (auto* v : {&a, &b, &got}) rng.Fill(v->data(), v->size());
  want = got;
  CallMux(a.data(), b.data(), got.data(), g);
  const uint32_t mask = cpu::Usable();
  cpu::SetMask(mux::PixelRowForms().back().isa);
  CallMux(a.data(), b.data(), want.data(), g);
  cpu::SetMask(mask);
  return got == want;
}

// The rows, and the entry point.
TEST(MuxForms, PixelRowsMatchScalar) {
  ForEachForm(mux::PixelRowForms(), [](const mux::PixelRowForm& form) {
    ASSERT_EQ(&mux::ActivePixelRows(), form.rows);
    for (const auto& [row, mode] : kKinds) {
      std::vector<uint32_t> widths = FormWidths();
      if (mode == kKinds[0].second)
        widths.push_back((1u << 20) + 37);  // streaming stores, shared by all kinds
      for (uint32_t width : widths)
        for (size_t misalign : {0, 1}) {
          const uint64_t seed = uint64_t{mode} << 32 | (width * 2 + misalign);
          const mux::PixelRowParams k = RandomParams(seed);
          const auto run = [&](bool ref, const uint8_t* a, const uint8_t* b, uint8_t* out) {
            ((ref ? mux::kPixelRowsScalar : *form.rows).*row)(a, b, out, width, k);
          };
          ASSERT_TRUE(SameAsReference(seed, width * 4, width * 4, 4, misalign, run, width > 5000 ? 1 : 3));
        }
      for (uint32_t width : {1u, 19u, 64u})
        EXPECT_TRUE(SameAsBaseline(mode, width)) << "mode " << mode << " width " << width;
    }
  });
}

// The rows, and weigh_plane against itself a byte at a time.
TEST(MuxForms, WeighRowsMatchScalar) {
  ForEachForm(mux::WeighRowForms(), [](const mux::WeighRowForm& form) {
    ASSERT_EQ(mux::ActiveWeighRow(), form.row);
    for (uint32_t width : FormWidths())
      for (size_t misalign : {0, 1}) {
        const uint64_t seed = width * 2 + misalign;
        Rng rng(seed);
        const uint32_t ws = RandomWeight(rng), wd = RandomWeight(rng);
        const auto row = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
          (ref ? mux::WeighRowScalar : form.row)(dst, src, width, ws, wd);
        };
        const auto plane = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
          const auto w = static_cast<int32_t>(width);
          // The reference is weigh_plane one byte at a time, which the
          // vector rows never take.
          if (!ref)
            return weigh_plane(dst, src, w, w, w, 1, static_cast<int32_t>(ws), static_cast<int32_t>(wd));
          for (int32_t x = 0; x < w; ++x)
            weigh_plane(dst + x, src + x, 1, 1, 1, 1, static_cast<int32_t>(ws), static_cast<int32_t>(wd));
        };
        ASSERT_TRUE(SameAsReference(seed, width, width, 1, misalign, row)) << ws << ", " << wd;
        ASSERT_TRUE(SameAsReference(seed, width, width, 1, misalign, plane)) << ws << ", " << wd;
      }
  });
}

// out = a + shift in one buffer: where out starts above a and runs into it,
// the pixel order shows, and every form must still give the scalar bytes
// (weigh_plane's own test covers its overlaps).
TEST(MuxForms, PixelRowsMatchScalarWhereTheOutputOverlapsASource) {
  for (uint32_t width : {5u, 16u, 33u, 100u})
    for (long shift : {-64, -9, -4, -1, 0, 1, 2, 4, 12, 36, 64}) {
      const uint64_t seed = width * 1000 + static_cast<uint64_t>(shift + 100);
      const auto same = [&](auto row) {
        std::vector<uint8_t> got(700), other(700);
        Rng(seed).Fill(got.data(), got.size());
        Rng(~seed).Fill(other.data(), other.size());
        std::vector<uint8_t> want = got;
        row(true, &want[200], &other[200], &want[200 + shift]);
        row(false, &got[200], &other[200], &got[200 + shift]);
        return got == want;
      };
      const mux::PixelRowParams k = RandomParams(seed);
      ForEachForm(mux::PixelRowForms(), [&](const mux::PixelRowForm& form) {
        for (const auto& kind : kKinds)
          EXPECT_TRUE(same([&](bool ref, const uint8_t* a, const uint8_t* b, uint8_t* out) {
            ((ref ? mux::kPixelRowsScalar : *form.rows).*kind.first)(a, b, out, width, k);
          })) << "seed "
              << seed;
      });
    }
}

}  // namespace
}  // namespace zr::test
