#include "zrfx/operations.h"

#include <zrdraw.h>

#include "zrfx/errors.h"
#include "zrfx/late_workers.h"
#include "zrfx/yuv_convert.h"

namespace zrfx {
namespace {

// Effect format codes share the numbering of the pixel types.
constexpr uint32_t kFormatRgba32 = pixelRGBA32;
constexpr uint32_t kFormatIgnored = 0;  // the adapters do not read it

void CheckSpan(uint32_t span) {
  if (span == 0) throw UsageError("the progress span must be at least 1");
}

using AdapterFn = uint32_t (*)(ZRFX_FRONT_DOOR_ARGS);

// Converts both pictures to the adapter's layout, wipes, and converts the
// result back. The output starts as a copy of A's conversion.
Frame RunAdapter(AdapterFn adapter, PackedVideo (*toLayout)(const Frame&),
                 Frame (*toRgba)(const PackedVideo&), const Frame& frameA, const Frame& frameB, uint32_t code,
                 uint32_t span, uint32_t progress) {
  CheckSpan(span);
  PackedVideo a = toLayout(frameA), b = toLayout(frameB), out = toLayout(frameA);
  uint32_t result = 0;
  RunAndJoinWorkers([&] {
    result = adapter(a.bytes.data(), a.pitch, b.bytes.data(), b.pitch, out.bytes.data(), out.pitch, code,
                     kFormatIgnored, a.width, a.height, 0, 0, 0, 0, 0, 0, span, progress);
  });
  if (result != 0) throw RunError("the wipe adapter could not get memory");
  return toRgba(out);
}

}  // namespace

void RunWipe(Frame& a, Frame& b, Frame& out, uint32_t code, uint32_t span, uint32_t progress) {
  CheckSpan(span);
  RunAndJoinWorkers([&] {
    ZrDraw_DisplayWipe(a.data(), a.pitch(), b.data(), b.pitch(), out.data(), out.pitch(), code, kFormatRgba32,
                       a.width(), a.height(), 0, 0, 0, 0, 0, 0, span, progress);
  });
}

Frame RunWipeYCbCr(const Frame& a, const Frame& b, uint32_t code, uint32_t span, uint32_t progress) {
  return RunAdapter(ZrDraw_DisplayWipeYCbCr, RgbaToPairs422, Pairs422ToRgba, a, b, code, span, progress);
}

Frame RunWipeV210(const Frame& a, const Frame& b, uint32_t code, uint32_t span, uint32_t progress) {
  return RunAdapter(ZrDraw_DisplayWipeV210, RgbaToV210, V210ToRgba, a, b, code, span, progress);
}

void CheckMuxSettings(const MuxSettings& s, uint32_t width, uint32_t height) {
  if ((s.flags & MUXF_GRID) == 0 && s.gridMode == 0) return;
  if (s.gridMode >= 2) {
    if (s.gridStepX == 0 || s.gridStepY == 0) throw UsageError("grid steps must be at least 1 pixel");
    return;
  }
  // Percentage form: the picture is cut into 100 / percent parts.
  if (s.gridStepX == 0 || s.gridStepX > 100) throw UsageError("a grid percentage must be from 1 to 100");
  const uint32_t parts = 100 / s.gridStepX;
  if (parts > width || parts > height)
    throw UsageError("a grid of " + std::to_string(parts) + " parts does not fit a " + std::to_string(width) +
                     "x" + std::to_string(height) + " picture");
}

void RunMux(Frame& a, Frame& b, Frame& out, const MuxSettings& s) {
  RunMux(a.data(), b.data(), out.data(), a.width(), a.height(), s);
}

void RunMux(uint8_t* a, uint8_t* b, uint8_t* out, uint32_t width, uint32_t height, const MuxSettings& s) {
  CheckMuxSettings(s, width, height);
  const uint32_t pitch = 4 * width, bytes = pitch * height;
  RunAndJoinWorkers([&] {
    ZrDraw_DisplayMuxRGBA(reinterpret_cast<uint32_t*>(a), bytes, reinterpret_cast<uint32_t*>(b), bytes,
                          reinterpret_cast<uint32_t*>(out), bytes, s.flags, s.wipeCode, s.position, s.level,
                          s.splitX, s.splitY, s.gridMode, s.gridStepX, s.gridStepY, width, height, pitch);
  });
}

}  // namespace zrfx
