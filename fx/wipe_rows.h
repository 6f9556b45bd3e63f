// The row loop of the hard-edged wipes. A wipe decides per pixel between the
// incoming and the outgoing picture, but its comparisons are monotone in x,
// so each row is a few runs: the columns that take `incoming` are worked out
// once per call as at most two intervals, and every run is one copy of whole
// pixels. The bytes equal those of a pixel-by-pixel copy.
#ifndef ZR_FX_WIPE_ROWS_H
#define ZR_FX_WIPE_ROWS_H

#include <cstdint>

#include "fx/fx_call.h"
#include "fx/fx_copy.h"
#include "platform/row_copy.h"

namespace zr::fx {

// One past the last column that a 32-bit band can name.
inline constexpr uint64_t kColumnEnd = uint64_t{1} << 32;

// The columns x with begin <= x < end. 64-bit bounds, so that "x <= n" holds
// column 0xFFFFFFFF too.
struct ColumnSpan {
  uint64_t begin;
  uint64_t end;

  static constexpr ColumnSpan Below(uint32_t n) { return {0, n}; }
  static constexpr ColumnSpan AtMost(uint32_t n) { return {0, uint64_t{n} + 1}; }
  static constexpr ColumnSpan AtLeast(uint32_t n) { return {n, kColumnEnd}; }
  static constexpr ColumnSpan Above(uint32_t n) { return {uint64_t{n} + 1, kColumnEnd}; }
  // lo <= x <= hi; none when lo > hi.
  static constexpr ColumnSpan Between(uint32_t lo, uint32_t hi) {
    return {lo, lo <= hi ? uint64_t{hi} + 1 : lo};
  }

  constexpr bool Empty() const { return begin >= end; }
};

// The columns of a row that take `incoming`: up to two spans, sorted,
// disjoint and not touching.
class WipeColumns {
 public:
  WipeColumns() = default;  // none
  explicit WipeColumns(ColumnSpan span);
  WipeColumns(ColumnSpan a, ColumnSpan b);  // either

  static WipeColumns All() { return WipeColumns(ColumnSpan{0, kColumnEnd}); }
  // width - x <= length, the difference unsigned 32-bit: a span ending at
  // width, plus the columns beyond width where the difference has wrapped.
  static WipeColumns DistanceAtMost(uint32_t width, uint32_t length);

  int Count() const { return mCount; }
  const ColumnSpan& Span(int i) const { return mSpans[i]; }

 private:
  ColumnSpan mSpans[2] = {};
  int mCount = 0;
};

// Row y of dst over columns [left, right): `incoming` in its columns,
// `outgoing` elsewhere, bpp bytes a pixel, each run one call of `copy`.
void CopyWipeRow(const FxPictures& p, uint32_t y, uint32_t bpp, uint32_t left, uint32_t right,
                 const WipeColumns& incoming, platform::RowCopyFn copy);

// Every row of the band; columnsOf(y) gives the row's incoming columns.
template <class ColumnsOf>
void RunWipeRows(const FxCall& c, uint32_t bpp, ColumnsOf columnsOf) {
  const FxPictures p(c);
  const platform::RowCopyFn copy = platform::RowCopyFor(uint64_t{c.width} * c.height * bpp);
  for (uint32_t y = c.bandTop; y < c.bandBottom; ++y)
    CopyWipeRow(p, y, bpp, c.bandLeft, c.bandRight, columnsOf(y), copy);
  platform::FinishRowCopies(copy);
}

}  // namespace zr::fx

#endif
