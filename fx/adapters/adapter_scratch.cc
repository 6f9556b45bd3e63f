// The scratch block of the adapters: its size, its planes, its zeroed tail.
#include "fx/adapters/adapter_scratch.h"

#include <sys/mman.h>

#include <cstring>

#include "platform/zrutil.h"

namespace zr::fx {
namespace {

constexpr uint64_t kPlaneAlign = 512;
// Covers the rounding of the start and of each plane, and the tail.
constexpr uint32_t kSpareBytes = 3072;

uint64_t RoundUp(uint64_t n) { return (n + kPlaneAlign - 1) / kPlaneAlign * kPlaneAlign; }

// A fresh block costs more in first-touch page faults than the row loops and
// the wipe take together when its pages are small (75 MB at 3840x2160 is
// 18000 of them). Asks for 2 MiB pages over the whole ones the block holds,
// so no other allocation shares the advice. Advice only: where there are no
// large pages, nothing changes.
constexpr uintptr_t kLargePage = uintptr_t{1} << 21;

void PreferLargePages(void* block, size_t bytes) {
  const uintptr_t address = reinterpret_cast<uintptr_t>(block);
  const uintptr_t start = (address + kLargePage - 1) & ~(kLargePage - 1);
  const uintptr_t end = (address + bytes) & ~(kLargePage - 1);
  if (start < end) madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
}

}  // namespace

uint32_t ScratchBytes(uint32_t width, uint32_t height) { return width * height * 9 + kSpareBytes; }

void* AllocScratch(uint32_t width, uint32_t height) {
  // A wrapped size would leave the planes running past the block.
  if (uint64_t{width} * height * 9 + kSpareBytes > UINT32_MAX) return nullptr;
  void* const block = ZrAlloc(ScratchBytes(width, height));
  if (block) PreferLargePages(block, ScratchBytes(width, height));
  return block;
}

ScratchPlanes LayScratch(void* block, uint32_t width, uint32_t height) {
  auto* const base = static_cast<uint8_t*>(block);
  const uint64_t address = reinterpret_cast<uintptr_t>(base);
  uint8_t* const planeA = base + (RoundUp(address) - address);
  const uint32_t planeBytes = width * height * 3;
  const size_t plane = RoundUp(planeBytes);
  const ScratchPlanes planes{planeA, planeA + plane, planeA + 2 * plane};
  std::memset(planes.planeOut + planeBytes, 0, kPlaneTail);
  return planes;
}

}  // namespace zr::fx
