// Every mux mode and the grid overlay, and weigh_plane on a frame's bytes,
// at 1920x1080, 3840x2160 and 7680x4320 RGBA and at a cache-resident
// 256x128, on the calling thread. Read each figure beside BM_ReadTwoWriteOne (pixel modes,
// weigh_plane) or BM_Memcpy (modes that move whole rows) of the same size,
// measured in the same run. MUX_WIPE runs on the transition's own threads,
// so only its wall time means anything.
#include <benchmark/benchmark.h>

#include <string>

#include "common/baselines.h"
#include "platform/cpu_choice.h"
#include "zrmux.h"
#if defined(__x86_64__)
#include "zripp.h"
#endif

namespace zr::bench {
namespace {

struct MuxCase {
  const char* name;
  uint32_t muxFlags;
  uint32_t mixPosition;
  uint32_t mixLevel;
};

constexpr MuxCase kCrossfadeCase{"Crossfade", MUX_CROSSFADE, 32768, 0};

constexpr MuxCase kModes[] = {
    {"CopyA", MUX_DEFAULT, 0, 0},
    {"CopyB", MUX_COPY_B, 0, 0},
    {"MergeByte2Byte0", MUX_MERGE_BYTE2_BYTE0, 0, 0},
    {"MergeHighLow", MUX_MERGE_HIGH_LOW, 0, 0},
    {"MergeByte0", MUX_MERGE_BYTE0, 0, 0},
    {"MergeOddEven", MUX_MERGE_ODD_EVEN, 0, 0},
    {"Average", MUX_AVERAGE, 0, 0},
    {"Difference", MUX_DIFFERENCE, 0, 4},
    {"MatchGate", MUX_MATCH_GATE, 0, 8},
    kCrossfadeCase,
    {"Crossfade100", MUX_CROSSFADE, 100 << 8, 0},
    {"ChannelViewMean", MUX_CHANNEL_VIEW, 0, 0},
    {"ChannelViewAlpha", MUX_CHANNEL_VIEW, 0, 0xFF000000},
    {"InterleaveRows", MUX_INTERLEAVE, 0, 0},
    {"InterleaveColumns", MUX_INTERLEAVE | MUXF_ALT_AXIS, 0, 0},
    {"OverUnder", MUX_OVER_UNDER, 0, 0},
    {"SideBySide", MUX_SIDE_BY_SIDE, 0, 0},
    {"SplitColumns", MUX_SPLIT | MUXF_DIVIDER, 0, 0},
    {"SplitRows", MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, 0, 0},
    {"MirrorColumns", MUX_MIRROR, 0, 0},
    {"MirrorRows", MUX_MIRROR | MUXF_ALT_AXIS, 0, 0},
    {"Wipe", MUX_WIPE, 32768, 0},
    {"Checker", MUX_CHECKER, 0, 0},
    {"BlockChecker8", MUX_BLOCK_CHECKER, 8 << 8, 0},
    {"BlockChecker64", MUX_BLOCK_CHECKER, 64 << 8, 0},
    {"TwoUp", MUX_TWO_UP, 0, 0},
    {"CropPairColumns", MUX_CROP_PAIR, 0, 0},
    {"CropPairRows", MUX_CROP_PAIR | MUXF_ALT_AXIS, 0, 0},
};

size_t RgbaBytes(FrameSize s) { return size_t(s.width) * s.height * 4; }

void Mux(benchmark::State& state, MuxCase c, FrameSize s, uint32_t gridMode, int64_t isa) {
  const IsaScope scope(isa);
  const size_t n = RgbaBytes(s);
  auto* a = reinterpret_cast<uint32_t*>(Frame(n, 0).data());
  auto* b = reinterpret_cast<uint32_t*>(Frame(n, 2).data());
  auto* out = reinterpret_cast<uint32_t*>(Frame(n, 1).data());
  const uint32_t w = s.width, h = s.height;
#if defined(__x86_64__)
  // A host that cares for MUX_SIDE_BY_SIDE's speed lets the resize engine
  // pick its variant; until then it runs the lowest.
  if ((c.muxFlags & MUX_MODE_MASK) == MUX_SIDE_BY_SIDE) ippInit();
#endif
  TimeFrames(state, n, [&] {
    ZrDraw_DisplayMuxRGBA(a, static_cast<uint32_t>(n), b, static_cast<uint32_t>(n), out, 0, c.muxFlags, 1,
                          c.mixPosition, c.mixLevel, w / 3, h / 3, gridMode, 10, 0, w, h, w * 4);
  });
}

// The overlay alone: a copy of no bytes, then a grid of tenths.
void Grid(benchmark::State& state, FrameSize s) {
  const size_t n = RgbaBytes(s);
  auto* a = reinterpret_cast<uint32_t*>(Frame(n, 0).data());
  auto* out = reinterpret_cast<uint32_t*>(Frame(n, 1).data());
  TimeFrames(state, n, [&] {
    ZrDraw_DisplayMuxRGBA(a, 0, a, 0, out, 0, MUX_DEFAULT, 0, 0, 0, 0, 0, 1, 10, 0, s.width, s.height,
                          s.width * 4);
  });
}

// weigh_plane over the frame's bytes as one plane, in place.
void WeighPlane(benchmark::State& state, FrameSize s, int64_t isa) {
  const IsaScope scope(isa);
  const size_t n = RgbaBytes(s);
  uint8_t* src = Frame(n, 0).data();
  uint8_t* dst = Frame(n, 1).data();
  const int32_t row = s.width * 4;
  TimeFrames(state, n, [&] { weigh_plane(dst, src, row, row, row, s.height, 40000, 25536); });
}

std::string SizeName(FrameSize s) { return std::to_string(s.width) + "x" + std::to_string(s.height); }

std::string IsaName(int64_t isa) { return cpu::IsaName(static_cast<uint32_t>(isa)); }

// Every mode with the widest forms; the crossfade and weigh_plane with each
// instruction set's form too.
const bool kRegistered = [] {
  for (FrameSize s : {kSmall, kHD, kUHD, kUHD8K}) {
    for (const MuxCase& c : kModes)
      benchmark::RegisterBenchmark(("BM_Mux/" + std::string(c.name) + "/" + SizeName(s)).c_str(), Mux, c, s,
                                   0u, int64_t{cpu::kAnyIsa});
    benchmark::RegisterBenchmark(("BM_MuxGrid/" + SizeName(s)).c_str(), Grid, s);
    benchmark::RegisterBenchmark(("BM_MuxCrossfadeWithGrid/" + SizeName(s)).c_str(), Mux, kCrossfadeCase, s,
                                 1u, int64_t{cpu::kAnyIsa});
    benchmark::RegisterBenchmark(("BM_WeighPlane/" + SizeName(s)).c_str(), WeighPlane, s,
                                 int64_t{cpu::kAnyIsa});
    for (int64_t isa : Isas()) {
      benchmark::RegisterBenchmark(("BM_MuxForm/Crossfade/" + IsaName(isa) + "/" + SizeName(s)).c_str(), Mux,
                                   kCrossfadeCase, s, 0u, isa);
      benchmark::RegisterBenchmark(("BM_WeighPlaneForm/" + IsaName(isa) + "/" + SizeName(s)).c_str(),
                                   WeighPlane, s, isa);
    }
  }
  return true;
}();

}  // namespace
}  // namespace zr::bench
