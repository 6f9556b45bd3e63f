// Layout modes that take each frame as one tight run of width pixels a row,
// whatever pitch says: right only where pitch is 4 times width, and nothing
// tries to detect otherwise. Both clear the output to black first.
#include <algorithm>

#include "mux/mux_modes.h"
#include "mux/pixel_runs.h"
#include "platform/row_copy.h"
#include "platform/zrutil.h"
#include "zrmux.h"

namespace zr::mux {
namespace {

// Black over pixels [from, to) of the output run.
void Clear(const MuxCall& c, uint64_t from, uint64_t to) {
  if (to > from) SetMemoryFast(c.out + from * 4, 0, (to - from) * 4);
}

// The output is cleared to black before anything is drawn, width * height * 4
// bytes counted in 32 bits. Where the pictures drawn after it cover a part of
// the output, only the rest needs clearing, and the pictures can be moved in
// whole runs, which saves writing the frame twice. That gives the same result
// unless the output overlaps a source: then (or where the count wraps) the
// whole output is cleared first and the pixels are drawn one by one in order.
bool ClearAllFirst(const MuxCall& c) {
  const uint64_t bytes = uint64_t{c.width} * c.height * 4;
  const auto o = reinterpret_cast<uintptr_t>(c.out);
  const auto overlaps = [&](const uint8_t* src) {
    const auto s = reinterpret_cast<uintptr_t>(src);
    return s < o + bytes && o < s + bytes;
  };
  if (bytes > UINT32_MAX || overlaps(c.a) || overlaps(c.b)) {
    SetMemoryFast(c.out, 0, static_cast<uint32_t>(c.width * c.height * 4));
    return true;
  }
  return false;
}

}  // namespace

// Both pictures decimated 2:1 each way, side by side, a quarter of the
// height down. With an odd width the left picture's last pixel lands on the
// right picture's first and, written later, wins; at width 1 both come from
// column 0 and the right one, written after, wins.
void MuxTwoUp(const MuxCall& c) {
  const bool cleared = ClearAllFirst(c);
  if (c.width == 0 || c.height == 0) return;
  const uint32_t top = c.height / 4;
  const uint32_t half = c.width / 2;
  const uint64_t count = (uint64_t{c.width} + 1) / 2;
  if (!cleared) {
    // Rows top to top + ceil(height / 2) - 1 are drawn whole.
    Clear(c, 0, uint64_t{top} * c.width);
    Clear(c, (uint64_t{top} + (uint64_t{c.height} + 1) / 2) * c.width, uint64_t{c.height} * c.width);
  }
  for (uint64_t r = 0; r < c.height; r += 2) {
    const auto y = static_cast<uint32_t>(r);
    const uint32_t line = (top + y / 2) * c.width;
    const uint32_t from = y * c.width;
    if (cleared) {
      for (uint64_t x = 0; x < c.width; x += 2) {
        const auto x32 = static_cast<uint32_t>(x);
        CopyPixel(MuxPixel(c.out, line + x32 / 2), MuxPixel(c.a, from + x32));
        CopyPixel(MuxPixel(c.out, line + half + x32 / 2), MuxPixel(c.b, from + x32));
      }
      continue;
    }
    DecimatePixels(MuxPixel(c.a, from), MuxPixel(c.out, line), count);
    DecimatePixels(MuxPixel(c.b, from), MuxPixel(c.out, line + half), count);
    if (c.width % 2 && c.width > 1)
      CopyPixel(MuxPixel(c.out, line + half), MuxPixel(c.a, from + c.width - 1));
  }
}

// The same width / 2 columns (or height / 2 rows) of both pictures at full
// scale, starting at the split limited to the half. An odd width leaves each
// row's last column black; across rows, the lower picture starts at
// (height * width) / 2, mid-row when both are odd.
void MuxCropPair(const MuxCall& c) {
  const bool cleared = ClearAllFirst(c);
  const uint64_t all = uint64_t{c.width} * c.height;
  if (!c.Has(MUXF_ALT_AXIS)) {
    if (c.width < 2) {
      if (!cleared) Clear(c, 0, all);
      return;
    }
    const uint32_t half = c.width / 2;
    const uint32_t s = std::min(half, c.splitX);
    const platform::RowBatch batch(all * 4);
    for (uint64_t r = 0; r < c.height; ++r) {
      const uint32_t row = static_cast<uint32_t>(r) * c.width;
      if (cleared) {
        for (uint32_t k = 0; k < half; ++k) {
          CopyPixel(MuxPixel(c.out, row + k), MuxPixel(c.a, row + s + k));
          CopyPixel(MuxPixel(c.out, row + half + k), MuxPixel(c.b, row + s + k));
        }
        continue;
      }
      batch.Copy(MuxPixel(c.out, row), MuxPixel(c.a, row + s), size_t{half} * 4, size_t{c.width} * 4);
      batch.Copy(MuxPixel(c.out, row + half), MuxPixel(c.b, row + s), size_t{half} * 4, size_t{c.width} * 4);
      if (c.width % 2) StorePixel(MuxPixel(c.out, row + c.width - 1), 0);
    }
    return;
  }
  if (c.height < 2) {
    if (!cleared) Clear(c, 0, all);
    return;
  }
  const uint32_t half = c.height / 2;
  // From the product, deliberately not half * width.
  const uint32_t lower = (c.height * c.width) / 2;
  const uint32_t s = std::min(half, c.splitY) * c.width;
  const uint64_t picture = uint64_t{half} * c.width;
  if (cleared) {
    for (uint32_t i = 0; i < picture; ++i) {
      CopyPixel(MuxPixel(c.out, i), MuxPixel(c.a, s + i));
      CopyPixel(MuxPixel(c.out, lower + i), MuxPixel(c.b, s + i));
    }
    return;
  }
  Clear(c, picture, lower);
  Clear(c, lower + picture, all);
  const platform::RowBatch batch(all * 4);
  batch.Copy(MuxPixel(c.out, 0), MuxPixel(c.a, s), picture * 4);
  batch.Copy(MuxPixel(c.out, lower), MuxPixel(c.b, s), picture * 4);
}

}  // namespace zr::mux
