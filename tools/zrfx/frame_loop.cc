#include "zrfx/frame_loop.h"

#include <utility>

#include "zrfx/errors.h"
#include "zrfx/progress_line.h"
#include "zrfx/read_ahead.h"

namespace zrfx {
namespace {

[[noreturn]] void NoFrame(const FrameReader& input) { throw UsageError(input.Name() + " holds no frame"); }

}  // namespace

void RunHeldLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape, uint64_t frames,
                 const FrameStep& step) {
  if (frames == 0) return out.Close();
  FrameBuffer frameA[2] = {{shape.frameBytes, shape.pitch}, {shape.frameBytes, shape.pitch}},
              frameB[2] = {{shape.frameBytes, shape.pitch}, {shape.frameBytes, shape.pitch}},
              result(shape.frameBytes, shape.pitch);
  // An input that has ended is read no more: its last frame stays in its
  // buffer, which no later read overwrites.
  uint8_t *heldA = nullptr, *heldB = nullptr;
  bool liveA = true, liveB = true;
  ReadAhead ahead([&](int slot, uint64_t k) {
    if (liveA) {
      if (a.Read(frameA[slot].data()))
        heldA = frameA[slot].data();
      else if (k == 0)
        NoFrame(a);
      else
        liveA = false;
    }
    if (liveB) {
      if (b.Read(frameB[slot].data()))
        heldB = frameB[slot].data();
      else if (k == 0)
        NoFrame(b);
      else
        liveB = false;
    }
    return true;
  });
  ProgressLine progress(frames);
  ahead.Start(0, 0);
  for (uint64_t k = 0; k < frames; ++k) {
    ahead.Take();
    uint8_t* const thisA = heldA;
    uint8_t* const thisB = heldB;
    if (k + 1 < frames) ahead.Start(static_cast<int>((k + 1) % 2), k + 1);
    step(thisA, thisB, result.data(), k);
    out.Write(result.data());
    progress.Update(k + 1);
  }
  out.Close();
}

uint64_t RunPairLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape,
                     const FrameStep& step) {
  FrameBuffer frameA[2] = {{shape.frameBytes, shape.pitch}, {shape.frameBytes, shape.pitch}},
              frameB[2] = {{shape.frameBytes, shape.pitch}, {shape.frameBytes, shape.pitch}},
              result(shape.frameBytes, shape.pitch);
  ReadAhead ahead([&](int slot, uint64_t k) {
    for (auto [input, frame] : {std::pair{&a, &frameA[slot]}, std::pair{&b, &frameB[slot]}}) {
      if (input->Read(frame->data())) continue;
      if (k == 0) NoFrame(*input);
      return false;
    }
    return true;
  });
  ProgressLine progress(0);
  uint64_t k = 0;
  ahead.Start(0, 0);
  for (; ahead.Take(); ++k) {
    const int slot = static_cast<int>(k % 2);
    ahead.Start(1 - slot, k + 1);
    step(frameA[slot].data(), frameB[slot].data(), result.data(), k);
    out.Write(result.data());
    progress.Update(k + 1);
  }
  out.Close();
  return k;
}

}  // namespace zrfx
