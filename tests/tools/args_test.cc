// The tool's command-line parsing: options, numbers, names and patterns.
#include "zrfx/args.h"

#include <gtest/gtest.h>
#include <zrdraw.h>

#include "zrfx/errors.h"
#include "zrfx/frame_pattern.h"
#include "zrfx/mux_names.h"
#include "zrfx/numbers.h"
#include "zrfx/operations.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

const std::vector<Option> kOptions = {
    {"code", nullptr, true, false},
    {"flag", nullptr, true, true},
    {"reverse", nullptr, false, false},
    {"out", "-o", true, false},
};

Args Parse(std::vector<std::string> words) {
  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  return Args(kOptions, static_cast<int>(argv.size()), argv.data(), 0);
}

TEST(Args, OptionsValuesAndPositionals) {
  const Args args = Parse({"--code", "7", "A.png", "--flag=swap", "-o", "out.png", "--flag", "grid", "-",
                           "--reverse", "--", "--not-an-option"});
  EXPECT_EQ(args.Value("code"), "7");
  EXPECT_EQ(args.Value("out"), "out.png");
  EXPECT_TRUE(args.Has("reverse"));
  EXPECT_EQ(args.Values("flag"), (std::vector<std::string>{"swap", "grid"}));
  EXPECT_EQ(args.Positional(), (std::vector<std::string>{"A.png", "-", "--not-an-option"}));
  EXPECT_NO_THROW(args.ExpectPositional(3, "three"));
  EXPECT_THROW(args.ExpectPositional(2, "two"), UsageError);
  EXPECT_THROW(args.Required("missing"), UsageError);
}

TEST(Args, RejectsWhatItCannotRead) {
  EXPECT_THROW(Parse({"--colour", "red"}), UsageError);             // unknown
  EXPECT_THROW(Parse({"--code"}), UsageError);                      // no value
  EXPECT_THROW(Parse({"--code", "1", "--code", "2"}), UsageError);  // twice
  EXPECT_THROW(Parse({"--reverse=yes"}), UsageError);               // a flag with a value
  // A value that looks like an option is still the value.
  EXPECT_EQ(Parse({"--code", "-5"}).Value("code"), "-5");
}

TEST(Numbers, U32AndWipeNumbers) {
  EXPECT_EQ(ParseU32("0", "n"), 0u);
  EXPECT_EQ(ParseU32("4294967295", "n"), 4294967295u);
  EXPECT_EQ(ParseU32("0x10000", "n"), 65536u);
  EXPECT_EQ(ParseU32("0XfF", "n"), 255u);
  for (const char* bad :
       {"", "4294967296", "-1", "+1", "1.5", " 1", "1 ", "0x", "12abc", "99999999999999999999"})
    EXPECT_THROW(ParseU32(bad, "n"), UsageError) << bad;

  EXPECT_EQ(ParseWipeNumber("2147483647"), 2147483647u);
  EXPECT_EQ(ParseWipeNumber("0"), 0u);
  for (const char* bad : {"2147483648", "-1", "4294967295", "x"})
    EXPECT_THROW(ParseWipeNumber(bad), UsageError) << bad;
}

TEST(Numbers, FrameSizes) {
  const FrameSize size = ParseFrameSize("1920x1080");
  EXPECT_EQ(size.width, 1920u);
  EXPECT_EQ(size.height, 1080u);
  EXPECT_EQ(ParseFrameSize("2X1").width, 2u);
  for (const char* bad : {"1920", "x1080", "1920x", "0x100", "100x0", "16385x10", "1920x1080x2", "axb"})
    EXPECT_THROW(ParseFrameSize(bad), UsageError) << bad;
  // 1 GiB of RGBA at most, counting the spare row.
  EXPECT_THROW(ParseFrameSize("16384x16384"), UsageError);
}

TEST(FramePattern, FormatsTheFrameNumber) {
  EXPECT_EQ(FramePattern("out_%03d.png").Format(7), "out_007.png");
  EXPECT_EQ(FramePattern("out_%03d.png").Format(1234), "out_1234.png");
  EXPECT_EQ(FramePattern("%d").Format(0), "0");
  EXPECT_EQ(FramePattern("f%4d.png").Format(12), "f  12.png");
  EXPECT_EQ(FramePattern("100%%_%02d.png").Format(5), "100%_05.png");
  for (const char* bad : {"out.png", "%d_%d.png", "%s.png", "%x", "out_%", "%05", "%%d"})
    EXPECT_THROW(FramePattern{bad}, UsageError) << bad;
}

TEST(MuxNames, ModesAndFlagsByName) {
  EXPECT_EQ(ParseMuxMode("side_by_side"), MUX_SIDE_BY_SIDE);
  EXPECT_EQ(ParseMuxMode("Side-By-Side"), MUX_SIDE_BY_SIDE);
  EXPECT_EQ(ParseMuxMode("MUX_SPLIT"), MUX_SPLIT);
  EXPECT_EQ(ParseMuxMode("mirror2"), MUX_MIRROR2);
  EXPECT_EQ(ParseMuxMode("default"), MUX_DEFAULT);
  EXPECT_EQ(ParseMuxMode("0x400000"), 0x400000u);  // unassigned: copies A
  EXPECT_THROW(ParseMuxMode("0x1000000"), UsageError);
  EXPECT_THROW(ParseMuxMode("blend"), UsageError);
  EXPECT_THROW(ParseMuxMode("MUXF_SWAP"), UsageError);
  EXPECT_EQ(ParseMuxFlag("alt_axis"), MUXF_ALT_AXIS);
  EXPECT_EQ(ParseMuxFlag("MUXF_FLIP_V_A"), MUXF_FLIP_V_A);
  EXPECT_THROW(ParseMuxFlag("split"), UsageError);

  // Every mode and flag name parses back to its own value.
  for (const MuxName& mode : MuxModes()) EXPECT_EQ(ParseMuxMode(mode.name), mode.value) << mode.name;
  for (const MuxName& flag : MuxFlags()) EXPECT_EQ(ParseMuxFlag(flag.name), flag.value) << flag.name;

  EXPECT_EQ(MuxModeName(MUX_TWO_UP), "TWO_UP");
  EXPECT_EQ(MuxModeName(0x000003), "0x000003");
  EXPECT_EQ(MuxFlagNames(MUX_SPLIT | MUXF_DIVIDER | MUXF_ALT_AXIS), "DIVIDER+ALT_AXIS");
  MuxSettings split;
  split.flags = MUX_SPLIT | MUXF_ALT_AXIS;
  split.splitY = 108;
  EXPECT_EQ(DescribeMux(split), "SPLIT (0x000800) + ALT_AXIS, splitY 108");
}

TEST(WipeNames, EffectOfEachNumber) {
  EXPECT_STREQ(WipeEffectName(1), "zrfxSMPTE_Horizontal");
  EXPECT_STREQ(WipeEffectName(409), "zrfxSMPTE_Horizontal");
  EXPECT_STREQ(WipeEffectName(101), "zrfxSMPTE_Rectangle");
  EXPECT_STREQ(WipeEffectName(515), "zrfxSLIDE_Basic");
  EXPECT_STREQ(WipeEffectName(3 | kWipeReverse), "zrfxSMPTE_TopLeft");
  for (uint32_t dissolve : {0u, 9u, 126u, 516u, 0x7FFFFFFFu})
    EXPECT_STREQ(WipeEffectName(dissolve), "zrfxDISSOLVE");
  EXPECT_EQ(DescribeWipe(3 | kWipeReverse), "wipe 3 (zrfxSMPTE_TopLeft), reversed");
}

TEST(MuxSettingsCheck, GridStepsThatTheOverlayCannotUse) {
  MuxSettings s;
  EXPECT_NO_THROW(CheckMuxSettings(s, 64, 48));  // no grid
  s.flags = MUXF_GRID;                           // percentage mode with 0 percent
  EXPECT_THROW(CheckMuxSettings(s, 64, 48), UsageError);
  s.gridStepX = 30;
  EXPECT_NO_THROW(CheckMuxSettings(s, 64, 48));
  s.gridStepX = 101;
  EXPECT_THROW(CheckMuxSettings(s, 64, 48), UsageError);
  s = MuxSettings{};
  s.gridMode = 1;
  s.gridStepX = 1;  // 100 parts: a step of 0 on 64 by 48
  EXPECT_THROW(CheckMuxSettings(s, 64, 48), UsageError);
  EXPECT_NO_THROW(CheckMuxSettings(s, 100, 100));
  s.gridMode = 2;
  s.gridStepX = 10;
  s.gridStepY = 0;
  EXPECT_THROW(CheckMuxSettings(s, 64, 48), UsageError);
  s.gridStepY = 1000;
  EXPECT_NO_THROW(CheckMuxSettings(s, 64, 48));
}

}  // namespace
}  // namespace zrfx
