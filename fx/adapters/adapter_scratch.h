// The one scratch block of an adapter call: three 4:4:4 planes of 3 bytes a
// pixel (Y, Cb, Cr), rows width * 3 apart, each plane starting 512-aligned.
#ifndef ZR_FX_ADAPTERS_ADAPTER_SCRATCH_H
#define ZR_FX_ADAPTERS_ADAPTER_SCRATCH_H

#include <cstddef>
#include <cstdint>

namespace zr::fx {

// The calling thread runs at this priority for the whole adapter call.
inline constexpr int kAdapterPriority = 15;
// The format of the planes as the wipe sees them: Y, Cb, Cr bytes at 4:4:4.
inline constexpr uint32_t kPlaneFormat = 33;
// The log lines. The v210 adapter shares the first, name and all.
inline constexpr char kNoMemoryText[] = "No Memory ZrDraw_DisplayWipeYCbCr";
inline constexpr char kWipeExceptionText[] = "Exception Error ZrDraw_DisplayWipeYCbCr";

// Bytes zeroed after the last row of plane out: the packing of a last,
// partial group reads up to a v210 group (6 pixels) past a row's end.
inline constexpr size_t kPlaneTail = 18;

struct ScratchPlanes {
  uint8_t* planeA;
  uint8_t* planeB;
  uint8_t* planeOut;
};

// The size asked of ZrAlloc: width * height * 9 + 3072, in 32 bits.
uint32_t ScratchBytes(uint32_t width, uint32_t height);

// The block from ZrAlloc, which may return null or throw. Null without asking
// when the 32-bit size has wrapped and could not hold the planes.
void* AllocScratch(uint32_t width, uint32_t height);

// Lays the planes out in a block from AllocScratch: plane A at the first
// 512-byte boundary, B and out each width * height * 3 rounded up to 512
// further on. Zeroes the tail after plane out.
ScratchPlanes LayScratch(void* block, uint32_t width, uint32_t height);

}  // namespace zr::fx

#endif
