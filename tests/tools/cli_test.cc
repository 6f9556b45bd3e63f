// The zrfx binary as a user runs it: argument errors, PNG round trips and
// raw streams through files and pipes.
#include <gtest/gtest.h>
#include <zrdraw.h>

#include <cstring>

#include "run_zrfx.h"
#include "zrfx/operations.h"
#include "zrfx/png_io.h"

namespace zrfx {
namespace {

using test::RandomFrame;
using test::RunResult;
using test::RunZrfx;
using test::ScratchDir;

constexpr uint32_t kWidth = 24, kHeight = 10;

// Two pictures A and B of one size, and C of another.
class ZrfxCli : public ::testing::Test {
 protected:
  void SetUp() override {
    WritePng(dir_ / "a.png", a_, true);
    WritePng(dir_ / "b.png", b_, true);
    WritePng(dir_ / "c.png", RandomFrame(kWidth + 1, kHeight, 3), true);
  }

  // Runs zrfx and expects an argument error: status 2, one line on
  // standard error and nothing on standard output.
  void ExpectUsageError(const std::vector<std::string>& args, const std::string& fragment) {
    const RunResult r = RunZrfx(args);
    std::string line;
    for (const std::string& a : args) line += " " + a;
    EXPECT_EQ(r.exitStatus, 2) << "zrfx" << line << "\n" << r.err;
    EXPECT_EQ(r.ErrLines(), 1u) << "zrfx" << line << "\n" << r.err;
    EXPECT_NE(r.err.find(fragment), std::string::npos) << "zrfx" << line << "\n" << r.err;
    EXPECT_TRUE(r.out.empty()) << "zrfx" << line;
  }

  Frame ReadOutput(const std::string& name) { return ReadPng(dir_ / name).frame; }

  ScratchDir dir_;
  Frame a_ = RandomFrame(kWidth, kHeight, 1);
  Frame b_ = RandomFrame(kWidth, kHeight, 2);
};

bool SamePixels(const Frame& x, const Frame& y) {
  return x.SameSize(y) && std::memcmp(x.data(), y.data(), x.bytes()) == 0;
}

TEST_F(ZrfxCli, ArgumentErrorsExitWithStatusTwoAndOneLine) {
  const std::string a = dir_ / "a.png", b = dir_ / "b.png", c = dir_ / "c.png", out = dir_ / "out.png";
  ExpectUsageError({"wipe", "--code", "1", "--progress", "5", dir_ / "missing.png", b, "-o", out},
                   "missing.png");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "5", a, c, "-o", out}, "same size");
  ExpectUsageError({"mux", "--mode", "blend", a, b, "-o", out}, "unknown mux mode 'blend'");
  ExpectUsageError({"mux", "--mode", "split", "--flag", "diagonal", a, b, "-o", out}, "unknown mux flag");
  ExpectUsageError({"mux", "--mode", "copy_b", a, c, "-o", out}, "same size");
  ExpectUsageError({"wipe", "--code", "2147483648", "--progress", "5", a, b, "-o", out},
                   "outside 0..2147483647");
  ExpectUsageError({"wipe", "--code", "-1", "--progress", "5", a, b, "-o", out}, "outside 0..2147483647");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "half", a, b, "-o", out}, "progress 'half'");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "101", a, b, "-o", out}, "beyond the span");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "-3", a, b, "-o", out}, "progress '-3'");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "0", "--span", "0", a, b, "-o", out}, "span");
  ExpectUsageError({"wipe", "--code", "1", a, b, "-o", out}, "--progress is required");
  ExpectUsageError({"wipe", "--code", "1", "--progress", "1", a, "-o", out}, "two input pictures");
  ExpectUsageError({"transition", "--code", "1", "--frames", "1", a, b, "-o", dir_ / "f%d.png"},
                   "at least 2");
  ExpectUsageError({"transition", "--code", "1", "--frames", "3", a, b, "-o", out}, "frame number");
  ExpectUsageError({"mux", "--mode", "wipe", "--grid", "0%", a, b, "-o", out}, "grid percentage");
  ExpectUsageError({"mux", "--mode", "split", "--grid", "8x0", a, b, "-o", out}, "grid steps");
  ExpectUsageError({"mux", "--mode", "split", "--raw", "24", a, b, "-o", out}, "WIDTHxHEIGHT");
  ExpectUsageError({"mux", "--mode", "split", "--raw", "24x10", "-", "-", "-o", out}, "standard input");
  ExpectUsageError({"gallery", "--size", "10x10", "--out", dir_ / "g"}, "at least");
  ExpectUsageError({"wipe", "--colour", "red"}, "unknown option --colour");
  ExpectUsageError({"paint"}, "unknown command 'paint'");
  // Nothing was written on any of these paths.
  EXPECT_FALSE(std::filesystem::exists(out));
}

TEST_F(ZrfxCli, HelpGoesToStandardOutput) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"--help"}, {"gallery", "--help"}, {"wipe", "-h"}, {"transition", "--help"}, {"mux", "--help"}}) {
    const RunResult r = RunZrfx(args);
    EXPECT_EQ(r.exitStatus, 0);
    EXPECT_NE(r.out.find("usage"), std::string::npos) << args[0];
    EXPECT_TRUE(r.err.empty());
  }
  EXPECT_NE(RunZrfx({"wipe", "--help"}).out.find("zrfxSLIDE_Basic: 500-515"), std::string::npos);
  EXPECT_NE(RunZrfx({"mux", "--help"}).out.find("CHANNEL_VIEW"), std::string::npos);
}

// Through PNG files, the output is the library's frame to the bit.
TEST_F(ZrfxCli, WipeThroughPngMatchesTheLibrary) {
  for (uint32_t progress : {0u, 37u, 100u}) {
    const RunResult r = RunZrfx({"wipe", "--code", "3", "--progress", std::to_string(progress),
                                 dir_ / "a.png", dir_ / "b.png", "-o", dir_ / "out.png"});
    ASSERT_EQ(r.exitStatus, 0) << r.err;
    Frame srcA = a_, srcB = b_, expected(kWidth, kHeight);
    RunWipe(srcA, srcB, expected, 3, 100, progress);
    EXPECT_TRUE(SamePixels(ReadOutput("out.png"), expected)) << "progress " << progress;
  }
  // The ends of a wipe are the pictures themselves.
  ASSERT_EQ(RunZrfx({"wipe", "--code", "1", "--progress", "0", "--span", "7", dir_ / "a.png", dir_ / "b.png",
                     "-o", dir_ / "start.png"})
                .exitStatus,
            0);
  EXPECT_TRUE(SamePixels(ReadOutput("start.png"), a_));
  ASSERT_EQ(RunZrfx({"wipe", "--code", "1", "--progress", "0", "--reverse", dir_ / "a.png", dir_ / "b.png",
                     "-o", dir_ / "reversed.png"})
                .exitStatus,
            0);
  EXPECT_TRUE(SamePixels(ReadOutput("reversed.png"), b_));
}

TEST_F(ZrfxCli, MuxThroughPngMatchesTheLibrary) {
  const RunResult r = RunZrfx({"mux", "--mode", "Mux_Split", "--flag", "divider,alt_axis", "--flag", "SWAP",
                               "--split-y", "3", dir_ / "a.png", dir_ / "b.png", "-o", dir_ / "out.png"});
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  Frame srcA = a_, srcB = b_, expected(kWidth, kHeight);
  MuxSettings s;
  s.flags = MUX_SPLIT | MUXF_DIVIDER | MUXF_ALT_AXIS | MUXF_SWAP;
  s.position = 32768;
  s.splitX = kWidth / 2;
  s.splitY = 3;
  RunMux(srcA, srcB, expected, s);
  EXPECT_TRUE(SamePixels(ReadOutput("out.png"), expected));
}

TEST_F(ZrfxCli, TransitionWritesEveryFrame) {
  const RunResult r = RunZrfx({"transition", "--code", "500", "--frames", "4", dir_ / "a.png", dir_ / "b.png",
                               "-o", dir_ / "f_%02d.png"});
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  for (uint32_t k = 0; k < 4; ++k) {
    Frame srcA = a_, srcB = b_, expected(kWidth, kHeight);
    RunWipe(srcA, srcB, expected, 500, 3, k);
    EXPECT_TRUE(SamePixels(ReadOutput("f_0" + std::to_string(k) + ".png"), expected)) << "frame " << k;
  }
  EXPECT_FALSE(std::filesystem::exists(dir_ / "f_04.png"));
}

std::string Bytes(const Frame& frame) {
  return std::string(reinterpret_cast<const char*>(frame.data()), frame.bytes());
}

// Two frames a stream, B through standard input, the output to standard
// output: what `ffmpeg ... | zrfx mux --raw ... - | ffmpeg ...` does.
TEST_F(ZrfxCli, TwoFrameRawStreamThroughTheMux) {
  const Frame a1 = RandomFrame(kWidth, kHeight, 11), b1 = RandomFrame(kWidth, kHeight, 12);
  test::WriteFile(dir_ / "a.rgba", Bytes(a_) + Bytes(a1));
  test::WriteFile(dir_ / "b.rgba", Bytes(b_) + Bytes(b1));
  const RunResult r = RunZrfx({"mux", "--mode", "difference", "--level", "4", "--flag", "flip_v_a", "--raw",
                               "24x10", dir_ / "a.rgba", "-", "-o", "-"},
                              dir_ / "b.rgba");
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  EXPECT_TRUE(r.err.empty());
  std::string expected;
  MuxSettings s;
  s.flags = MUX_DIFFERENCE | MUXF_FLIP_V_A;
  s.level = 4;
  for (auto [a, b] : {std::pair{a_, b_}, std::pair{a1, b1}}) {
    Frame out(kWidth, kHeight);
    RunMux(a, b, out, s);
    expected += Bytes(out);
  }
  ASSERT_EQ(r.out.size(), expected.size());
  EXPECT_TRUE(r.out == expected);
}

TEST_F(ZrfxCli, RawTransitionHoldsTheLastFrameOfAShortStream) {
  const Frame b1 = RandomFrame(kWidth, kHeight, 12);
  test::WriteFile(dir_ / "a.rgba", Bytes(a_));  // one frame: a still
  test::WriteFile(dir_ / "b.rgba", Bytes(b_) + Bytes(b1));
  const RunResult r = RunZrfx({"transition", "--code", "0", "--frames", "3", "--raw", "24x10",
                               dir_ / "a.rgba", dir_ / "b.rgba", "-o", dir_ / "out.rgba"});
  ASSERT_EQ(r.exitStatus, 0) << r.err;
  std::string expected;
  for (uint32_t k = 0; k < 3; ++k) {
    Frame a = a_, b = k == 0 ? b_ : b1, out(kWidth, kHeight);
    RunWipe(a, b, out, 0, 2, k);
    expected += Bytes(out);
  }
  const std::string got = test::ReadFile(dir_ / "out.rgba");
  ASSERT_EQ(got.size(), expected.size());
  EXPECT_TRUE(got == expected);
}

TEST_F(ZrfxCli, RawStreamCutInsideAFrameFails) {
  test::WriteFile(dir_ / "a.rgba", Bytes(a_) + "xyz");
  test::WriteFile(dir_ / "b.rgba", Bytes(b_) + Bytes(b_));
  const RunResult r = RunZrfx({"mux", "--mode", "average", "--raw", "24x10", dir_ / "a.rgba", dir_ / "b.rgba",
                               "-o", dir_ / "out.rgba"});
  EXPECT_EQ(r.exitStatus, 1);
  EXPECT_EQ(r.ErrLines(), 1u);
  EXPECT_NE(r.err.find("ends inside frame 1"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace zrfx
