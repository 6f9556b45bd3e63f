#include "zrfx/frame_loop.h"

#include <cstring>
#include <exception>
#include <thread>

#include "zrfx/errors.h"
#include "zrfx/progress_line.h"
#include "zrfx/slot_queue.h"

namespace zrfx {
namespace {

// Two of each buffer: one for the thread that fills it, one for the thread
// that uses it.
constexpr int kSlots = 2;

[[noreturn]] void NoFrame(const FrameReader& input) { throw UsageError(input.Name() + " holds no frame"); }

// One input and its buffers, one a slot. Once a held input has ended, its
// last frame is copied once into each slot, and read there from then on.
struct Input {
  FrameReader& reader;
  std::vector<FrameBuffer> frames;
  bool live = true;
  bool holds[kSlots] = {};
};

// The frame loop on three threads: one reads both inputs ahead into free
// slots, the caller's thread makes each output frame from the next filled
// slot, and one writes the output frames behind. So the reads and writes of
// neighbouring frames overlap the library's work, and the programs upstream
// and downstream keep running instead of waiting on a full pipe.
class FramePipe {
 public:
  // `hold`: an input that ends holds its last frame, until `limit` frames;
  // otherwise the loop ends with the shorter input.
  FramePipe(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape, bool hold, uint64_t limit)
      : a_{a, Buffers(shape)},
        b_{b, Buffers(shape)},
        out_(out),
        results_(Buffers(shape)),
        shape_(shape),
        hold_(hold),
        limit_(limit) {
    for (int s = 0; s < kSlots; ++s) {
      freeIn_.Push(s);
      freeOut_.Push(s);
    }
  }

  // Stops and joins both threads, whichever way Run left.
  ~FramePipe() {
    freeIn_.Close();
    readyOut_.Close();
    if (reader_.joinable()) reader_.join();
    if (writer_.joinable()) writer_.join();
  }

  // Returns the number of output frames; throws what a read or a write threw.
  uint64_t Run(const FrameStep& step, ProgressLine& progress) {
    reader_ = std::thread([this] { ReadAll(); });
    writer_ = std::thread([this] { WriteAll(); });
    uint64_t k = 0;
    for (int in; (in = readyIn_.Pop()) >= 0; ++k) {
      const int o = freeOut_.Pop();
      if (o < 0) break;  // the writer failed
      step(a_.frames[in].data(), b_.frames[in].data(), results_[o].data(), k);
      freeIn_.Push(in);
      readyOut_.Push(o);
      progress.Update(k + 1);
    }
    freeIn_.Close();
    readyOut_.Close();
    reader_.join();
    writer_.join();
    if (readError_) std::rethrow_exception(readError_);
    if (writeError_) std::rethrow_exception(writeError_);
    out_.Close();
    return k;
  }

 private:
  static std::vector<FrameBuffer> Buffers(LoopShape shape) {
    std::vector<FrameBuffer> v;
    for (int s = 0; s < kSlots; ++s) v.emplace_back(shape.frameBytes, shape.pitch);
    return v;
  }

  // Fills `input`'s buffer of slot `s`; false where the loop ends.
  bool Fill(Input& input, int s, int previous, uint64_t k) {
    if (input.live) {
      if (input.reader.Read(input.frames[s].data())) return true;
      if (k == 0) NoFrame(input.reader);
      input.live = false;
      if (!hold_) return false;
      input.holds[previous] = true;
    }
    if (!input.holds[s]) {
      std::memcpy(input.frames[s].data(), input.frames[previous].data(), shape_.frameBytes);
      input.holds[s] = true;
    }
    return true;
  }

  void ReadAll() {
    try {
      int previous = 0;
      for (uint64_t k = 0; !hold_ || k < limit_; ++k) {
        const int s = freeIn_.Pop();
        if (s < 0 || !Fill(a_, s, previous, k) || !Fill(b_, s, previous, k)) break;
        readyIn_.Push(s);
        previous = s;
      }
    } catch (...) {
      readError_ = std::current_exception();
    }
    readyIn_.Close();
  }

  void WriteAll() {
    try {
      for (int o; (o = readyOut_.Pop()) >= 0;) {
        out_.Write(results_[o].data());
        freeOut_.Push(o);
      }
    } catch (...) {
      writeError_ = std::current_exception();
    }
    freeOut_.Close();
  }

  Input a_, b_;
  FrameWriter& out_;
  std::vector<FrameBuffer> results_;
  const LoopShape shape_;
  const bool hold_;
  const uint64_t limit_;
  // Slots free to fill and filled, of the inputs and of the results.
  SlotQueue freeIn_, readyIn_, freeOut_, readyOut_;
  std::exception_ptr readError_, writeError_;
  std::thread reader_, writer_;
};

}  // namespace

void RunHeldLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape, uint64_t frames,
                 const FrameStep& step) {
  ProgressLine progress(frames);
  FramePipe(a, b, out, shape, true, frames).Run(step, progress);
}

uint64_t RunPairLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape,
                     const FrameStep& step) {
  ProgressLine progress(0);
  return FramePipe(a, b, out, shape, false, 0).Run(step, progress);
}

}  // namespace zrfx
