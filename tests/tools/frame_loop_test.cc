// zrfx's frame loop reads ahead and writes behind on threads of its own: the
// frames still pair up in order, a held input repeats its last frame, and a
// failure on any thread ends the loop with that failure and no hang.
#include "zrfx/frame_loop.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "zrfx/errors.h"

namespace zrfx {
namespace {

constexpr size_t kBytes = 64;

// `count` frames, frame i filled with the byte `first + i`; throws a
// RunError instead of frame `failAt`.
class CountingReader : public FrameReader {
 public:
  CountingReader(int count, int first, int failAt = -1) : count_(count), first_(first), failAt_(failAt) {}
  bool Read(uint8_t* frame) override {
    if (next_ == failAt_) throw RunError("read failed");
    if (next_ == count_) return false;
    std::memset(frame, first_ + next_++, kBytes);
    return true;
  }
  const std::string& Name() const override { return name_; }

 private:
  int count_, first_, failAt_, next_ = 0;
  std::string name_ = "input";
};

// Keeps the first three bytes of each frame; throws instead of frame `failAt`.
class Recorder : public FrameWriter {
 public:
  explicit Recorder(int failAt = -1) : failAt_(failAt) {}
  void Write(const uint8_t* frame) override {
    if (static_cast<int>(frames.size()) == failAt_) throw RunError("write failed");
    frames.push_back({frame[0], frame[1], frame[2]});
  }
  void Close() override { closed = true; }
  std::vector<std::vector<int>> frames;
  bool closed = false;

 private:
  int failAt_;
};

// Output frame k: A's byte, B's byte, k.
void Step(uint8_t* a, uint8_t* b, uint8_t* out, uint64_t k) {
  out[0] = a[0];
  out[1] = b[0];
  out[2] = static_cast<uint8_t>(k);
}

std::string Failure(const std::function<void()>& run) {
  try {
    run();
  } catch (const std::exception& e) {
    return e.what();
  }
  return "";
}

TEST(FrameLoop, PairsInOrderAndHoldsAnEndedInput) {
  for (int repeat = 0; repeat < 20; ++repeat) {
    CountingReader a(3, 10), b(5, 20);
    Recorder out;
    RunHeldLoop(a, b, out, {kBytes, 8}, 7, Step);
    const std::vector<std::vector<int>> want = {{10, 20, 0}, {11, 21, 1}, {12, 22, 2}, {12, 23, 3},
                                                {12, 24, 4}, {12, 24, 5}, {12, 24, 6}};
    ASSERT_EQ(out.frames, want);
    EXPECT_TRUE(out.closed);

    CountingReader c(4, 30), d(6, 40);
    Recorder pairs;
    // The mux changes its inputs in place; the next read of the buffer
    // replaces the change.
    EXPECT_EQ(RunPairLoop(c, d, pairs, {kBytes, 8},
                          [](uint8_t* a, uint8_t* b, uint8_t* o, uint64_t k) {
                            Step(a, b, o, k);
                            a[0] = b[0] = 0;
                          }),
              4u);
    ASSERT_EQ(pairs.frames.size(), 4u);
    EXPECT_EQ(pairs.frames[3], (std::vector<int>{33, 43, 3}));
  }
}

TEST(FrameLoop, AFailureOnAnyThreadEndsTheLoopWithIt) {
  for (int repeat = 0; repeat < 20; ++repeat) {
    CountingReader empty(0, 0), full(5, 0);
    Recorder none;
    EXPECT_EQ(Failure([&] { RunPairLoop(full, empty, none, {kBytes, 8}, Step); }), "input holds no frame");
    EXPECT_TRUE(none.frames.empty());
    EXPECT_FALSE(none.closed);

    CountingReader failing(9, 0, 3), other(9, 0);
    Recorder before;
    EXPECT_EQ(Failure([&] { RunHeldLoop(failing, other, before, {kBytes, 8}, 9, Step); }), "read failed");
    EXPECT_EQ(before.frames.size(), 3u);
    EXPECT_FALSE(before.closed);

    CountingReader endless(1 << 20, 0), endless2(1 << 20, 0);
    Recorder broken(2);
    EXPECT_EQ(Failure([&] { RunPairLoop(endless, endless2, broken, {kBytes, 8}, Step); }), "write failed");
    EXPECT_EQ(broken.frames.size(), 2u);

    CountingReader x(9, 0), y(9, 0);
    Recorder stepFails;
    EXPECT_EQ(Failure([&] {
                RunPairLoop(x, y, stepFails, {kBytes, 8}, [](uint8_t*, uint8_t*, uint8_t*, uint64_t k) {
                  if (k == 4) throw UsageError("step failed");
                });
              }),
              "step failed");
  }
}

}  // namespace
}  // namespace zrfx
