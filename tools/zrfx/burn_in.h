// The burn-in of `zrfx draw`: a caption, a running timecode and the
// safe-area outlines, drawn with the library's Label and Rectangle through a
// canvas in the frame's own layout.
#ifndef ZRFX_BURN_IN_H
#define ZRFX_BURN_IN_H

#include <zrdraw.h>

#include <cstdint>
#include <optional>
#include <string>

#include "zrfx/args.h"

namespace zrfx {

struct TextPlace {
  int x, y;  // the top left of the first character cell
};

struct BurnIn {
  uint32_t textSize = 2;  // the Label magnification of the caption and the timecode
  std::string caption;
  std::optional<TextPlace> captionAt, timecodeAt;  // none: no caption, no timecode
  uint32_t fps = 25;
  bool safeArea = false;
};

// The outline of the centred safe area that leaves `marginPerMille`
// thousandths of the width and of the height on each side, rounded down.
RECT SafeArea(uint32_t width, uint32_t height, uint32_t marginPerMille);
constexpr uint32_t kActionSafeMargin = 35;  // 93% of the picture
constexpr uint32_t kTitleSafeMargin = 50;   // 90%

// --text, --text-at, --text-size, --timecode, --timecode-at, --fps and
// --safe-area for frames of this size. Throws UsageError for a malformed or
// out-of-range value, text that the font cannot draw, or a place where a
// line of text has no room.
BurnIn ParseBurnIn(const Args& args, uint32_t width, uint32_t height);

// Draws the safe areas, then the caption, then the timecode of frame
// `frame` (0 the first), in the canvas's foreground colour.
void DrawBurnIn(ZrDraw* canvas, const BurnIn& burnIn, uint64_t frame, uint32_t width, uint32_t height);

}  // namespace zrfx

#endif
