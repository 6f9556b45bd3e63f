// The wipe of an adapter call, and whether its workers are through.
#include "fx/adapters/adapter_wipe.h"

#include <chrono>

#include "zrfx.h"

namespace zr::fx {
namespace {

// The driver's bound on its wait. A call that returned sooner saw every
// worker through.
constexpr std::chrono::milliseconds kDriverWaitBound{100};

}  // namespace

bool zrfxWipePlanes(const zrfxScratchPlanes& planes, const zrfxWipeArgs& a) {
  const uint32_t pitch = a.width * 3;
  const auto start = std::chrono::steady_clock::now();
  ZrDraw_DisplayWipe(planes.planeA, pitch, planes.planeB, pitch, planes.planeOut, pitch, a.wipeCode,
                     kZrfxPlaneFormat, a.width, a.height, a.fxReserved[0], a.fxReserved[1], a.fxReserved[2],
                     a.fxReserved[3], a.fxReserved[4], a.progressStart, a.progressEnd, a.progress);
  return std::chrono::steady_clock::now() - start < kDriverWaitBound;
}

}  // namespace zr::fx
