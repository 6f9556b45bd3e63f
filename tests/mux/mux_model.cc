#include "mux/mux_model.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "zrfx.h"
#include "zrmux.h"

namespace zr::test {
namespace {

using Px = uint8_t*;  // one four-byte pixel

struct Frames {
  uint8_t* A;
  uint8_t* B;
  uint8_t* out;
  const MuxArgs& g;

  // Pixel x of row r, rows stepped by pitch (the row offset wraps at 2^32).
  Px At(uint8_t* f, uint64_t r, uint64_t x) const {
    return f + static_cast<uint32_t>(static_cast<uint32_t>(r) * g.pitch) + x * 4;
  }
  // Pixel i of a tight run.
  Px Tight(uint8_t* f, uint64_t i) const { return f + static_cast<uint32_t>(i) * uint64_t{4}; }
};

void Put(Px to, const uint8_t* from) { std::memmove(to, from, 4); }
void PutWord(Px to, uint32_t w) {
  for (int i = 0; i < 4; ++i) to[i] = static_cast<uint8_t>(w >> (8 * i));
}

void FlipVertical(uint8_t* f, const MuxArgs& g) {
  if (g.width == 0) return;
  std::vector<uint8_t> row(size_t{g.width} * 4);
  for (uint32_t top = 0, bottom = g.height - 1; g.height && top < bottom; ++top, --bottom) {
    uint8_t* t = f + size_t{top} * g.pitch;
    uint8_t* b = f + size_t{bottom} * g.pitch;
    std::memcpy(row.data(), t, row.size());
    std::memcpy(t, b, row.size());
    std::memcpy(b, row.data(), row.size());
  }
}

void FlipHorizontal(uint8_t* f, const MuxArgs& g) {
  for (uint32_t r = 0; r < g.height; ++r) {
    uint8_t* row = f + size_t{r} * g.pitch;
    for (uint32_t l = 0, x = g.width; l + 1 < x; ++l, --x)
      for (int i = 0; i < 4; ++i) std::swap(row[4 * l + i], row[4 * (x - 1) + i]);
  }
}

// The modes in which each output pixel follows from the source pixels at its
// place, byte by byte.
void PixelMode(const Frames& f, uint32_t mode) {
  const MuxArgs& g = f.g;
  for (uint64_t r = 0; r < g.height; ++r)
    for (uint64_t x = 0; x < g.width; ++x) {
      const uint8_t* a = f.At(f.A, r, x);
      const uint8_t* b = f.At(f.B, r, x);
      uint8_t o[4];
      switch (mode) {
        case MUX_MERGE_BYTE2_BYTE0:
          o[0] = b[0], o[1] = 0, o[2] = a[2], o[3] = 0;
          break;
        case MUX_MERGE_HIGH_LOW:
          o[0] = b[0], o[1] = b[1], o[2] = a[2], o[3] = a[3];
          break;
        case MUX_MERGE_BYTE0:
          o[0] = b[0], o[1] = a[1], o[2] = a[2], o[3] = a[3];
          break;
        case MUX_MERGE_ODD_EVEN:
          o[0] = b[0], o[1] = a[1], o[2] = b[2], o[3] = a[3];
          break;
        case MUX_AVERAGE:
          for (int i = 0; i < 4; ++i) o[i] = static_cast<uint8_t>(a[i] / 2 + b[i] / 2);
          break;
        case MUX_DIFFERENCE: {
          const int64_t gain = g.mixLevel >= 2 && g.mixLevel <= 255 ? g.mixLevel : 1;
          int64_t v = 0;
          for (int i = 0; i < 3; ++i) {
            // A darker than B wraps to a huge difference.
            const int64_t d = a[i] < b[i] ? int64_t{1} << 40 : (a[i] - b[i]) / 2;
            v = std::max(v, std::min<int64_t>(d * gain, 127));
          }
          o[0] = o[1] = o[2] = static_cast<uint8_t>(128 + v);
          o[3] = 0;
          break;
        }
        case MUX_MATCH_GATE: {
          bool match = true;
          for (int i = 0; i < 4; ++i) match = match && uint32_t(std::abs(a[i] - b[i])) <= g.mixLevel;
          const uint8_t fill = (g.muxFlags & MUXF_SWAP) ? 0xFF : 0x00;
          for (int i = 0; i < 4; ++i) o[i] = match ? b[i] : fill;
          break;
        }
        case MUX_CROSSFADE: {
          const uint64_t p = g.mixPosition >> 8;
          const uint64_t q = (256 - p) & 0xFFFFFFFF;
          for (int i = 0; i < 4; ++i) o[i] = static_cast<uint8_t>(((p * a[i] + q * b[i]) & 0xFFFFFFFF) >> 8);
          break;
        }
        case MUX_CHANNEL_VIEW: {
          int v = (a[0] + a[1] + a[2]) / 3;
          if (g.mixLevel == 0xFF) v = a[0];
          if (g.mixLevel == 0xFF00) v = a[1];
          if (g.mixLevel == 0xFF0000) v = a[2];
          if (g.mixLevel == 0xFF000000) v = a[3];
          o[0] = o[1] = o[2] = o[3] = static_cast<uint8_t>(v);
          break;
        }
      }
      std::memcpy(f.At(f.out, r, x), o, 4);
    }
}

void CopyWholeRow(const Frames& f, uint8_t* from, uint64_t fromRow, uint64_t toRow) {
  std::memmove(f.At(f.out, toRow, 0), f.At(from, fromRow, 0), f.g.pitch);
}

void SideBySide(const Frames& f, bool engine) {
  const MuxArgs& g = f.g;
  if (!engine) {
    if (g.width < 2) return;
    for (uint64_t r = 0; r < g.height; ++r)
      for (uint64_t j = 0; j < g.width / 2; ++j) {
        Put(f.At(f.out, r, j), f.At(f.A, r, 2 * j));
        Put(f.At(f.out, r, g.width / 2 + j), f.At(f.B, r, 2 * j));
      }
    return;
  }
  if (g.width == 0 || g.height == 0) return;
  // The engine draws (width + 1) / 2 pixels of even source columns a row,
  // rows 4 * width bytes apart; B's picture starts 2 * width bytes in.
  const uint64_t row = uint64_t{g.width} * 4;
  for (int picture = 0; picture < 2; ++picture)
    for (uint64_t r = 0; r < g.height; ++r)
      for (uint64_t j = 0; j < (g.width + 1) / 2; ++j)
        Put(f.out + picture * (g.width * uint64_t{2}) + r * row + 4 * j,
            (picture ? f.B : f.A) + r * row + 8 * j);
}

void Run(const Frames& f, bool engine) {
  const MuxArgs& g = f.g;
  const bool alt = (g.muxFlags & MUXF_ALT_AXIS) != 0;
  const bool divider = (g.muxFlags & MUXF_DIVIDER) != 0;
  const uint32_t mode = g.muxFlags & 0xFFFFFF;
  const uint64_t W = g.width, H = g.height;
  switch (mode) {
    case MUX_MERGE_BYTE2_BYTE0:
    case MUX_MERGE_HIGH_LOW:
    case MUX_MERGE_BYTE0:
    case MUX_MERGE_ODD_EVEN:
    case MUX_AVERAGE:
    case MUX_DIFFERENCE:
    case MUX_MATCH_GATE:
    case MUX_CROSSFADE:
    case MUX_CHANNEL_VIEW:
      return PixelMode(f, mode);
    case MUX_COPY_B:
      std::memmove(f.out, f.B, g.sizeB);
      return;
    case MUX_WIPE:
      ZrDraw_DisplayWipe(f.A, g.pitch, f.B, g.pitch, f.out, g.pitch, g.wipeCode, 1, g.width, g.height, 1, 1,
                         0, 0, 0, 0, 65536, g.mixPosition);
      return;
    case MUX_INTERLEAVE:
      if (!alt) {
        for (uint64_t r = 0; r < H; r += 2) {
          CopyWholeRow(f, f.A, r, r);
          CopyWholeRow(f, f.B, r + 1, r + 1);
        }
      } else if (W >= 2) {
        for (uint64_t r = 0; r < H; ++r)
          for (uint64_t x = 0; x + 1 < W; x += 2) {
            Put(f.At(f.out, r, x), f.At(f.A, r, x));
            Put(f.At(f.out, r, x + 1), f.At(f.B, r, x + 1));
          }
      }
      return;
    case MUX_OVER_UNDER:
      if (H < 2) return;
      for (uint64_t i = 0; i < H / 2; ++i) {
        CopyWholeRow(f, f.A, 2 * i, i);
        CopyWholeRow(f, f.B, 2 * i, H / 2 + i);
      }
      return;
    case MUX_SIDE_BY_SIDE:
      return SideBySide(f, engine);
    case MUX_SPLIT:
      if (!alt) {
        const uint64_t s = g.splitX <= W ? g.splitX : W / 2;
        for (uint64_t r = 0; r < H; ++r) {
          for (uint64_t x = 0; x < W; ++x) Put(f.At(f.out, r, x), f.At(x < s ? f.A : f.B, r, x));
          if (divider) PutWord(f.At(f.out, r, s), 0x80808080);
        }
      } else {
        const uint64_t t = g.splitY <= H ? g.splitY : H / 2;
        for (uint64_t r = 0; r < H; ++r) {
          if (r == t && divider)
            std::memset(f.At(f.out, r, 0), 0x80, g.pitch);
          else
            CopyWholeRow(f, r < t ? f.A : f.B, r, r);
        }
      }
      return;
    case MUX_MIRROR:
    case MUX_MIRROR2:
      if (!alt) {
        for (uint64_t r = 0; r < H; ++r)
          for (uint64_t x = 0; x < W; ++x)
            Put(f.At(f.out, r, x), x < W / 2 ? f.At(f.A, r, x) : f.At(f.B, r, (W & ~uint64_t{1}) - x));
      } else {
        for (uint64_t r = 0; r < H; ++r)
          CopyWholeRow(f, r < H / 2 ? f.A : f.B, r < H / 2 ? r : 2 * (H / 2) - r, r);
      }
      return;
    case MUX_CHECKER:
      if (W == 0) return;
      for (uint64_t r = 0; r < H; r += 2)
        for (uint64_t x = 0; x < W; x += 2) {
          Put(f.At(f.out, r, x), f.At(f.A, r, x));
          Put(f.At(f.out, r, x + 1), f.At(f.B, r, x + 1));
          Put(f.At(f.out, r + 1, x), f.At(f.B, r + 1, x));
          Put(f.At(f.out, r + 1, x + 1), f.At(f.A, r + 1, x + 1));
        }
      return;
    case MUX_BLOCK_CHECKER: {
      const uint64_t n = g.mixPosition < 256 ? 1 : std::min<uint64_t>(g.mixPosition >> 8, 100);
      for (uint64_t r = 0; r < H; ++r)
        for (uint64_t x = 0; x < W; ++x) {
          const bool fromA = ((r / n) + (x / n)) % 2 == 0;
          Put(f.At(f.out, r, x), f.At(fromA ? f.A : f.B, r, x));
        }
      return;
    }
    case MUX_TWO_UP:
      std::memset(f.out, 0, static_cast<uint32_t>(W * H * 4));
      if (W == 0 || H == 0) return;
      for (uint64_t r = 0; r < H; r += 2)
        for (uint64_t x = 0; x < W; x += 2) {
          const uint64_t y = H / 4 + r / 2;
          Put(f.Tight(f.out, y * W + x / 2), f.Tight(f.A, r * W + x));
          Put(f.Tight(f.out, y * W + W / 2 + x / 2), f.Tight(f.B, r * W + x));
        }
      return;
    case MUX_CROP_PAIR:
      std::memset(f.out, 0, static_cast<uint32_t>(W * H * 4));
      if (!alt) {
        if (W < 2) return;
        const uint64_t s = std::min<uint64_t>(W / 2, g.splitX);
        for (uint64_t r = 0; r < H; ++r)
          for (uint64_t k = 0; k < W / 2; ++k) {
            Put(f.Tight(f.out, r * W + k), f.Tight(f.A, r * W + s + k));
            Put(f.Tight(f.out, r * W + W / 2 + k), f.Tight(f.B, r * W + s + k));
          }
      } else {
        if (H < 2) return;
        const uint64_t s = std::min<uint64_t>(H / 2, g.splitY) * W;
        for (uint64_t r = 0; r < H / 2; ++r)
          for (uint64_t x = 0; x < W; ++x) {
            Put(f.Tight(f.out, r * W + x), f.Tight(f.A, s + r * W + x));
            Put(f.Tight(f.out, (H * W) / 2 + r * W + x), f.Tight(f.B, s + r * W + x));
          }
      }
      return;
    default:
      std::memmove(f.out, f.A, g.sizeA);
      return;
  }
}

void Grid(const Frames& f) {
  const MuxArgs& g = f.g;
  if (!(g.muxFlags & MUXF_GRID) && g.gridMode == 0) return;
  if (g.height == 0) return;
  uint64_t rowStep = g.gridStepY, colStep = g.gridStepX;
  if (g.gridMode < 2) {
    const uint64_t parts = 100 / g.gridStepX;
    rowStep = g.height / parts;
    colStep = g.width / parts;
  }
  for (uint64_t r = 0; r < g.height; ++r) {
    if (r % rowStep == 0) {
      std::memset(f.At(f.out, r, 0), 0xBF, g.pitch);
      continue;
    }
    for (uint64_t x = 0; x < g.width; x += colStep) PutWord(f.At(f.out, r, x), 0xBFBFBFBF);
  }
}

}  // namespace

int32_t CallMux(uint8_t* frameA, uint8_t* frameB, uint8_t* frameOut, const MuxArgs& g) {
  return ZrDraw_DisplayMuxRGBA(
      reinterpret_cast<uint32_t*>(frameA), g.sizeA, reinterpret_cast<uint32_t*>(frameB), g.sizeB,
      reinterpret_cast<uint32_t*>(frameOut), 0xDEADBEEF, g.muxFlags, g.wipeCode, g.mixPosition, g.mixLevel,
      g.splitX, g.splitY, g.gridMode, g.gridStepX, g.gridStepY, g.width, g.height, g.pitch);
}

void ModelMux(uint8_t* frameA, uint8_t* frameB, uint8_t* frameOut, const MuxArgs& g, bool sideBySideEngine) {
  uint8_t* A = (g.muxFlags & MUXF_SWAP) ? frameB : frameA;
  uint8_t* B = (g.muxFlags & MUXF_SWAP) ? frameA : frameB;
  if (g.muxFlags & MUXF_FLIP_V_B) FlipVertical(B, g);
  if (g.muxFlags & MUXF_FLIP_V_A) FlipVertical(A, g);
  if (g.muxFlags & MUXF_FLIP_H_B) FlipHorizontal(B, g);
  if (g.muxFlags & MUXF_FLIP_H_A) FlipHorizontal(A, g);
  const Frames f{A, B, frameOut, g};
  Run(f, sideBySideEngine);
  Grid(f);
}

void ModelWeighPlane(uint8_t* dst, const uint8_t* src, int32_t dstPitch, int32_t srcPitch, int32_t width,
                     int32_t height, int32_t weightSrc, int32_t weightDst) {
  for (int64_t y = 0; y < height; ++y)
    for (int64_t x = 0; x < width; ++x) {
      uint8_t& d = dst[y * dstPitch + x];
      const uint8_t s = src[y * srcPitch + x];
      const int64_t sum = int64_t{d} * weightDst + int64_t{s} * weightSrc + 32768;
      // Two's complement wrap to 32 bits, then bits 16 to 23.
      d = static_cast<uint8_t>((static_cast<uint64_t>(sum) & 0xFFFFFFFF) >> 16);
    }
}

}  // namespace zr::test
