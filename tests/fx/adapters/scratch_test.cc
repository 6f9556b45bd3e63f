// The adapters' scratch block and the smallest v210 row.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "fx/adapters/adapter_scratch.h"
#include "fx/adapters/v210_pitch.h"
#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace zr::fx {
namespace {

TEST(AdapterScratch, PlanesLie512AlignedInNineBytesAPixelAndSpare) {
  EXPECT_EQ(ScratchBytes(10, 4), 3432u);
  EXPECT_EQ(ScratchBytes(0, 4), 3072u);
  std::vector<uint8_t> block(3432 + 512, 0xEE);
  for (size_t shift : {0, 1, 16, 511}) {
    const ScratchPlanes p = LayScratch(block.data() + shift, 10, 4);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p.planeA) % 512, 0u);
    EXPECT_LT(p.planeA - (block.data() + shift), 512);
    EXPECT_EQ(p.planeB - p.planeA, 512);
    EXPECT_EQ(p.planeOut - p.planeB, 512);
    // The bytes after plane out that a last partial group packs are zero.
    EXPECT_EQ(p.planeOut[119], 0xEE);
    for (size_t i = 0; i < kPlaneTail; ++i) EXPECT_EQ(p.planeOut[120 + i], 0);
  }
  // 1920 x 1080 x 3 is a multiple of 512: no gap between the planes.
  std::vector<uint8_t> big(ScratchBytes(1920, 1080));
  const ScratchPlanes p = LayScratch(big.data(), 1920, 1080);
  EXPECT_EQ(p.planeB - p.planeA, 1920 * 1080 * 3);
  EXPECT_LE(p.planeOut + 1920 * 1080 * 3 + kPlaneTail, big.data() + big.size());
}

int gAllocCalls = 0;

TEST(AdapterScratch, AWrappedSizeIsNotAskedFor) {
  zr::testhooks::SetAllocHook([](size_t) -> void* {
    ++gAllocCalls;
    return nullptr;
  });
  EXPECT_EQ(AllocScratch(100000, 5000), nullptr);
  EXPECT_EQ(AllocScratch(65536, 65536), nullptr);
  EXPECT_EQ(gAllocCalls, 0);
  EXPECT_EQ(AllocScratch(10, 4), nullptr);
  EXPECT_EQ(gAllocCalls, 1);
  zr::testhooks::SetAllocHook(nullptr);
}

TEST(AdapterScratch, V210PitchesRiseToTheSmallestRow) {
  const uint32_t cases[][3] = {// width, pitch, in force
                               {14, 100, 128}, {14, 500, 500}, {14, 140, 140},  {47, 0, 128}, {48, 100, 128},
                               {50, 0, 256},   {96, 0, 256},   {1920, 0, 5120}, {0, 0, 0}};
  for (const auto& c : cases) EXPECT_EQ(V210Pitch(c[1], c[0]), c[2]) << c[0] << " " << c[1];
}

}  // namespace
}  // namespace zr::fx
