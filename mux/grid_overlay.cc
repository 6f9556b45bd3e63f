#include "mux/grid_overlay.h"

#include <csignal>
#include <cstring>

#include "mux/mux_call.h"
#include "platform/int_divide.h"

namespace zr::mux {
namespace {

constexpr uint32_t kGridWord = 0xBFBFBFBF;

// A zero step is the caller's fault. Where the grid divides by it, or where
// its column walk would never end, it faults as an x86-64 integer division by
// zero does, in both builds. Returns only if a host's signal handler does.
[[gnu::cold]] void FaultOnZeroStep() {
  platform::DivideOrFault(1, 0);  // the processor's own fault on x86-64
#if !defined(__x86_64__)
  std::raise(SIGFPE);  // arm64 divides by zero quietly: fault on purpose
#endif
}

// num / den, truncated; false after a zero den has faulted.
bool StepDivide(uint32_t num, uint32_t den, uint32_t& quotient) {
  if (den == 0) {
    FaultOnZeroStep();
    return false;
  }
  quotient = num / den;
  return true;
}

}  // namespace

void DrawGridOverlay(uint8_t* out, uint32_t gridMode, uint32_t gridStepX, uint32_t gridStepY, uint32_t width,
                     uint32_t height, uint32_t pitch) {
  if (height == 0) return;
  uint32_t rowStep = gridStepY;
  uint32_t colStep = gridStepX;
  if (gridMode < 2) {
    // 100 / percentage parts, each division cutting off its remainder.
    uint32_t parts;
    if (!StepDivide(100, gridStepX, parts) || !StepDivide(height, parts, rowStep) ||
        !StepDivide(width, parts, colStep))
      return;
  }
  if (rowStep == 0) return FaultOnZeroStep();

  for (uint64_t r = 0; r < height; ++r) {
    uint8_t* row = MuxRow(out, static_cast<uint32_t>(r), pitch);
    if (r % rowStep == 0) {
      // The whole pitch, the bytes past 4 times width included.
      std::memset(row, 0xBF, pitch);
    } else if (width != 0) {
      if (colStep == 0) return FaultOnZeroStep();
      for (uint64_t c = 0; c < width; c += colStep) StorePixel(row + c * 4, kGridWord);
    }
  }
}

}  // namespace zr::mux
