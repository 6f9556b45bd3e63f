// The incoming columns of a row, worked out once per call, against the
// comparisons they stand for, over the whole 32-bit range of columns and
// lengths (where no buffer could reach).
#include <gtest/gtest.h>

#include <vector>

#include "common/test_random.h"
#include "fx/wipe_rows.h"

namespace {

using zr::fx::ColumnSpan;
using zr::fx::WipeColumns;

bool Contains(const WipeColumns& cols, uint32_t x) {
  for (int i = 0; i < cols.Count(); ++i)
    if (x >= cols.Span(i).begin && x < cols.Span(i).end) return true;
  return false;
}

// Columns where a comparison may change its answer, and their neighbours.
std::vector<uint32_t> Probes(std::initializer_list<uint32_t> edges, zr::test::Rng& r) {
  std::vector<uint32_t> xs = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
  for (uint32_t e : edges)
    for (uint32_t d : {0u, 1u, 2u, 0xFFFFFFFFu, 0xFFFFFFFEu}) xs.push_back(e + d);
  for (int i = 0; i < 8; ++i) xs.push_back(r.Next32());
  return xs;
}

uint32_t PickLength(zr::test::Rng& r) {
  switch (r.Below(4)) {
    case 0:
      return r.Below(40);
    case 1:
      return 0xFFFFFFFF - r.Below(40);
    default:
      return r.Next32();
  }
}

TEST(WipeColumns, SpansAndTheirUnionHoldExactlyTheColumnsOfTheirComparisons) {
  zr::test::Rng r(0xC0105);
  for (int i = 0; i < 20000; ++i) {
    const uint32_t w = PickLength(r), n = PickLength(r), m = PickLength(r);
    const WipeColumns below(ColumnSpan::Below(n)), atMost(ColumnSpan::AtMost(n));
    const WipeColumns atLeast(ColumnSpan::AtLeast(n)), above(ColumnSpan::Above(n));
    const WipeColumns between(ColumnSpan::Between(n, m));
    const WipeColumns side(ColumnSpan::AtMost(n), ColumnSpan::AtLeast(w - n));
    const WipeColumns distance = WipeColumns::DistanceAtMost(w, n);
    for (uint32_t x : Probes({w, n, m, w - n, n - w}, r)) {
      ASSERT_EQ(Contains(below, x), x < n) << x << " < " << n;
      ASSERT_EQ(Contains(atMost, x), x <= n) << x << " <= " << n;
      ASSERT_EQ(Contains(atLeast, x), x >= n) << x << " >= " << n;
      ASSERT_EQ(Contains(above, x), x > n) << x << " > " << n;
      ASSERT_EQ(Contains(between, x), x >= n && x <= m) << n << " <= " << x << " <= " << m;
      ASSERT_EQ(Contains(side, x), x <= n || x >= w - n)
          << "side columns, x " << x << " w " << w << " h " << n;
      ASSERT_EQ(Contains(distance, x), w - x <= n) << w << " - " << x << " <= " << n;
    }
    // The row copier needs sorted spans that neither overlap nor touch.
    for (const WipeColumns* cols : {&side, &distance}) {
      for (int s = 0; s < cols->Count(); ++s) {
        ASSERT_LT(cols->Span(s).begin, cols->Span(s).end);
      }
      if (cols->Count() == 2) {
        ASSERT_LT(cols->Span(0).end, cols->Span(1).begin);
      }
    }
  }
}

}  // namespace
