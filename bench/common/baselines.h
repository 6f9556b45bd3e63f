// Baselines that every figure is measured beside, in the same run.
#ifndef ZR_BENCH_BASELINES_H
#define ZR_BENCH_BASELINES_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zr::bench {

// The two sizes every frame benchmark runs at, plus a cache-resident one.
struct FrameSize {
  int width;
  int height;
};
inline constexpr FrameSize kHD{1920, 1080};
inline constexpr FrameSize kUHD{3840, 2160};
inline constexpr FrameSize kSmall{256, 128};

// A page-aligned buffer filled with a fixed pattern (touched, so that no
// first-touch page faults land inside a measurement).
std::vector<uint8_t>& Frame(size_t bytes, int index);

// out[i] = (a[i] + b[i]) / 2 over n bytes: a read-two-write-one stream, the
// floor for any two-source frame operation.
void ReadTwoWriteOne(const uint8_t* a, const uint8_t* b, uint8_t* out, size_t n);

// The instruction sets (cpu::Isa bits) this processor runs: a benchmark
// argument that runs each form of a kernel family through the entry points.
std::vector<int64_t> Isas();

// Limits the kernel choice to one instruction set while it lives.
class IsaScope {
 public:
  explicit IsaScope(int64_t isa);
  ~IsaScope();
  IsaScope(const IsaScope&) = delete;
  IsaScope& operator=(const IsaScope&) = delete;
};

}  // namespace zr::bench

#endif
