// The frame loop of the stream subcommands: read a frame of each input
// straight into a buffer that the library works on, make the output frame
// in place, write it, and again; the reads run ahead and the writes behind
// on threads of their own. Readers and writers hide whether a stream is raw
// or y4m, so the loop is the same for both and for the benchmark. A loop
// ends with the first failure of a read, a step or a write.
#ifndef ZRFX_FRAME_LOOP_H
#define ZRFX_FRAME_LOOP_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zrfx {

class FrameReader {
 public:
  virtual ~FrameReader() = default;
  // Fills `frame` with the next frame; false at the end of the stream.
  virtual bool Read(uint8_t* frame) = 0;
  // The stream's name in messages.
  virtual const std::string& Name() const = 0;
};

class FrameWriter {
 public:
  virtual ~FrameWriter() = default;
  virtual void Write(const uint8_t* frame) = 0;
  virtual void Close() = 0;
};

// A frame in the layout of a stream, with room after it: some mux modes
// touch one row past the frame and the 4:2:2 adapter reads a few bytes past
// a row whose width is no multiple of its group. The spare bytes start as 0.
class FrameBuffer {
 public:
  FrameBuffer(size_t frameBytes, uint32_t pitch) : bytes_(frameBytes + pitch + 64) {}
  uint8_t* data() { return bytes_.data(); }

 private:
  std::vector<uint8_t> bytes_;
};

// Makes output frame k (from 0) from the two input frames, which it may
// change (the mux flips in place).
using FrameStep = std::function<void(uint8_t* a, uint8_t* b, uint8_t* out, uint64_t k)>;

struct LoopShape {
  size_t frameBytes;
  uint32_t pitch;
};

// `frames` output frames. An input that ends early holds its last frame, so
// a single frame serves as a still; `step` must leave its inputs as they
// are, since a held frame is used again. Throws UsageError when an input
// holds no frame.
void RunHeldLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape, uint64_t frames,
                 const FrameStep& step);

// One output frame per pair of input frames, until the shorter input ends.
// Throws UsageError when an input holds no frame. Returns the frame count.
uint64_t RunPairLoop(FrameReader& a, FrameReader& b, FrameWriter& out, LoopShape shape,
                     const FrameStep& step);

}  // namespace zrfx

#endif
