#include "zrfx/burn_in.h"

#include "zrfx/errors.h"
#include "zrfx/frame_label.h"
#include "zrfx/numbers.h"
#include "zrfx/timecode.h"

namespace zrfx {
namespace {

constexpr uint32_t kMaxTextSize = 100;

uint32_t ParseInRange(const Args& args, const char* option, uint32_t fallback, uint32_t low, uint32_t high) {
  const auto text = args.Value(option);
  if (!text) return fallback;
  const uint32_t v = ParseU32(*text, std::string("--") + option);
  if (v < low || v > high)
    throw UsageError(std::string("--") + option + " " + *text + " is outside " + std::to_string(low) + ".." +
                     std::to_string(high));
  return v;
}

// Throws unless a line of text at `size` starting at (x, y) has its first
// character in the frame and its whole height below.
void CheckPlace(const std::string& what, int64_t x, int64_t y, uint32_t size, uint32_t width,
                uint32_t height) {
  if (x >= 0 && y >= 0 && x < width && static_cast<uint64_t>(y) + LabelLineHeight(size) <= height) return;
  throw UsageError(what + " " + std::to_string(x) + "," + std::to_string(y) + " is not in the " +
                   std::to_string(width) + "x" + std::to_string(height) + " frame with the " +
                   std::to_string(LabelLineHeight(size)) + " rows of a line at --text-size " +
                   std::to_string(size) + " below it");
}

// "X,Y" for `option`, or the default place of `what`; checked against the frame.
TextPlace ParsePlace(const Args& args, const char* option, const char* what, TextPlace fallback,
                     uint32_t size, uint32_t width, uint32_t height) {
  if (const auto text = args.Value(option)) {
    const size_t comma = text->find(',');
    if (comma == std::string::npos)
      throw UsageError(std::string("--") + option + " '" + *text + "' is not X,Y");
    const uint32_t x = ParseU32(text->substr(0, comma), std::string("--") + option + " X");
    const uint32_t y = ParseU32(text->substr(comma + 1), std::string("--") + option + " Y");
    CheckPlace(std::string("--") + option, x, y, size, width, height);
    return {static_cast<int>(x), static_cast<int>(y)};
  }
  CheckPlace(std::string("the ") + what + "'s default place", fallback.x, fallback.y, size, width, height);
  return fallback;
}

void RequireWith(const Args& args, const char* option, const char* needed) {
  if (args.Has(option) && !args.Has(needed))
    throw UsageError(std::string("--") + option + " needs --" + needed);
}

}  // namespace

RECT SafeArea(uint32_t width, uint32_t height, uint32_t marginPerMille) {
  const auto x = static_cast<int>(uint64_t{width} * marginPerMille / 1000);
  const auto y = static_cast<int>(uint64_t{height} * marginPerMille / 1000);
  return {x, y, static_cast<int>(width) - 1 - x, static_cast<int>(height) - 1 - y};
}

BurnIn ParseBurnIn(const Args& args, uint32_t width, uint32_t height) {
  RequireWith(args, "text-at", "text");
  RequireWith(args, "timecode-at", "timecode");
  RequireWith(args, "fps", "timecode");
  BurnIn b;
  b.safeArea = args.Has("safe-area");
  b.textSize = ParseInRange(args, "text-size", b.textSize, 1, kMaxTextSize);
  b.fps = ParseInRange(args, "fps", b.fps, 1, kMaxTimecodeFps);
  // By default the caption stands at the top left of the title-safe area,
  // the timecode at its bottom left.
  const RECT title = SafeArea(width, height, kTitleSafeMargin);
  const int lineHeight = static_cast<int>(LabelLineHeight(b.textSize));
  if (const auto text = args.Value("text")) {
    for (const char c : *text)
      if (c < 0x20 || c > 0x7E)
        throw UsageError(
            "--text holds a character that the built-in font has no glyph for: only printable "
            "ASCII is drawn");
    b.caption = *text;
    b.captionAt = ParsePlace(args, "text-at", "text", {title.left, title.top}, b.textSize, width, height);
  }
  if (args.Has("timecode"))
    b.timecodeAt = ParsePlace(args, "timecode-at", "timecode", {title.left, title.bottom + 1 - lineHeight},
                              b.textSize, width, height);
  return b;
}

void DrawBurnIn(ZrDraw* canvas, const BurnIn& b, uint64_t frame, uint32_t width, uint32_t height) {
  if (b.safeArea)
    for (const uint32_t margin : {kActionSafeMargin, kTitleSafeMargin}) {
      const RECT r = SafeArea(width, height, margin);
      canvas->Rectangle(r.left, r.top, r.right, r.bottom);
    }
  if (b.captionAt) LabelInFrame(canvas, b.captionAt->x, b.captionAt->y, b.caption, b.textSize, width, height);
  if (b.timecodeAt)
    LabelInFrame(canvas, b.timecodeAt->x, b.timecodeAt->y, Timecode(frame, b.fps), b.textSize, width, height);
}

}  // namespace zrfx
