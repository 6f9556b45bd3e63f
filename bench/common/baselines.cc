#include "common/baselines.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <map>
#include <utility>

#include "platform/cpu_choice.h"

namespace zr::bench {

std::vector<uint8_t>& Frame(size_t bytes, int index) {
  static std::map<std::pair<size_t, int>, std::vector<uint8_t>> frames;
  auto& f = frames[{bytes, index}];
  if (f.size() != bytes) {
    f.resize(bytes);
    for (size_t i = 0; i < bytes; ++i) f[i] = static_cast<uint8_t>(i * 7 + index * 31);
  }
  return f;
}

void ReadTwoWriteOne(const uint8_t* a, const uint8_t* b, uint8_t* out, size_t n) {
  for (size_t i = 0; i < n; ++i) out[i] = static_cast<uint8_t>((a[i] + b[i]) >> 1);
}

namespace {

void BM_Memcpy(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  auto& src = Frame(n, 0);
  auto& dst = Frame(n, 1);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * n);
}

void BM_Memset(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  auto& dst = Frame(n, 1);
  for (auto _ : state) {
    std::memset(dst.data(), 0x5A, n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * n);
}

void BM_ReadTwoWriteOne(benchmark::State& state) {
  const size_t n = static_cast<size_t>(state.range(0)) * state.range(1) * 4;
  auto& a = Frame(n, 0);
  auto& b = Frame(n, 2);
  auto& out = Frame(n, 1);
  for (auto _ : state) {
    ReadTwoWriteOne(a.data(), b.data(), out.data(), n);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * n);
}

// RGBA frames: width, height.
#define ZR_FRAME_ARGS \
  Args({kSmall.width, kSmall.height})->Args({kHD.width, kHD.height})->Args({kUHD.width, kUHD.height})
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
