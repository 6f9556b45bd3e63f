// The corner wipes: a rectangle of `incoming` grows out of one corner.
//
// The bottom members test strictly (y > height - scaledH, and in the bottom
// right x > width - scaledW), so they stay a row, and the bottom right also a
// column, short of the top ones even at the end of the scale; past the end
// the wrapped differences turn the bottom right back to `outgoing`. Hosts
// rely on this; keep it.
#include "fx/fx_call.h"
#include "fx/fx_format.h"
#include "fx/wipe_rows.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

// The shape of all four: lengths first (a zero span faults even on an empty
// band), then the band test, then per row the row test and the columns.
template <class RowTest>
uint32_t CornerWipe(const FxCall& c, WipeColumns (*columnsFor)(const FxCall&, uint32_t scaledW),
                    RowTest rowTest) {
  const uint32_t bpp = FxFormatOf(c.format).bytesPerPixel;
  if (bpp == 0) return 0;
  const uint32_t scaledH = c.Scaled(c.height);
  const uint32_t scaledW = c.Scaled(c.width);
  if (c.BandEmpty()) return 0;
  const WipeColumns incoming = columnsFor(c, scaledW);
  const WipeColumns none;
  RunWipeRows(c, bpp,
              [&](uint32_t y) -> const WipeColumns& { return rowTest(y, scaledH) ? incoming : none; });
  return 0;
}

WipeColumns LeftColumns(const FxCall&, uint32_t scaledW) { return WipeColumns(ColumnSpan::Below(scaledW)); }

WipeColumns TopRightColumns(const FxCall& c, uint32_t scaledW) {
  return WipeColumns::DistanceAtMost(c.width, scaledW);
}

WipeColumns BottomRightColumns(const FxCall& c, uint32_t scaledW) {
  return WipeColumns(ColumnSpan::Above(c.width - scaledW));
}

uint32_t TopLeft(const FxCall& c) {
  return CornerWipe(c, LeftColumns, [](uint32_t y, uint32_t scaledH) { return y < scaledH; });
}

uint32_t TopRight(const FxCall& c) {
  return CornerWipe(c, TopRightColumns, [](uint32_t y, uint32_t scaledH) { return y < scaledH; });
}

uint32_t BottomRight(const FxCall& c) {
  const uint32_t height = c.height;
  return CornerWipe(c, BottomRightColumns,
                    [height](uint32_t y, uint32_t scaledH) { return y > height - scaledH; });
}

uint32_t BottomLeft(const FxCall& c) {
  const uint32_t height = c.height;
  return CornerWipe(c, LeftColumns, [height](uint32_t y, uint32_t scaledH) { return height - y < scaledH; });
}

}  // namespace
}  // namespace zr::fx

uint32_t zrfxSMPTE_TopLeft(ZRFX_EFFECT_ARGS) { return zr::fx::TopLeft(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_TopRight(ZRFX_EFFECT_ARGS) { return zr::fx::TopRight(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_BottomRight(ZRFX_EFFECT_ARGS) { return zr::fx::BottomRight(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_BottomLeft(ZRFX_EFFECT_ARGS) { return zr::fx::BottomLeft(ZRFX_CALL_RECORD); }
