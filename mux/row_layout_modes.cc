// Layout modes that step rows by pitch and mostly move whole rows: interleave,
// over-under, split and mirror. A whole row is pitch bytes, the spare bytes
// at its end included. The copies of a call go out as one row batch, so a
// frame larger than the cache is written with streaming stores.
#include "mux/mux_modes.h"
#include "mux/pixel_runs.h"
#include "platform/row_copy.h"
#include "platform/zrutil.h"
#include "zrmux.h"

namespace zr::mux {
namespace {

constexpr uint32_t kDividerWord = 0x80808080;

using platform::RowBatch;

// The output frame's bytes: what a batch of the call's copies writes.
uint64_t FrameBytes(const MuxCall& c) { return uint64_t{c.pitch} * c.height; }

// `next` is how far on the row that this source gives next starts, so the
// copy can fetch it ahead: the modes read every other row, or rows upwards.
void CopyRow(const RowBatch& batch, const MuxCall& c, uint8_t* from, uint32_t fromRow, uint32_t toRow,
             size_t next) {
  batch.Copy(MuxRow(c.out, toRow, c.pitch), MuxRow(from, fromRow, c.pitch), c.pitch, next);
}

}  // namespace

// Rows: even rows of A, odd rows of B. An odd height reads and writes row
// height, one past the frame; hosts give such frames a spare row. Columns:
// even columns of A, odd columns of B; an odd width leaves the last column.
void MuxInterleave(const MuxCall& c) {
  if (!c.Has(MUXF_ALT_AXIS)) {
    const RowBatch batch(FrameBytes(c));
    for (uint64_t r = 0; r < c.height; r += 2) {
      const auto y = static_cast<uint32_t>(r);
      CopyRow(batch, c, c.a, y, y, 2 * size_t{c.pitch});
      CopyRow(batch, c, c.b, y + 1, y + 1, 2 * size_t{c.pitch});
    }
    return;
  }
  if (c.width < 2) return;
  for (uint64_t r = 0; r < c.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    AlternatePixels(MuxRow(c.a, y, c.pitch), MuxRow(c.b, y, c.pitch), MuxRow(c.out, y, c.pitch), c.width / 2);
  }
}

// Even rows of A in the top half, even rows of B below; an odd height leaves
// the last output row as it was.
void MuxOverUnder(const MuxCall& c) {
  if (c.height < 2) return;
  const uint32_t half = c.height / 2;
  const RowBatch batch(FrameBytes(c));
  for (uint32_t i = 0; i < half; ++i) {
    CopyRow(batch, c, c.a, 2 * i, i, 2 * size_t{c.pitch});
    CopyRow(batch, c, c.b, 2 * i, half + i, 2 * size_t{c.pitch});
  }
}

// A up to the split and B from it on. A split beyond the frame snaps to the
// centre, not to the edge. The divider replaces the pixel at column s, which
// for s equal to width is one past the row's end; across rows, it replaces
// row t, and is never drawn when t equals height.
void MuxSplit(const MuxCall& c) {
  const bool divider = c.Has(MUXF_DIVIDER);
  const RowBatch batch(FrameBytes(c));
  if (!c.Has(MUXF_ALT_AXIS)) {
    const uint32_t s = c.splitX <= c.width ? c.splitX : c.width / 2;
    for (uint64_t r = 0; r < c.height; ++r) {
      const auto y = static_cast<uint32_t>(r);
      uint8_t* out = MuxRow(c.out, y, c.pitch);
      batch.Copy(out, MuxRow(c.a, y, c.pitch), size_t{s} * 4, c.pitch);
      batch.Copy(out + size_t{s} * 4, MuxRow(c.b, y, c.pitch) + size_t{s} * 4, size_t{c.width - s} * 4,
                 c.pitch);
      if (divider) StorePixel(out + size_t{s} * 4, kDividerWord);
    }
    return;
  }
  const uint32_t t = c.splitY <= c.height ? c.splitY : c.height / 2;
  for (uint64_t r = 0; r < c.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    if (y < t)
      CopyRow(batch, c, c.a, y, y, c.pitch);
    else if (y == t && divider)
      SetMemoryFast(MuxRow(c.out, y, c.pitch), kDividerWord, c.pitch);
    else
      CopyRow(batch, c, c.b, y, y, c.pitch);
  }
}

// Half of A, then B reflected about the centre, running into B's first half:
// output column x >= width / 2 shows B's column (width & ~1) - x, so with an
// even width B's column 0 is never shown. Across rows, row r >= height / 2
// shows B's row 2 * (height / 2) - r.
void MuxMirror(const MuxCall& c) {
  const RowBatch batch(FrameBytes(c));
  if (!c.Has(MUXF_ALT_AXIS)) {
    const uint32_t half = c.width / 2;
    const uint32_t even = c.width & ~1u;
    for (uint64_t r = 0; r < c.height; ++r) {
      const auto y = static_cast<uint32_t>(r);
      uint8_t* out = MuxRow(c.out, y, c.pitch);
      batch.Copy(out, MuxRow(c.a, y, c.pitch), size_t{half} * 4, c.pitch);
      ReversePixels(MuxRow(c.b, y, c.pitch) + size_t{even - half} * 4, out + size_t{half} * 4,
                    c.width - half);
    }
    return;
  }
  const uint32_t half = c.height / 2;
  for (uint64_t r = 0; r < c.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    if (y < half)
      CopyRow(batch, c, c.a, y, y, c.pitch);
    else
      CopyRow(batch, c, c.b, 2 * half - y, y, size_t{0} - c.pitch);  // upwards: wraps
  }
}

}  // namespace zr::mux
