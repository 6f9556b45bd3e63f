#include "common/baselines.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <list>

#include "platform/cpu_choice.h"

namespace zr::bench {

std::vector<uint8_t>& Frame(size_t bytes, int index) {
  struct Kept {
    size_t bytes;
    int index;
    std::vector<uint8_t> data;
  };
  // The most recently asked for first; moving a node keeps its buffer where it is.
  static std::list<Kept> frames;
  for (auto it = frames.begin(); it != frames.end(); ++it)
    if (it->bytes == bytes && it->index == index) {
      frames.splice(frames.begin(), frames, it);
      return it->data;
    }
  if (frames.size() == kLiveFrames) frames.pop_back();
  std::vector<uint8_t>& f = frames.emplace_front(Kept{bytes, index, std::vector<uint8_t>(bytes)}).data;
  for (size_t i = 0; i < bytes; ++i) f[i] = static_cast<uint8_t>(i * 7 + index * 31);
  return f;
}

void ReadTwoWriteOne(const uint8_t* a, const uint8_t* b, uint8_t* out, size_t n) {
  for (size_t i = 0; i < n; ++i) out[i] = static_cast<uint8_t>((a[i] + b[i]) >> 1);
}

namespace {

void BM_Memcpy(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  const uint8_t* src = Frame(n, 0).data();
  uint8_t* dst = Frame(n, 1).data();
  TimeFrames(state, n, [&] { std::memcpy(dst, src, n); });
}

void BM_Memset(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  uint8_t* dst = Frame(n, 1).data();
  TimeFrames(state, n, [&] { std::memset(dst, 0x5A, n); });
}

void BM_ReadTwoWriteOne(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  const uint8_t* a = Frame(n, 0).data();
  const uint8_t* b = Frame(n, 2).data();
  uint8_t* out = Frame(n, 1).data();
  TimeFrames(state, n, [&] { ReadTwoWriteOne(a, b, out, n); });
}

// RGBA frames: width, height.
#define ZR_FRAME_ARGS                   \
  Args({kSmall.width, kSmall.height})   \
      ->Args({kHD.width, kHD.height})   \
      ->Args({kUHD.width, kUHD.height}) \
      ->Args({kUHD8K.width, kUHD8K.height})
BENCHMARK(BM_Memcpy)->ZR_FRAME_ARGS;
BENCHMARK(BM_Memset)->ZR_FRAME_ARGS;
BENCHMARK(BM_ReadTwoWriteOne)->ZR_FRAME_ARGS;

}  // namespace
std::vector<int64_t> Isas() {
  std::vector<int64_t> isas;
  for (uint32_t isa : {cpu::kSse41, cpu::kAvx2, cpu::kAvx512, cpu::kNeon})
    if (cpu::Detected() & isa) isas.push_back(isa);
  return isas;
}

IsaScope::IsaScope(int64_t isa) { cpu::SetMask(static_cast<uint32_t>(isa)); }
IsaScope::~IsaScope() { cpu::SetMask(cpu::kAnyIsa); }

}  // namespace zr::bench
