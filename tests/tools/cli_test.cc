// The zrfx binary as a user runs it: exit status and first message of each
// kind of call, PNG runs against the library, raw streams through files and
// pipes, and the gallery.
#include <gtest/gtest.h>
#include <zrdraw.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "run_zrfx.h"
#include "zrfx/operations.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/png_io.h"
#include "zrfx/yuv_convert.h"

namespace zrfx {
namespace {

using test::Bytes;
using test::RandomFrame;

constexpr uint32_t kWidth = 24, kHeight = 10;
const std::map<std::string, std::string> kShorthand = {{"AB", "@a.png @b.png -o @o.png"},
                                                       {"AC", "@a.png @c.png -o @o.png"},
                                                       {"RAW", "@a.rgba @b.rgba -o @o.rgba"}};

// Two pictures A and B of one size, and C of another, as PNG and raw files.
class ZrfxCli : public ::testing::Test {
 protected:
  void SetUp() override {
    WritePng(dir_ / "a.png", a_, true);
    WritePng(dir_ / "b.png", b_, true);
    WritePng(dir_ / "c.png", RandomFrame(kWidth + 1, kHeight, 3), true);
    test::WriteFile(dir_ / "a.rgba", Bytes(a_) + Bytes(a1_));
    test::WriteFile(dir_ / "b.rgba", Bytes(b_) + Bytes(b1_));
    test::WriteFile(dir_ / "cut.rgba", Bytes(a_) + "xyz");
    test::WriteFile(dir_ / "empty.rgba", "");
    std::filesystem::create_directory(dir_ / "dir");
  }
  // The library's output for the same inputs.
  Frame Wipe(Frame a, Frame b, uint32_t code, uint32_t span, uint32_t progress) {
    Frame out(kWidth, kHeight);
    RunWipe(a, b, out, code, span, progress);
    return out;
  }
  Frame Mux(Frame a, Frame b, const MuxSettings& s) {
    Frame out(kWidth, kHeight);
    RunMux(a, b, out, s);
    return out;
  }
  std::string Png(const std::string& name) { return Bytes(ReadPng(dir_ / name).frame); }
  // Runs zrfx on `words` split at spaces, where "@name" is a scratch file and
  // "AB", "AC" and "RAW" stand for two inputs and an output, PNG and raw.
  test::RunResult Run(std::string words, const std::string& stdinPath = "/dev/null") {
    for (const char* pair : {"AB", "AC", "RAW"})
      if (words.ends_with(pair))
        words.replace(words.size() - std::strlen(pair), std::strlen(pair), kShorthand.at(pair));
    std::istringstream in(words);
    std::vector<std::string> args;
    for (std::string w; in >> w;) args.push_back(w[0] == '@' ? dir_ / w.substr(1) : w);
    return test::RunZrfx(dir_, args, stdinPath);
  }

  test::ScratchDir dir_;
  Frame a_ = RandomFrame(kWidth, kHeight, 1), b_ = RandomFrame(kWidth, kHeight, 2);
  Frame a1_ = RandomFrame(kWidth, kHeight, 11), b1_ = RandomFrame(kWidth, kHeight, 12);
};

TEST_F(ZrfxCli, ExitStatusAndFirstMessage) {
  struct Row {
    const char* args;
    int status;
    std::string message;  // the start of standard error, "@" the scratch directory; output for status 0
  };
  const Row rows[] = {
      {"paint", 2, "zrfx: unknown command 'paint'"},
      {"wipe --colour red", 2, "zrfx: unknown option --colour"},
      {"wipe --code 1 --code 2 --progress 1 AB", 2, "zrfx: option --code is given twice"},
      {"wipe --code", 2, "zrfx: option --code needs a value"},
      {"wipe --reverse=yes --code 1 --progress 1 AB", 2, "zrfx: option --reverse takes no value"},
      {"wipe --code 1 --progress 5 @missing.png @b.png -o @o.png", 2, "zrfx: cannot open @missing.png: "},
      {"wipe --code 1 --progress 5 AC", 2, "zrfx: @a.png is 24x10 but @c.png is 25x10; both"},
      {"wipe --code 2147483648 AB", 2, "zrfx: wipe number '2147483648' is outside 0..2147483647"},
      {"wipe --code abc --progress 5 AB", 2, "zrfx: wipe number 'abc' is not a number"},
      {"wipe --code -1 --progress 5 AB", 2, "zrfx: wipe number '-1' is not a number"},
      {"wipe --code 0x --progress 5 AB", 2, "zrfx: wipe number '0x' is not a number"},
      {"wipe --code 508 --progress 5 AB", 2, "zrfx: wipe 508 (zrfxSLIDE_Basic): the library writes nothing"},
      {"wipe --code 507 --reverse --progress 5 AB", 2, "zrfx: wipe 507 (zrfxSLIDE_Basic), reversed: the"},
      {"transition --code 515 --frames 3 @a.png @b.png -o @f%d.png", 2, "zrfx: wipe 515 (zrfxSLIDE_Basic):"},
      {"mux --mode wipe --code 500 --reverse AB", 2, "zrfx: wipe 500 (zrfxSLIDE_Basic), reversed: the"},
      {"wipe --code 1 --progress 5 @dir @b.png -o @o.png", 2, "zrfx: cannot open @dir: Is a directory"},
      {"wipe --code 1 --progress 5 @a.png @b.png -o @no/o.png", 1, "zrfx: cannot write @no/o.png: No such"},
      {"wipe --code 1 --progress 5 @a.png @b.png -o /dev/full", 1, "zrfx: cannot write /dev/full: No space"},
      {"wipe --code 1 --progress half AB", 2, "zrfx: progress 'half' is not a number"},
      {"wipe --code 1 --progress +1 AB", 2, "zrfx: progress '+1' is not a number"},
      {"wipe --code 1 --progress 4294967296 AB", 2, "zrfx: progress '4294967296' is not a number"},
      {"wipe --code 1 --progress 101 AB", 2, "zrfx: progress 101 is beyond the span 100"},
      {"wipe --code 1 --progress 0 --span 0 AB", 2, "zrfx: span must be at least 1"},
      {"wipe --code 1 AB", 2, "zrfx: option --progress is required"},
      {"wipe --code 1 --progress 1 @a.png -o @o.png", 2, "zrfx: expected two input pictures"},
      {"transition --code 1 --frames 1 @a.png @b.png -o @f%d.png", 2, "zrfx: a transition needs at least 2"},
      {"transition --code 1 --frames 3 AB", 2, "zrfx: output name '@o.png' must hold a frame number"},
      {"transition --code 1 --frames 3 @a.png @b.png -o @f%d_%d.png", 2, "zrfx: output name '@f%d_%d.png'"},
      {"mux --mode blend AB", 2, "zrfx: unknown mux mode 'blend'"},
      {"mux --mode MUXF_SWAP AB", 2, "zrfx: unknown mux mode 'MUXF_SWAP'"},
      {"mux --mode 0x1000000 AB", 2, "zrfx: unknown mux mode '0x1000000'"},
      {"mux --mode split --flag diagonal AB", 2, "zrfx: unknown mux flag 'diagonal'"},
      {"mux --mode copy_b AC", 2, "zrfx: @a.png is 24x10 but @c.png is 25x10; both"},
      {"mux --mode wipe --grid 0% AB", 2, "zrfx: a grid percentage must be from 1 to 100"},
      {"mux --mode split --grid 8x0 AB", 2, "zrfx: grid steps must be at least 1 pixel"},
      {"mux --mode split --flag grid AB", 2, "zrfx: the grid flag needs --grid P% or --grid XxY"},
      {"mux --mode crossfade --position 65537 AB", 2, "zrfx: position 65537 is beyond the whole, 65536"},
      {"mux --mode split --raw 24 RAW", 2, "zrfx: frame size '24' is not WIDTHxHEIGHT"},
      {"mux --mode split --raw 0x10 RAW", 2, "zrfx: a frame size of 0x10 is not supported"},
      {"mux --mode split --raw 16385x16 RAW", 2,
       "zrfx: a frame size of 16385x16 is not supported (1 to 16384"},
      {"mux --mode split --raw 24x10 - - -o @o.rgba", 2, "zrfx: only one input can be standard input"},
      {"mux --mode split --raw 24x10 @cut.rgba @b.rgba -o @o.rgba", 2, "zrfx: @cut.rgba holds 963 bytes"},
      {"transition --code 1 --frames 3 --raw 64x10 RAW", 2, "zrfx: @a.rgba holds 1920 bytes"},
      {"mux --mode split --raw 24x10 @a.rgba @empty.rgba -o @o.rgba", 2, "zrfx: @empty.rgba holds no frame"},
      {"mux --mode split --raw 24x10 @dir @b.rgba -o @o.rgba", 2, "zrfx: cannot open @dir: Is a directory"},
      {"mux --mode split --raw 24x10 @a.rgba @b.rgba -o @no/o.rgba", 1,
       "zrfx: cannot write @no/o.rgba: No such"},
      {"transition --code 1 --frames 3 --raw 24x10 @a.rgba @b.rgba -o /dev/full", 1,
       "zrfx: cannot write /dev/full"},
      {"draw --raw 24x10 --pix rgba -i @cut.rgba", 2, "zrfx: @cut.rgba holds 963 bytes, not a whole number"},
      {"draw --raw 24x10 --pix rgba0 -i @a.rgba", 2, "zrfx: unknown pixel format 'rgba0'"},
      {"draw --raw 23x10 --pix uyvy422 -i @a.rgba", 2, "zrfx: uyvy422 needs a width that is a multiple of 2"},
      {"draw --raw 24x10 --pix rgba --fill 0,0,24,9 -i @a.rgba", 2, "zrfx: --fill 0,0,24,9 is not inside"},
      {"draw --raw 24x10 --pix rgba --timecode --fps 0", 2, "zrfx: --fps 0 is outside 1..100"},
      {"draw --raw 24x10 --pix rgba --fps 30", 2, "zrfx: --fps needs --timecode"},
      {"draw --raw 24x10 --pix rgba --text A --text-size 0", 2, "zrfx: --text-size 0 is outside 1..100"},
      {"draw --raw 24x10 --pix rgba --text A --text-size 1 --text-at 24,0", 2,
       "zrfx: --text-at 24,0 is not in"},
      {"draw --raw 24x10 --pix rgba --text A --text-size 1 --text-at 0,1", 2,
       "zrfx: --text-at 0,1 is not in the"},
      {"draw --raw 24x10 --pix rgba --timecode", 2, "zrfx: the timecode's default place 1,-10 is not in"},
      {"draw --raw 24x10 --pix rgba --text \xC3\xA9", 2, "zrfx: --text holds a character that the"},
      {"gallery --size 10x10 --out @g", 2, "zrfx: the gallery needs pictures of at least 64x48"},
      {"--help", 0, "usage: zrfx [COMMAND]"},
      {"gallery --help", 0, "usage: zrfx [gallery]"},
      {"wipe -h", 0, "usage: zrfx wipe"},
      {"transition --help", 0, "usage: zrfx transition"},
      {"mux --help", 0, "usage: zrfx mux"},
      {"draw --help", 0, "usage: zrfx draw"},
      {"help mux", 0, "usage: zrfx mux"},
      {"help paint", 2, "zrfx: unknown command 'paint'"},
      {"list -h", 0, "usage: zrfx list"},
      {"--version", 0,
       "zrfx (zrdraw) " + std::to_string(ZRDRAW_VERSION_MAJOR) + "." + std::to_string(ZRDRAW_VERSION_MINOR) +
           "." + std::to_string(ZRDRAW_VERSION_PATCH) + "\n"},
  };
  for (const Row& row : rows) {
    const test::RunResult r = Run(row.args);
    EXPECT_EQ(row.status, r.exitStatus) << row.args << "\n" << r.err;
    std::string message = row.message;
    for (size_t at; (at = message.find('@')) != std::string::npos;) message.replace(at, 1, dir_ / "");
    EXPECT_TRUE((row.status ? r.err : r.out).starts_with(message) && (row.status ? r.out : r.err).empty())
        << row.args << "\n"
        << r.err;
    EXPECT_EQ(row.status ? 1 : 0, std::count(r.err.begin(), r.err.end(), '\n')) << row.args << "\n" << r.err;
  }
  // Nothing was written or left behind on a failure, and the device is still there.
  const std::set<std::string> inputs = {"a.png",    "b.png",      "c.png", "a.rgba", "b.rgba",
                                        "cut.rgba", "empty.rgba", "dir",   "stdout", "stderr"};
  for (const auto& entry : std::filesystem::directory_iterator(dir_ / ""))
    EXPECT_TRUE(inputs.count(entry.path().filename().string())) << entry.path();
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

// Through PNG files, the output is the library's frame to the bit.
TEST_F(ZrfxCli, PngRunsMatchTheLibrary) {
  for (uint32_t p : {0u, 37u, 100u}) {
    ASSERT_EQ(0, Run("wipe --code 3 --progress " + std::to_string(p) + " AB").exitStatus);
    EXPECT_EQ(Bytes(Wipe(a_, b_, 3, 100, p)), Png("o.png")) << "progress " << p;
  }
  ASSERT_EQ(0, Run("wipe --code 1 --progress 0 --span 7 AB").exitStatus);  // the ends are the pictures
  EXPECT_EQ(Bytes(a_), Png("o.png"));
  ASSERT_EQ(0, Run("wipe --code 1 --progress 0 --reverse AB").exitStatus);
  EXPECT_EQ(Bytes(b_), Png("o.png"));
  ASSERT_EQ(0, Run("mux --mode Mux_Split --flag divider,alt_axis --flag=SWAP --split-y 3 AB").exitStatus);
  MuxSettings s;
  s.flags = MUX_SPLIT | MUXF_DIVIDER | MUXF_ALT_AXIS | MUXF_SWAP;
  s.position = 32768;
  s.splitX = kWidth / 2;
  s.splitY = 3;
  EXPECT_EQ(Bytes(Mux(a_, b_, s)), Png("o.png"));
  const test::RunResult toStdout = Run("mux --mode copy_b @a.png @b.png -o -");  // PNG to standard output
  test::WriteFile(dir_ / "stdout.png", toStdout.out);
  EXPECT_EQ(Bytes(b_), Png("stdout.png"));
  EXPECT_FALSE(std::filesystem::exists("-"));
  ASSERT_EQ(0, Run("transition --code 500 --frames 4 @a.png @b.png -o @f_%02d.png").exitStatus);
  for (uint32_t k = 0; k < 4; ++k)
    EXPECT_EQ(Bytes(Wipe(a_, b_, 500, 3, k)), Png("f_0" + std::to_string(k) + ".png"));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "f_04.png"));
}

// Two frames a stream, B through standard input, the output to standard
// output; and a still A against a longer B, its last frame held.
TEST_F(ZrfxCli, RawStreams) {
  const auto r =
      Run("mux --mode difference --level 4 --flag flip_v_a --raw 24x10 @a.rgba - -o -", dir_ / "b.rgba");
  ASSERT_EQ(0, r.exitStatus) << r.err;
  MuxSettings s;
  s.flags = MUX_DIFFERENCE | MUXF_FLIP_V_A;
  s.level = 4;
  EXPECT_TRUE(r.err.empty() && r.out == Bytes(Mux(a_, b_, s)) + Bytes(Mux(a1_, b1_, s)));
  test::WriteFile(dir_ / "still.rgba", Bytes(a_));
  ASSERT_EQ(0, Run("transition --code 0 --frames 3 --raw 24x10 @still.rgba @b.rgba -o @o.rgba").exitStatus);
  EXPECT_TRUE(test::ReadFile(dir_ / "o.rgba") ==
              Bytes(Wipe(a_, b_, 0, 2, 0)) + Bytes(Wipe(a_, b1_, 0, 2, 1)) + Bytes(Wipe(a_, b1_, 0, 2, 2)));
}

// zrfx list and wipe --help: the numbers that alias another, that write
// nothing, and that dissolve, as the library plays them.
TEST_F(ZrfxCli, ListAndWipeHelpSayWhatEachNumberDoes) {
  const std::string list = Run("list").out;
  for (const char* line :
       {"\n  504-507   zrfxSLIDE_Basic                as 502: A slides down off the frame\n",
        "\n  508-515   zrfxSLIDE_Basic                writes nothing: refused\n",
        "\n  61-68     zrfxSMPTE_Rectangle            as 41: a centred box grows\n", "\n  0, 9-20, 27-40,",
        " 410-499, 516-2147483647\n", "\nrefused: 500-515.\n", "\n  CROSSFADE          0x008000  ",
        "\n  SWAP               ", "\nDIFFERENCE is one-sided"})
    EXPECT_NE(std::string::npos, list.find(line)) << line;
  const std::string help = Run("wipe --help").out;
  EXPECT_NE(std::string::npos, help.find("\n  zrfxSLIDE_Basic: 500-507\n")) << help;
  EXPECT_NE(std::string::npos, help.find(" writes nothing for them: 508-515, and with --reverse 500-515.\n"));
}

// The 4:2:2 and v210 adapters on odd widths, at both ends of a wipe: the
// same picture as the RGBA wipe taken to that layout and back, the last
// column included.
TEST(WipeAdapters, OddWidthsMatchTheRgbaRoad) {
  for (uint32_t width : {7u, 389u}) {
    Frame a = RandomFrame(width, 3, width), b = RandomFrame(width, 3, width + 1), rgba(width, 3);
    for (uint32_t progress : {0u, 100u}) {
      RunWipe(a, b, rgba, 1, 100, progress);
      EXPECT_EQ(Bytes(Pairs422ToRgba(RgbaToPairs422(rgba))), Bytes(RunWipeYCbCr(a, b, 1, 100, progress)))
          << "4:2:2, width " << width << ", progress " << progress;
      EXPECT_EQ(Bytes(V210ToRgba(RgbaToV210(rgba))), Bytes(RunWipeV210(a, b, 1, 100, progress)))
          << "v210, width " << width << ", progress " << progress;
    }
  }
}

// zrfx draw on two frames of random bytes, through standard input and
// output: the groups of bytes that hold a drawn pixel (a pair in 4:2:2, six
// pixels in v210) change, every other byte, row padding included, comes out
// as it went in, and a filled pixel of an RGB layout holds the colour.
TEST_F(ZrfxCli, DrawChangesTheGroupsOfDrawnPixelsOnly) {
  using namespace std::string_literals;
  constexpr auto kFill = [](uint32_t x, uint32_t y) { return x >= 3 && x <= 7 && y >= 1 && y <= 3; };
  constexpr auto kGridAndOutline = [](uint32_t x, uint32_t y) {
    return x % 5 == 0 || y % 5 == 0 || ((x == 2 || x == 11) && y >= 1 && y <= 4) ||
           ((y == 1 || y == 4) && x >= 2 && x <= 11);
  };
  struct Row {
    const char* pix;
    uint32_t width;
    const char* overlay;
    bool (*drawn)(uint32_t x, uint32_t y);
    std::string pixel31;  // the bytes of pixel (3, 1), where the layout stores RGB
  };
  const Row rows[] = {
      {"rgba", 13, "--fill 3,1,7,3", kFill, "\xFF\x80\x00\xFF"s},
      {"bgra", 13, "--grid 5 --rect 2,1,11,4", kGridAndOutline, ""},
      {"rgb24", 13, "--fill 3,1,7,3", kFill, "\xFF\x80\x00"s},
      {"rgb48le", 13, "--fill 3,1,7,3", kFill, "\xFF\xFF\x80\x80\x00\x00"s},
      {"pixelRGB30DPX", 13, "--fill 3,1,7,3", kFill, "\xFF\xE0\x10\x00"s},  // 1023, 513, 0
      {"uyvy422", 14, "--fill 3,1,7,3", kFill, ""},
      {"v210", 50, "--fill 3,1,7,3", kFill, ""},
  };
  for (const Row& row : rows) {
    const PixelFormat& format = ParsePixelFormat(row.pix);
    const uint32_t height = 6, groupBytes = format.groupBytes;
    const size_t rowBytes = format.RowBytes(row.width), frameBytes = rowBytes * height;
    std::string in(2 * frameBytes, '\0');
    zr::test::Rng(row.width).Fill(in.data(), in.size());
    test::WriteFile(dir_ / "in.raw", in);
    const test::RunResult r = Run(
        "draw --colour FF8000 --raw " + std::to_string(row.width) + "x6 --pix " + row.pix + " " + row.overlay,
        dir_ / "in.raw");
    EXPECT_TRUE(r.exitStatus == 0 && r.out.size() == in.size()) << row.pix << ": " << r.err;
    if (r.out.size() != in.size()) continue;
    for (size_t at = 0; at < in.size(); at += groupBytes) {
      const uint32_t y = at % frameBytes / rowBytes, first = at % rowBytes / groupBytes * format.groupPixels;
      bool drawn = false;
      for (uint32_t x = first; x < std::min(first + format.groupPixels, row.width); ++x)
        drawn |= row.drawn(x, y);
      EXPECT_EQ(drawn, in.compare(at, groupBytes, r.out, at, groupBytes) != 0)
          << row.pix << " " << row.overlay << ": byte " << at << ", row " << y << ", pixel " << first;
    }
    if (!row.pixel31.empty()) {
      EXPECT_EQ(row.pixel31, r.out.substr(rowBytes + 3 * groupBytes, groupBytes)) << row.pix;
    }
  }
}

// The gallery, as the README's first command runs it: it must finish and
// produce the contact sheet with every picture it names.
TEST_F(ZrfxCli, GalleryWritesTheContactSheetAndEveryPicture) {
  const test::RunResult r = Run("--out @gallery");
  ASSERT_EQ(0, r.exitStatus) << r.err;
  EXPECT_TRUE(r.err.empty() && r.out.find("contact sheet: ") != std::string::npos) << r.out << r.err;
  const std::string html = test::ReadFile(dir_ / "gallery/index.html");
  const std::regex image("<img src=\"([^\"]+)\"");
  size_t pictures = 0;
  for (auto it = std::sregex_iterator(html.begin(), html.end(), image); it != std::sregex_iterator(); ++it) {
    const Frame picture = ReadPng(dir_ / ("gallery/" + (*it)[1].str())).frame;
    EXPECT_EQ(384u * 1000 + 216, picture.width() * 1000 + picture.height()) << (*it)[1];
    ++pictures;
  }
  // Sources, 20 wipe families and the reverse row at three progress values,
  // the adapters, the mux modes and grids, at least the RGB canvases, and
  // the curves on six layouts.
  EXPECT_GE(pictures, 2u + 63u + 6u + 39u + 4u + 6u);
  for (const char* caption :
       {"wipe 22 (zrfxSMPTE_BarnDoorHorizontal), progress 75 of 100", "ZrDraw_DisplayWipeV210",
        "SPLIT (0x000800) + DIVIDER", "qtGetDraw(pixelRGB24 = 5", "curves-pixelBayerRGGB.png"})
    EXPECT_NE(std::string::npos, html.find(caption)) << caption;
}

}  // namespace
}  // namespace zrfx
