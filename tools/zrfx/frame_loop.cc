#include "zrfx/frame_loop.h"

#include "zrfx/errors.h"
#include "zrfx/progress_line.h"

namespace zrfx {
namespace {

[[noreturn]] void NoFrame(const FrameReader& input) { throw UsageError(input.Name() + " holds no frame"); }

}  // namespace

void RunHeldLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape, uint64_t frames,
                 const FrameStep& step) {
  FrameBuffer frameA(shape.frameBytes, shape.pitch), frameB(shape.frameBytes, shape.pitch),
      result(shape.frameBytes, shape.pitch);
  bool liveA = true, liveB = true;
  ProgressLine progress(frames);
  for (uint64_t k = 0; k < frames; ++k) {
    if (liveA && !a.Read(frameA.data())) {
      if (k == 0) NoFrame(a);
      liveA = false;
    }
    if (liveB && !b.Read(frameB.data())) {
      if (k == 0) NoFrame(b);
      liveB = false;
    }
    step(frameA.data(), frameB.data(), result.data(), k);
    out.Write(result.data());
    progress.Update(k + 1);
  }
  out.Close();
}

uint64_t RunPairLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape,
                     const FrameStep& step) {
  FrameBuffer frameA(shape.frameBytes, shape.pitch), frameB(shape.frameBytes, shape.pitch),
      result(shape.frameBytes, shape.pitch);
  ProgressLine progress(0);
  uint64_t k = 0;
  for (;; ++k) {
    if (!a.Read(frameA.data())) {
      if (k == 0) NoFrame(a);
      break;
    }
    if (!b.Read(frameB.data())) {
      if (k == 0) NoFrame(b);
      break;
    }
    step(frameA.data(), frameB.data(), result.data(), k);
    out.Write(result.data());
    progress.Update(k + 1);
  }
  out.Close();
  return k;
}

}  // namespace zrfx
