// The straight-edge wipes: an edge from the left, an edge from the top, and
// the two barn doors.
#include "fx/fx_call.h"
#include "fx/fx_copy.h"
#include "fx/fx_format.h"
#include "fx/wipe_rows.h"
#include "platform/row_copy.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

uint32_t Horizontal(const FxCall& c) {
  const uint32_t bpp = FxFormatOf(c.format).bytesPerPixel;
  // The row range is tested before the division, so an empty one never faults.
  if (bpp == 0 || c.bandTop >= c.bandBottom) return 0;
  const WipeColumns incoming(ColumnSpan::Below(c.Scaled(c.width)));
  RunWipeRows(c, bpp, [&](uint32_t) -> const WipeColumns& { return incoming; });
  return 0;
}

// Whole rows, whatever the band's columns: the incoming row is copied with
// pitchA bytes and the outgoing one with pitchB, whichever picture each is.
// Hosts rely on this; keep it.
uint32_t Vertical(const FxCall& c) {
  if (FxFormatOf(c.format).group == FxFormatGroup::kNone) return 0;
  if (c.bandLeft != 0 || c.bandTop >= c.bandBottom) return 0;
  const uint32_t scaledH = c.Scaled(c.height);
  // At width 0 or 1 the driver's right bands start at column 0 too, and
  // their workers copy the same rows at the same time.
  const platform::RowCopyFn copy =
      c.width <= 1 ? CopySharedBytes : platform::RowCopyFor(uint64_t{c.height} * c.pitchB);
  const FxPictures p(c);
  for (uint32_t y = c.bandTop; y < c.bandBottom; ++y) {
    if (y < scaledH)
      copy(FxRow(p.dst, y, p.dstPitch), FxRow(p.in, y, p.inPitch), c.pitchA, p.inPitch);
    else
      copy(FxRow(p.dst, y, p.dstPitch), FxRow(p.out, y, p.outPitch), c.pitchB, p.outPitch);
  }
  platform::FinishRowCopies(copy);
  return 0;
}

// The left door includes halfW and the right one starts at width - halfW, so
// the left door is a column wider. Required; keep it.
uint32_t BarnDoorVertical(const FxCall& c) {
  const uint32_t bpp = FxFormatOf(c.format).bytesPerPixel;
  if (bpp == 0) return 0;
  const uint32_t halfW = c.Scaled(c.width >> 1);
  if (c.BandEmpty()) return 0;
  const WipeColumns incoming(ColumnSpan::AtMost(halfW), ColumnSpan::AtLeast(c.width - halfW));
  RunWipeRows(c, bpp, [&](uint32_t) -> const WipeColumns& { return incoming; });
  return 0;
}

// The upper door is a row taller than the lower one, as above.
uint32_t BarnDoorHorizontal(const FxCall& c) {
  const uint32_t bpp = FxFormatOf(c.format).bytesPerPixel;
  if (bpp == 0) return 0;
  const uint32_t halfH = c.Scaled(c.height >> 1);
  if (c.BandEmpty()) return 0;
  const WipeColumns all = WipeColumns::All();
  const WipeColumns none;
  const uint32_t lowerDoor = c.height - halfH;
  RunWipeRows(c, bpp,
              [&](uint32_t y) -> const WipeColumns& { return y <= halfH || y >= lowerDoor ? all : none; });
  return 0;
}

}  // namespace
}  // namespace zr::fx

uint32_t zrfxSMPTE_Horizontal(ZRFX_EFFECT_ARGS) { return zr::fx::Horizontal(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_Vertical(ZRFX_EFFECT_ARGS) { return zr::fx::Vertical(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_BarnDoorVertical(ZRFX_EFFECT_ARGS) { return zr::fx::BarnDoorVertical(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_BarnDoorHorizontal(ZRFX_EFFECT_ARGS) {
  return zr::fx::BarnDoorHorizontal(ZRFX_CALL_RECORD);
}
