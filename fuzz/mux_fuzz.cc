// The mux front door: flag word, mode, sizes, pitch, split, position and
// grid from the input, over frames allocated to exactly the bytes that the
// chosen mode, the flips and the overlay may touch, so that any access
// beyond them is reported.
#include <zrmux.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "input_reader.h"
#include "tools/zrfx/late_workers.h"

namespace {

constexpr uint32_t kMaxSide = 64;

// The assigned modes; every other value is the default copy of A.
constexpr uint32_t kAssignedModes[] = {
    MUX_COPY_B,         MUX_MERGE_BYTE2_BYTE0, MUX_MERGE_HIGH_LOW, MUX_MERGE_BYTE0,
    MUX_MERGE_ODD_EVEN, MUX_INTERLEAVE,        MUX_AVERAGE,        MUX_DIFFERENCE,
    MUX_OVER_UNDER,     MUX_SIDE_BY_SIDE,      MUX_SPLIT,          MUX_MIRROR,
    MUX_MIRROR2,        MUX_MATCH_GATE,        MUX_CROSSFADE,      MUX_WIPE,
    MUX_CHECKER,        MUX_BLOCK_CHECKER,     MUX_TWO_UP,         MUX_CROP_PAIR,
    MUX_CHANNEL_VIEW,
};
constexpr uint32_t kAssignedCount = sizeof(kAssignedModes) / sizeof(kAssignedModes[0]);

bool IsAssigned(uint32_t mode) {
  return std::find(std::begin(kAssignedModes), std::end(kAssignedModes), mode) != std::end(kAssignedModes);
}

struct Geometry {
  uint32_t width, height, pitch;
  // Bytes of rows 0 to rows - 1 stepped by pitch, each row either its
  // pitch (whole-row copies) or `columns` pixels, whichever is longer.
  uint32_t Rows(uint32_t rows, uint32_t columns) const {
    if (rows == 0) return 0;
    return (rows - 1) * pitch + std::max(pitch, 4 * columns);
  }
  uint32_t Tight() const { return 4 * width * height; }
};

uint32_t RoundUpEven(uint32_t n) { return n + (n & 1); }

// A grid the overlay can draw: zero steps, and percentages that give zero
// parts or a zero step, divide by zero or never end a row.
bool GridIsUsable(uint32_t gridMode, uint32_t stepX, uint32_t stepY, const Geometry& g) {
  if (gridMode >= 2) return stepX != 0 && stepY != 0;
  if (stepX == 0 || stepX > 100) return false;
  const uint32_t parts = 100 / stepX;
  return parts <= g.height && parts <= g.width;
}

struct Extents {
  uint32_t sources;
  uint32_t out;
};

// What the mode reads of A and B and writes of the output; odd sizes in
// some modes reach one row or column past the frame, and the hosts' frames
// carry that spare memory.
Extents ModeExtents(uint32_t mode, uint32_t flags, uint32_t splitX, const Geometry& g) {
  const uint32_t w = g.width, h = g.height;
  const bool altAxis = (flags & MUXF_ALT_AXIS) != 0;
  switch (mode) {
    case MUX_INTERLEAVE: {
      const uint32_t rows = altAxis ? h : RoundUpEven(h);
      return {g.Rows(rows, w), g.Rows(rows, w)};
    }
    case MUX_CHECKER: {
      const uint32_t columns = w == 0 ? 0 : RoundUpEven(w);
      return {g.Rows(RoundUpEven(h), columns), g.Rows(RoundUpEven(h), columns)};
    }
    case MUX_SPLIT: {
      const uint32_t s = splitX <= w ? splitX : w / 2;
      const bool dividerPast = !altAxis && (flags & MUXF_DIVIDER) != 0 && s == w;
      return {g.Rows(h, w), g.Rows(h, dividerPast ? w + 1 : w)};
    }
    case MUX_SIDE_BY_SIDE: {
      // An odd width makes the right half run two bytes into the next row.
      const uint32_t over = (w & 1) != 0 && h != 0 ? 2 : 0;
      return {g.Tight(), g.Tight() + over};
    }
    case MUX_TWO_UP:
    case MUX_CROP_PAIR:
      return {g.Tight(), g.Tight()};
    case MUX_WIPE: {
      // The slide numbers take the frames as packed rows.
      const uint32_t bytes = std::max(g.Rows(h, w), g.Tight());
      return {bytes, bytes};
    }
    default:
      return {g.Rows(h, w), g.Rows(h, w)};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  InputReader in(data, size);
  const uint8_t modeChoice = in.U8();
  const uint32_t rawMode = in.U32() & MUX_MODE_MASK;
  const uint32_t mode = modeChoice % 32 < kAssignedCount ? kAssignedModes[modeChoice % 32] : rawMode;
  const uint32_t flags = static_cast<uint32_t>(in.U8()) << 24;
  Geometry g{};
  g.width = in.Below(kMaxSide);
  g.height = in.Below(kMaxSide);
  const uint8_t pitchChoice = in.U8();
  g.pitch = pitchChoice < 192 ? 4 * g.width + (pitchChoice & 15) : in.Below(4 * g.width + 16);
  const uint32_t wipeCode = in.U32();
  const uint32_t mixPosition = in.U32();
  const uint32_t mixLevel = in.U32();
  const uint32_t splitX = in.Below(kMaxSide + 2);
  const uint32_t splitY = in.Below(kMaxSide + 2);
  const uint32_t gridMode = in.U8() % 4;
  const uint32_t gridStepX = in.Below(120);
  const uint32_t gridStepY = in.Below(kMaxSide);
  const bool grid = (flags & MUXF_GRID) != 0 || gridMode != 0;
  if (grid && g.height != 0 && !GridIsUsable(gridMode, gridStepX, gridStepY, g)) return 0;

  const Extents modeBytes = ModeExtents(mode, flags, splitX, g);
  const uint32_t flipped = g.Rows(g.height, g.width);
  uint32_t sources = std::max(modeBytes.sources, flipped);
  uint32_t out = grid ? std::max(modeBytes.out, g.Rows(g.height, g.width)) : modeBytes.out;
  // The copy modes move sizeA or sizeB bytes: within the frames they copy.
  const uint32_t sizeA = in.Below(sources);
  const uint32_t sizeB = in.Below(sources);
  if (mode == MUX_COPY_B) {
    out = std::max(out, sizeB);
  } else if (!IsAssigned(mode)) {
    out = std::max(out, sizeA);
  }
  sources = std::max(sources, 1u);
  out = std::max(out, 1u);

  std::vector<uint8_t> frameA(sources), frameB(sources), frameOut(out);
  uint8_t* a = frameA.data();
  uint8_t* b = frameB.data();
  for (uint32_t i = 0; i < sources; ++i) {
    a[i] = in.U8();
    b[i] = static_cast<uint8_t>(a[i] * 7 + i);
  }
  zrfx::RunAndJoinWorkers([&] {
    ZrDraw_DisplayMuxRGBA(reinterpret_cast<uint32_t*>(a), sizeA, reinterpret_cast<uint32_t*>(b), sizeB,
                          reinterpret_cast<uint32_t*>(frameOut.data()), out, flags | mode, wipeCode,
                          mixPosition, mixLevel, splitX, splitY, gridMode, gridStepX, gridStepY, g.width,
                          g.height, g.pitch);
  });
  return 0;
}
