// Canvases over guarded memory for the canvas, backend and draw tests.
#ifndef ZR_TESTS_CANVAS_TEST_CANVAS_H
#define ZR_TESTS_CANVAS_TEST_CANVAS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "common/guarded_buffer.h"
#include "zrdraw.h"

namespace zr::test {

// The geometry and bookkeeping of a canvas, in one line.
inline std::string State(ZrDraw* c) {
  return "type " + std::to_string(c->mPixelType) + " " + std::to_string(c->mWidth) + "x" +
         std::to_string(c->mHeight) + " pitch " + std::to_string(c->mPitch) + (c->mbBottomUp ? " up" : "") +
         (c->mbUseBuiltInFont ? " font" : "") + " refs " + std::to_string(c->mRefCount);
}

// A canvas built by GetDraw over `bytes` of guarded memory filled with 0x11,
// with `lead` spare bytes before row 0 for writes that land before it.
class TestCanvas {
 public:
  TestCanvas(unsigned int type, int width, int height, int pitch, size_t bytes, size_t lead = 0)
      : memory_(bytes + lead), lead_(lead) {
    std::memset(memory_.data(), 0x11, memory_.size());
    EXPECT_EQ(0, GetDraw(type, width, height, pitch, reinterpret_cast<char*>(rows()), canvas_));
  }
  // The same over a canvas the caller made, which this one then owns.
  TestCanvas(ZrDraw* canvas, int width, int height, int pitch, size_t bytes)
      : memory_(bytes), lead_(0), canvas_(canvas) {
    std::memset(memory_.data(), 0x11, bytes);
    canvas->SetCanvas(reinterpret_cast<char*>(rows()), height, width, pitch);
  }
  ~TestCanvas() {
    EXPECT_TRUE(memory_.GuardsIntact()) << "write outside the canvas memory";
    if (canvas_) canvas_->mRefCount = 1, ReleaseDraw(canvas_);
  }
  ZrDraw* operator->() { return canvas_; }
  ZrDraw* get() { return canvas_; }
  uint8_t* rows() { return memory_.data() + lead_; }
  uint8_t* all() { return memory_.data(); }
  size_t size() const { return memory_.size(); }
  uint32_t Word(size_t offset) {
    uint32_t w;
    std::memcpy(&w, rows() + offset, 4);
    return w;
  }

 private:
  GuardedBuffer memory_;
  size_t lead_;
  ZrDraw* canvas_ = nullptr;
};

}  // namespace zr::test

#endif
