// The slide: srcA moves off the frame in one of four directions and uncovers
// srcB. Unlike the wipes it works on whole packed frames (rows are width
// times the pixel size apart; the pitches are not read), ignores the reverse
// flag, acts only for a band at column 0 and row 0, and clamps its length.
#include <algorithm>
#include <cstdint>
#include <iterator>

#include "fx/fx_call.h"
#include "fx/fx_copy.h"
#include "fx/fx_format.h"
#include "platform/row_copy.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

// One call's frames; every offset and length is unsigned 32-bit and wraps.
struct SlideFrame {
  const FxCall& c;
  uint32_t bpp;
  uint32_t rowBytes;
  platform::RowCopyFn copy;

  uint32_t Rows(uint32_t n) const { return n * rowBytes; }
  // The clamped lengths, the only clamp of the effects.
  uint32_t ShiftH() const { return std::min(c.Scaled(c.height), c.height); }
  uint32_t ShiftW() const { return std::min(c.Scaled(c.width), c.width); }
};

void SlideUp(const SlideFrame& f) {
  const uint32_t n = f.ShiftH();
  const uint32_t h = f.c.height;
  f.copy(f.c.dst + f.Rows(h - n), f.c.srcB + f.Rows(h - n), f.Rows(n), f.rowBytes);
  f.copy(f.c.dst, f.c.srcA + f.Rows(n), f.Rows(h - n), f.rowBytes);
}

void SlideDown(const SlideFrame& f) {
  const uint32_t n = f.ShiftH();
  f.copy(f.c.dst, f.c.srcB, f.Rows(n), f.rowBytes);
  f.copy(f.c.dst + f.Rows(n), f.c.srcA, f.Rows(f.c.height - n), f.rowBytes);
}

// The sideways moves copy srcB whole first and divide only after that, and
// not at all for a frame without rows. Where dst shares no byte with either
// source (and nothing wraps), one pass that takes each row's part from srcA
// and the rest from srcB writes the same bytes once instead of 1.5 times.
bool OnePass(const SlideFrame& f) {
  const FxCall& c = f.c;
  const uint64_t frame = uint64_t{c.width} * f.bpp * c.height;
  if (c.height == 0 || c.progressEnd == c.progressStart || f.copy == CopySharedBytes || frame >> 32)
    return false;
  const auto at = [](const uint8_t* p) { return reinterpret_cast<uintptr_t>(p); };
  const auto apart = [&](const uint8_t* src) {
    return at(c.dst) + frame <= at(src) || at(src) + frame <= at(c.dst);
  };
  return apart(c.srcA) && apart(c.srcB);
}

// Per row, the width - n pixels of srcA moved n to the left or right, and the
// n pixels of srcB that they uncover.
void SlideSidewaysOnce(const SlideFrame& f, bool left) {
  const uint32_t w = f.c.width * f.bpp, n = f.ShiftW() * f.bpp;
  const uint32_t aFrom = left ? n : 0, aTo = left ? 0 : n, bAt = left ? w - n : 0;
  for (uint32_t y = 0; y < f.c.height; ++y) {
    f.copy(f.c.dst + f.Rows(y) + aTo, f.c.srcA + f.Rows(y) + aFrom, w - n, f.rowBytes);
    f.copy(f.c.dst + f.Rows(y) + bAt, f.c.srcB + f.Rows(y) + bAt, n, f.rowBytes);
  }
}

void SlideLeft(const SlideFrame& f) {
  if (OnePass(f)) return SlideSidewaysOnce(f, true);
  f.copy(f.c.dst, f.c.srcB, f.Rows(f.c.height), f.rowBytes);
  if (f.c.height == 0) return;
  const uint32_t n = f.ShiftW();
  for (uint32_t y = 0; y < f.c.height; ++y)
    f.copy(f.c.dst + f.Rows(y), f.c.srcA + f.Rows(y) + n * f.bpp, (f.c.width - n) * f.bpp, f.rowBytes);
}

void SlideRight(const SlideFrame& f) {
  if (OnePass(f)) return SlideSidewaysOnce(f, false);
  f.copy(f.c.dst, f.c.srcB, f.Rows(f.c.height), f.rowBytes);
  if (f.c.height == 0) return;
  const uint32_t n = f.ShiftW();
  for (uint32_t y = 0; y < f.c.height; ++y)
    f.copy(f.c.dst + f.Rows(y) + n * f.bpp, f.c.srcA + f.Rows(y), (f.c.width - n) * f.bpp, f.rowBytes);
}

// Numbers 500 to 507; 504 to 507 are aliases of 502.
constexpr void (*kSlideMoves[])(const SlideFrame&) = {SlideUp,   SlideLeft, SlideDown, SlideRight,
                                                      SlideDown, SlideDown, SlideDown, SlideDown};

uint32_t Slide(const FxCall& c) {
  if (c.bandLeft != 0 || c.bandTop != 0) return 0;
  // A format in no group counts as 4 bytes a pixel here, and the slide runs.
  const uint32_t groupBpp = FxFormatOf(c.format).bytesPerPixel;
  const uint32_t bpp = groupBpp != 0 ? groupBpp : 4;
  // Bit 31 is not cleared: a reversed slide is out of range and does nothing.
  const uint32_t move = c.wipeCode - 500;
  if (move >= std::size(kSlideMoves)) return 0;
  // A frame one pixel wide or high has more than one band at column 0 and
  // row 0, and their workers all run the slide at once.
  const uint32_t rowBytes = c.width * bpp;
  const platform::RowCopyFn copy =
      c.width <= 1 || c.height <= 1 ? CopySharedBytes : platform::RowCopyFor(uint64_t{rowBytes} * c.height);
  kSlideMoves[move](SlideFrame{c, bpp, rowBytes, copy});
  platform::FinishRowCopies(copy);
  return 0;
}

}  // namespace
}  // namespace zr::fx

uint32_t zrfxSLIDE_Basic(ZRFX_EFFECT_ARGS) { return zr::fx::Slide(ZRFX_CALL_RECORD); }
