// A small, slow, independent model of ZrDraw_DisplayMuxRGBA and weigh_plane,
// written byte by byte from the behaviour hosts see, for the tests to hold
// the library against.
#ifndef ZR_TESTS_MUX_MUX_MODEL_H
#define ZR_TESTS_MUX_MUX_MODEL_H

#include <cstdint>

namespace zr::test {

struct MuxArgs {
  uint32_t sizeA = 0;
  uint32_t sizeB = 0;
  uint32_t muxFlags = 0;
  uint32_t wipeCode = 0;
  uint32_t mixPosition = 0;
  uint32_t mixLevel = 0;
  uint32_t splitX = 0;
  uint32_t splitY = 0;
  uint32_t gridMode = 0;
  uint32_t gridStepX = 0;
  uint32_t gridStepY = 0;
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t pitch = 0;
};

// The library call with these arguments.
int32_t CallMux(uint8_t* frameA, uint8_t* frameB, uint8_t* frameOut, const MuxArgs& args);

// What the call must do to the three buffers. `sideBySideEngine` selects
// the SSE build's MUX_SIDE_BY_SIDE (through the resize engine) or the NEON
// build's loop. MUX_WIPE is modelled by the transition front door itself.
void ModelMux(uint8_t* frameA, uint8_t* frameB, uint8_t* frameOut, const MuxArgs& args,
              bool sideBySideEngine);

// The build this test runs in.
constexpr bool kSideBySideEngine =
#if defined(__x86_64__)
    true;
#else
    false;
#endif

void ModelWeighPlane(uint8_t* dst, const uint8_t* src, int32_t dstPitch, int32_t srcPitch, int32_t width,
                     int32_t height, int32_t weightSrc, int32_t weightDst);

}  // namespace zr::test

#endif
