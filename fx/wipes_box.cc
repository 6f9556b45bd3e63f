// The centre and box wipes: shapes set against the picture's centre lines.
//
// A middle row excludes both halfH and height - halfH, while the side
// columns include both halfW and width - halfW; the box of the rectangle
// includes its column bounds and excludes its row bounds. That is why row 0
// and column 0 go over early in several members. Required; keep it.
#include "fx/fx_call.h"
#include "fx/fx_format.h"
#include "fx/wipe_rows.h"
#include "zrfx.h"

namespace zr::fx {
namespace {

// The four scaled lengths, computed once per call; all wrap unsigned.
struct BoxLengths {
  uint32_t width;
  uint32_t height;
  uint32_t scaledW;
  uint32_t scaledH;
  uint32_t halfW;
  uint32_t halfH;

  explicit BoxLengths(const FxCall& c)
      : width(c.width),
        height(c.height),
        scaledW(c.Scaled(c.width)),
        scaledH(c.Scaled(c.height)),
        halfW(c.Scaled(c.width >> 1)),
        halfH(c.Scaled(c.height >> 1)) {}

  bool MiddleRow(uint32_t y) const { return y > halfH && y < height - halfH; }
  WipeColumns SideColumns() const {
    return WipeColumns(ColumnSpan::AtMost(halfW), ColumnSpan::AtLeast(width - halfW));
  }
};

enum class OtherRows : bool { kOutgoing, kIncoming };

// Lengths, then the band test, then per row: a tested row takes `incoming`
// in `columns`, every other row is one picture whole.
template <class TestedRow>
uint32_t BoxWipe(const FxCall& c, WipeColumns (*columnsOf)(const BoxLengths&), OtherRows others,
                 TestedRow tested) {
  const uint32_t bpp = FxFormatOf(c.format).bytesPerPixel;
  if (bpp == 0) return 0;
  const BoxLengths len(c);
  if (c.BandEmpty()) return 0;
  const WipeColumns columns = columnsOf(len);
  const WipeColumns other = others == OtherRows::kIncoming ? WipeColumns::All() : WipeColumns();
  RunWipeRows(c, bpp, [&](uint32_t y) -> const WipeColumns& { return tested(y, len) ? columns : other; });
  return 0;
}

WipeColumns SideColumns(const BoxLengths& len) { return len.SideColumns(); }
WipeColumns UpToScaledW(const BoxLengths& len) { return WipeColumns(ColumnSpan::AtMost(len.scaledW)); }
WipeColumns FromScaledW(const BoxLengths& len) {
  return WipeColumns(ColumnSpan::AtLeast(len.width - len.scaledW));
}

// The rectangle's box: columns a to b inclusive, rows strictly between c and
// e; a = width/2 - halfW, b = width - a, c = height/2 - halfH, e = height - c.
WipeColumns RectangleColumns(const BoxLengths& len) {
  const uint32_t a = (len.width >> 1) - len.halfW;
  return WipeColumns(ColumnSpan::Between(a, len.width - a));
}

bool RectangleRow(uint32_t y, const BoxLengths& len) {
  const uint32_t top = (len.height >> 1) - len.halfH;
  return y > top && y < len.height - top;
}

uint32_t FourCorners(const FxCall& c) {
  return BoxWipe(c, SideColumns, OtherRows::kOutgoing,
                 [](uint32_t y, const BoxLengths& len) { return !len.MiddleRow(y); });
}

uint32_t FourSquare(const FxCall& c) {
  return BoxWipe(c, SideColumns, OtherRows::kIncoming,
                 [](uint32_t y, const BoxLengths& len) { return len.MiddleRow(y); });
}

uint32_t TopCenter(const FxCall& c) {
  return BoxWipe(c, SideColumns, OtherRows::kIncoming,
                 [](uint32_t y, const BoxLengths& len) { return y < len.height - len.scaledH; });
}

uint32_t BottomCenter(const FxCall& c) {
  return BoxWipe(c, SideColumns, OtherRows::kIncoming,
                 [](uint32_t y, const BoxLengths& len) { return y > len.scaledH; });
}

uint32_t RightCenter(const FxCall& c) {
  return BoxWipe(c, UpToScaledW, OtherRows::kIncoming,
                 [](uint32_t y, const BoxLengths& len) { return len.MiddleRow(y); });
}

uint32_t LeftCenter(const FxCall& c) {
  return BoxWipe(c, FromScaledW, OtherRows::kIncoming,
                 [](uint32_t y, const BoxLengths& len) { return len.MiddleRow(y); });
}

uint32_t Rectangle(const FxCall& c) {
  return BoxWipe(c, RectangleColumns, OtherRows::kOutgoing, RectangleRow);
}

}  // namespace
}  // namespace zr::fx

uint32_t zrfxSMPTE_FourCorners(ZRFX_EFFECT_ARGS) { return zr::fx::FourCorners(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_FourSquare(ZRFX_EFFECT_ARGS) { return zr::fx::FourSquare(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_TopCenter(ZRFX_EFFECT_ARGS) { return zr::fx::TopCenter(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_BottomCenter(ZRFX_EFFECT_ARGS) { return zr::fx::BottomCenter(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_RightCenter(ZRFX_EFFECT_ARGS) { return zr::fx::RightCenter(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_LeftCenter(ZRFX_EFFECT_ARGS) { return zr::fx::LeftCenter(ZRFX_CALL_RECORD); }
uint32_t zrfxSMPTE_Rectangle(ZRFX_EFFECT_ARGS) { return zr::fx::Rectangle(ZRFX_CALL_RECORD); }
