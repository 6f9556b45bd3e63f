// Every form of the pixel mix rows and of weigh_plane's row against the
// scalar rows, chosen through the processor choice, and each form through
// the public entry points against the model.
#include <gtest/gtest.h>

#include "common/form_check.h"
#include "mux/mux_harness.h"
#include "mux/pixel_rows.h"
#include "mux/weigh_rows.h"
#include "zrmux.h"

namespace zr::test {
namespace {

using mux::PixelRowParams;
using mux::PixelRowSet;

constexpr mux::PixelRowFn PixelRowSet::*kKinds[] = {&PixelRowSet::merge,      &PixelRowSet::average,
                                                    &PixelRowSet::difference, &PixelRowSet::matchGate,
                                                    &PixelRowSet::crossfade,  &PixelRowSet::channelView};

PixelRowParams RandomParams(uint64_t seed) {
  Rng rng(~seed);
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

// Every kind of weight split: no carry, a carry of 1 on either or both
// weights, and the general case.
uint32_t RandomWeight(Rng& rng) {
  const uint32_t weights[] = {0, 1, 0x7FFF, 0x8000, 65535, 65536, 65537, 0xFFFFFF, 0x1000000, 0xFFFFFFFF};
  return rng.Below(3) ? weights[rng.Below(10)] : rng.Next32() >> (rng.Below(2) * 16);
}

TEST(MuxForms, PixelRowsMatchScalar) {
  ForEachForm(mux::PixelRowForms(), [](const mux::PixelRowForm& form) {
    const PixelRowSet& rows = mux::ActivePixelRows();
    ASSERT_EQ(&rows, form.rows);
    for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
      std::vector<uint32_t> widths = FormWidths();
      if (kind == 0) widths.push_back((1u << 20) + 37);  // streaming stores, shared by all kinds
      for (uint32_t width : widths)
        for (size_t misalign : {0, 1}) {
          const uint64_t seed = (kind << 32) + width * 2 + misalign;
          const PixelRowParams k = RandomParams(seed);
          const auto run = [&](bool ref, const uint8_t* a, const uint8_t* b, uint8_t* out) {
            ((ref ? mux::kPixelRowsScalar : rows).*kKinds[kind])(a, b, out, width, k);
          };
          ASSERT_TRUE(SameAsReference(seed, width * 4, width * 4, 4, misalign, run, width > 5000 ? 1 : 3));
        }
    }
  });
}

TEST(MuxForms, WeighRowsMatchScalar) {
  ForEachForm(mux::WeighRowForms(), [](const mux::WeighRowForm& form) {
    ASSERT_EQ(mux::ActiveWeighRow(), form.row);
    for (uint32_t width : FormWidths())
      for (size_t misalign : {0, 1}) {
        const uint64_t seed = width * 2 + misalign;
        Rng rng(~seed);
        const uint32_t ws = RandomWeight(rng), wd = RandomWeight(rng);
        const auto run = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
          (ref ? mux::WeighRowScalar : form.row)(dst, src, width, ws, wd);
        };
        ASSERT_TRUE(SameAsReference(seed, width, width, 1, misalign, run)) << ws << ", " << wd;
      }
  });
}

// Where the output starts above a source and runs into it the pixel order
// shows; every form must still give the scalar bytes.
TEST(MuxForms, RowsMatchScalarWhereTheOutputOverlapsASource) {
  constexpr long kPad = 128;
  const auto check = [](auto row, auto scalar, uint32_t width, long shift, uint64_t seed) {
    std::vector<uint8_t> got(width * 4 + 2 * kPad), other(got.size());
    Rng(seed).Fill(got.data(), got.size());
    Rng(~seed).Fill(other.data(), other.size());
    std::vector<uint8_t> want = got;
    scalar(want.data() + kPad, other.data() + kPad, want.data() + kPad + shift);
    row(got.data() + kPad, other.data() + kPad, got.data() + kPad + shift);
    return got == want;
  };
  const long shifts[] = {-64, -9, -4, -1, 0, 1, 2, 4, 12, 36, 64};
  ForEachForm(mux::PixelRowForms(), [&](const mux::PixelRowForm& form) {
    for (size_t kind = 0; kind < std::size(kKinds); ++kind)
      for (uint32_t width : {5u, 16u, 33u, 100u})
        for (long shift : shifts) {
          const uint64_t seed = (kind << 32) + width * 1000 + static_cast<uint64_t>(shift + 100);
          const PixelRowParams k = RandomParams(seed);
          const auto with = [&](const PixelRowSet& set) {
            return [&](const uint8_t* a, const uint8_t* b, uint8_t* out) {
              (set.*kKinds[kind])(a, b, out, width, k);
            };
          };
          ASSERT_TRUE(check(with(*form.rows), with(mux::kPixelRowsScalar), width, shift, seed))
              << "seed " << seed;
        }
  });
  ForEachForm(mux::WeighRowForms(), [&](const mux::WeighRowForm& form) {
    for (uint32_t width : {7u, 16u, 17u, 64u, 129u})
      for (long shift : shifts) {
        const uint64_t seed = width * 1000 + static_cast<uint64_t>(shift + 100);
        const auto with = [&](mux::WeighRowFn row) {
          return [=](const uint8_t* a, const uint8_t*, uint8_t* out) { row(out, a, width, 40000, 0x1FF00); };
        };
        ASSERT_TRUE(check(with(form.row), with(mux::WeighRowScalar), width, shift, seed)) << "seed " << seed;
      }
  });
}

TEST(MuxForms, EntryPointsMatchTheModelWithEachForm) {
  ForEachForm(mux::PixelRowForms(), [](const mux::PixelRowForm&) {
    for (uint32_t mode :
         {MUX_MERGE_ODD_EVEN, MUX_AVERAGE, MUX_DIFFERENCE, MUX_MATCH_GATE, MUX_CROSSFADE, MUX_CHANNEL_VIEW})
      for (uint32_t width : {1u, 19u, 64u}) {
        MuxArgs g;
        g.muxFlags = mode, g.width = width, g.height = 3, g.pitch = width * 4 + 8 * (width % 2);
        g.mixPosition = 0x9A00, g.mixLevel = 40;
        EXPECT_TRUE(MuxMatchesModel(g, mode + width, width % 3)) << "mode " << mode << " width " << width;
      }
  });
  ForEachForm(mux::WeighRowForms(), [](const mux::WeighRowForm&) {
    for (int32_t width : {1, 15, 16, 17, 33, 100, 333})
      for (int32_t pad : {0, 5}) {
        const uint64_t seed = width * 2 + pad;
        Rng rng(seed);
        const auto ws = static_cast<int32_t>(RandomWeight(rng)), wd = static_cast<int32_t>(RandomWeight(rng));
        const int32_t pitch = width + pad, height = 3;
        GuardedBuffer dst(size_t(pitch) * height, 1), src(size_t(pitch) * height);
        rng.Fill(dst.data(), dst.size());
        rng.Fill(src.data(), src.size());
        std::vector<uint8_t> want(dst.data(), dst.data() + dst.size());
        ModelWeighPlane(want.data(), src.data(), pitch, pitch, width, height, ws, wd);
        weigh_plane(dst.data(), src.data(), pitch, pitch, width, height, ws, wd);
        ASSERT_EQ(std::vector<uint8_t>(dst.data(), dst.data() + dst.size()), want) << "seed " << seed;
        ASSERT_TRUE(dst.GuardsIntact());
      }
  });
}

}  // namespace
}  // namespace zr::test
