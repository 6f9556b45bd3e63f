// The library calls that the tool makes, on its own frames. Each checks
// what the library leaves to its caller (a zero progress span, grid steps
// that the overlay cannot use), so that no argument crashes a run.
#ifndef ZRFX_OPERATIONS_H
#define ZRFX_OPERATIONS_H

#include <cstdint>

#include "zrfx/frame.h"
#include "zrfx/mux_settings.h"

namespace zrfx {

// A wipe through ZrDraw_DisplayWipe on 8-bit RGBA (format 1), with the
// progress scale running from 0 to `span`. Throws UsageError for a span of 0.
void RunWipe(Frame& a, Frame& b, Frame& out, uint32_t code, uint32_t span, uint32_t progress);

// The same wipe on 4:2:2 (ZrDraw_DisplayWipeYCbCr) and on v210
// (ZrDraw_DisplayWipeV210): the pictures are converted to that layout,
// wiped, and the result converted back to RGBA for viewing.
Frame RunWipeYCbCr(const Frame& a, const Frame& b, uint32_t code, uint32_t span, uint32_t progress);
Frame RunWipeV210(const Frame& a, const Frame& b, uint32_t code, uint32_t span, uint32_t progress);

// Throws UsageError when the grid overlay would run with a step of zero
// on a picture of this size.
void CheckMuxSettings(const MuxSettings& settings, uint32_t width, uint32_t height);

// ZrDraw_DisplayMuxRGBA on three frames of one size. A flip flag flips the
// source frames in place, as it does for any host.
void RunMux(Frame& a, Frame& b, Frame& out, const MuxSettings& settings);
// The same on frames of `width` by `height` pixels packed at 4 bytes a pixel,
// each with the room after it that Frame keeps.
void RunMux(uint8_t* a, uint8_t* b, uint8_t* out, uint32_t width, uint32_t height,
            const MuxSettings& settings);

}  // namespace zrfx

#endif
