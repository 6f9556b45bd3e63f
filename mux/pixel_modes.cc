// The pixel mix modes: per-call constants, then one row function over height
// rows stepped by pitch. Bytes past 4 times width in a row are not touched.
#include "mux/mux_modes.h"
#include "mux/pixel_rows.h"
#include "zrmux.h"

namespace zr::mux {
namespace {

void RunRows(const MuxCall& call, PixelRowFn PixelRowSet::*which, const PixelRowParams& k) {
  if (call.width == 0) return;
  const PixelRowFn row = ActivePixelRows().*which;
  // Rows that follow each other without a gap are one long row: every pixel
  // depends only on its own place, and the order stays ascending.
  const uint64_t pixels = uint64_t{call.width} * call.height;
  if (uint64_t{call.width} * 4 == call.pitch && pixels <= UINT32_MAX) {
    row(call.a, call.b, call.out, static_cast<uint32_t>(pixels), k);
    return;
  }
  for (uint64_t r = 0; r < call.height; ++r) {
    const auto y = static_cast<uint32_t>(r);
    row(MuxRow(call.a, y, call.pitch), MuxRow(call.b, y, call.pitch), MuxRow(call.out, y, call.pitch),
        call.width, k);
  }
}

void RunMerge(const MuxCall& call, uint32_t maskA, uint32_t maskB) {
  PixelRowParams k{};
  k.maskA = maskA;
  k.maskB = maskB;
  RunRows(call, &PixelRowSet::merge, k);
}

}  // namespace

// Bytes 1 and 3 come from neither source and are left 0, by design.
void MuxMergeByte2Byte0(const MuxCall& call) { RunMerge(call, 0x00FF0000, 0x000000FF); }
void MuxMergeHighLow(const MuxCall& call) { RunMerge(call, 0xFFFF0000, 0x0000FFFF); }
void MuxMergeByte0(const MuxCall& call) { RunMerge(call, 0xFFFFFF00, 0x000000FF); }
void MuxMergeOddEven(const MuxCall& call) { RunMerge(call, 0xFF00FF00, 0x00FF00FF); }

void MuxAverage(const MuxCall& call) { RunRows(call, &PixelRowSet::average, PixelRowParams{}); }

void MuxDifference(const MuxCall& call) {
  PixelRowParams k{};
  // 0, 1 and everything above 255 mean a gain of 1.
  k.gain = call.mixLevel >= 2 && call.mixLevel <= 255 ? call.mixLevel : 1;
  RunRows(call, &PixelRowSet::difference, k);
}

// The one mode in which MUXF_SWAP does more than exchange the roles: it turns
// the fill white.
void MuxMatchGate(const MuxCall& call) {
  PixelRowParams k{};
  k.tolerance = call.mixLevel;
  k.fill = call.Has(MUXF_SWAP) ? 0xFFFFFFFF : 0;
  RunRows(call, &PixelRowSet::matchGate, k);
}

// The low eight bits of mixPosition have no effect; beyond 65536 the weight of
// B wraps. Hosts rely on both; keep them.
void MuxCrossfade(const MuxCall& call) {
  PixelRowParams k{};
  k.p = call.mixPosition >> 8;
  k.q = 256 - k.p;
  RunRows(call, &PixelRowSet::crossfade, k);
}

// mixLevel is compared whole with the four byte masks; anything else asks for
// the mean of bytes 0 to 2.
void MuxChannelView(const MuxCall& call) {
  static constexpr uint32_t kChannelMasks[] = {0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000};
  PixelRowParams k{};
  k.channel = kChannelMean;
  for (uint32_t i = 0; i < 4; ++i)
    if (call.mixLevel == kChannelMasks[i]) k.channel = i;
  RunRows(call, &PixelRowSet::channelView, k);
}

}  // namespace zr::mux
