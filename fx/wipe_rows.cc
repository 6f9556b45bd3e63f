#include "fx/wipe_rows.h"

#include <algorithm>
#include <utility>

namespace zr::fx {

WipeColumns::WipeColumns(ColumnSpan span) {
  if (!span.Empty()) mSpans[mCount++] = span;
}

WipeColumns::WipeColumns(ColumnSpan a, ColumnSpan b) {
  if (a.Empty()) std::swap(a, b);
  if (a.Empty()) return;
  mSpans[mCount++] = a;
  if (b.Empty()) return;
  if (b.begin < a.begin) std::swap(a, b);
  if (b.begin <= a.end) {
    mSpans[0] = {a.begin, std::max(a.end, b.end)};
  } else {
    mSpans[0] = a;
    mSpans[mCount++] = b;
  }
}

WipeColumns WipeColumns::DistanceAtMost(uint32_t width, uint32_t length) {
  // Up to width the difference is width - x. Past width it wraps to
  // 2^32 - (x - width), which is small enough only within length - width of
  // the end of the column range.
  if (length <= width) return WipeColumns(ColumnSpan::Between(width - length, width));
  return WipeColumns(ColumnSpan::AtMost(width), ColumnSpan{kColumnEnd - (length - width), kColumnEnd});
}

void CopyWipeRow(const FxPictures& p, uint32_t y, uint32_t bpp, uint32_t left, uint32_t right,
                 const WipeColumns& incoming, platform::RowCopyFn copy) {
  if (left >= right) return;
  uint8_t* const dst = FxRow(p.dst, y, p.dstPitch);
  const uint8_t* const in = FxRow(p.in, y, p.inPitch);
  const uint8_t* const out = FxRow(p.out, y, p.outPitch);
  const auto run = [&](const uint8_t* src, uint32_t pitch, uint64_t from, uint64_t to) {
    if (to > from) copy(dst + from * bpp, src + from * bpp, (to - from) * bpp, pitch);
  };
  uint64_t x = left;
  for (int i = 0; i < incoming.Count(); ++i) {
    const ColumnSpan& span = incoming.Span(i);
    const uint64_t begin = std::clamp<uint64_t>(span.begin, x, right);
    const uint64_t end = std::clamp<uint64_t>(span.end, begin, right);
    run(out, p.outPitch, x, begin);
    run(in, p.inPitch, begin, end);
    x = end;
  }
  run(out, p.outPitch, x, right);
}

}  // namespace zr::fx
