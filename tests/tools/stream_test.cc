// Streams in the layouts the transitions take, raw and y4m: planar y4m frames
// packed and unpacked without loss, each subcommand on each layout against
// golden checksums, the ends of a transition, and the refusals.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "common/crc32.h"
#include "run_zrfx.h"
#include "zrfx/pixel_formats.h"
#include "zrfx/png_io.h"
#include "zrfx/y4m_convert.h"

namespace zrfx {
namespace {

constexpr uint32_t kWidth = 24, kHeight = 10;
const char* const kColours[] = {"C422", "C422p10", "C444", "C444p10"};

// Seeded planes of a y4m frame, 10-bit samples below 1024.
std::string RandomPlanes(const Y4mHeader& h, uint64_t seed) {
  std::string planes(h.PlanarBytes(), '\0');
  zr::test::Rng(seed).Fill(planes.data(), planes.size());
  if (h.colour.ends_with("p10"))
    for (size_t i = 1; i < planes.size(); i += 2) planes[i] &= 3;
  return planes;
}

uint32_t Crc(const std::string& s) { return zr::test::Crc32(s.data(), s.size()); }

// Planar to packed and back gives the same bytes, over widths that end a v210
// row inside a group of 6 and past a group of 48; the packed layout (and the
// zero padding of v210 rows) is pinned by its checksum.
TEST(Y4m, PlanarPackedRoundTrip) {
  const std::map<std::string, uint32_t> kPackedCrc = {
      {"C422", 2977011142}, {"C422p10", 1567472816}, {"C444", 3094258371}, {"C444p10", 3835010005}};
  for (const char* colour : kColours) {
    for (uint32_t width : {2u, 14u, 50u}) {
      const Y4mHeader h =
          ParseY4mHeader("YUV4MPEG2 W" + std::to_string(width) + " H3 F25:1 Ip A1:1 " + colour, "test");
      const StreamFormat f = h.PackedFormat();
      const std::string planes = RandomPlanes(h, width);
      std::vector<uint8_t> packed(f.FrameBytes(), 0xEE);
      PlanarToPacked(h, reinterpret_cast<const uint8_t*>(planes.data()), packed.data(), f.pitch);
      std::string back(planes.size(), '\0');
      PackedToPlanar(h, packed.data(), f.pitch, reinterpret_cast<uint8_t*>(back.data()));
      EXPECT_EQ(planes, back) << colour << " width " << width;
      if (width == 50) {
        EXPECT_EQ(kPackedCrc.at(colour), zr::test::Crc32(packed.data(), packed.size())) << colour;
      }
    }
  }
}

class Streams : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const PixelFormat& f : PixelFormats())
      if (f.rawName) WriteRandom(std::string("a.") + f.rawName, 2 * f.FrameBytes(kWidth, kHeight), 1);
    for (const PixelFormat& f : PixelFormats())
      if (f.rawName) WriteRandom(std::string("b.") + f.rawName, 2 * f.FrameBytes(kWidth, kHeight), 2);
    for (const char* colour : kColours) {
      WriteY4m(std::string("a_") + colour + ".y4m", colour, kWidth, 1, 11);
      WriteY4m(std::string("b_") + colour + ".y4m", colour, kWidth, 2, 12);
    }
    WriteY4m("narrow.y4m", "C422", kWidth - 2, 1, 13);
    test::WriteFile(dir_ / "It.y4m", "YUV4MPEG2 W24 H10 F25:1 It C422\n");
    test::WriteFile(dir_ / "420.y4m", "YUV4MPEG2 W24 H10 F25:1 Ip\n");
  }
  void WriteRandom(const std::string& name, size_t bytes, uint64_t seed) {
    std::string s(bytes, '\0');
    zr::test::Rng(seed).Fill(s.data(), s.size());
    test::WriteFile(dir_ / name, s);
  }
  void WriteY4m(const std::string& name, const std::string& colour, uint32_t width, int frames,
                uint64_t seed) {
    const std::string line = "YUV4MPEG2 W" + std::to_string(width) + " H10 F30000:1001 Ip A1:1 " + colour;
    std::string s = line + "\n";
    for (int k = 0; k < frames; ++k) s += "FRAME\n" + RandomPlanes(ParseY4mHeader(line, name), seed + k);
    test::WriteFile(dir_ / name, s);
  }
  // Runs zrfx on `words`, "@name" naming a scratch file; the output's bytes.
  std::string Run(const std::string& words, int status = 0) {
    std::istringstream in(words);
    std::vector<std::string> args;
    for (std::string w; in >> w;) args.push_back(w[0] == '@' ? dir_ / w.substr(1) : w);
    last_ = test::RunZrfx(dir_, args);
    EXPECT_EQ(status, last_.exitStatus) << words << "\n" << last_.err;
    return status == 0 ? test::ReadFile(dir_ / "o") : "";
  }
  test::ScratchDir dir_;
  test::RunResult last_;
};

// Every subcommand on streams: raw layouts through the wipe, the adapters
// and the mux, y4m through the same with the header repeated.
TEST_F(Streams, EachSubcommandOnEachLayout) {
  struct Row {
    const char* args;
    uint32_t crc;
  };
  const Row rows[] = {
      {"transition --code 21 --frames 3 --raw 24x10 --pix rgba @a.rgba @b.rgba -o @o", 143653920},
      {"transition --code 21 --frames 3 --raw 24x10 --pix bgra @a.bgra @b.bgra -o @o", 143653920},
      {"transition --code 3 --frames 3 --raw 24x10 --pix argb @a.argb @b.argb -o @o", 1913266638},
      {"transition --code 3 --frames 3 --raw 24x10 --pix abgr @a.abgr @b.abgr -o @o", 1913266638},
      {"transition --code 7 --frames 3 --raw 24x10 --pix uyvy422 @a.uyvy422 @b.uyvy422 -o @o", 601481136},
      {"transition --code 7 --frames 3 --raw 24x10 --pix yuyv422 @a.yuyv422 @b.yuyv422 -o @o", 601481136},
      {"transition --code 0 --frames 3 --raw 24x10 --pix v210 @a.v210 @b.v210 -o @o", 2656635320},
      {"transition --code 0 --frames 3 --raw 24x10 --pix rgb48le @a.rgb48le @b.rgb48le -o @o", 4150409774},
      {"wipe --code 2 --progress 3 --span 7 --raw 24x10 --pix v210 @a.v210 @b.v210 -o @o", 3730253037},
      {"mux --mode crossfade --raw 24x10 --pix bgra @a.bgra @b.bgra -o @o", 903395146},
      {"transition --code 4 --frames 3 @a_C422.y4m @b_C422.y4m -o @o", 808160938},
      {"transition --code 4 --frames 3 --y4m @a_C422p10.y4m @b_C422p10.y4m -o @o", 219193405},
      {"transition --code 0 --frames 3 @a_C444.y4m @b_C444.y4m -o @o", 301928337},
      {"wipe --code 22 --progress 40 @a_C444p10.y4m @b_C444p10.y4m -o @o", 847266529},
  };
  for (const Row& row : rows) EXPECT_EQ(row.crc, Crc(Run(row.args))) << row.args;
}

// Frame k of a transition is the wipe at progress k * S / (F-1) on the scale
// S (65536 unless given), in streams and in PNG mode with --layout; the first frame is A, the last
// B (v210 keeps 8 bits of each sample through the adapter), and a y4m output
// repeats A's header.
TEST_F(Streams, TransitionEndsAndSpan) {
  const size_t uyvy = ParsePixelFormat("uyvy422").FrameBytes(kWidth, kHeight);
  const std::string a = test::ReadFile(dir_ / "a.uyvy422"), b = test::ReadFile(dir_ / "b.uyvy422");
  const std::string t =
      Run("transition --code 1 --frames 5 --span 8 --raw 24x10 --pix uyvy422 @a.uyvy422 "
          "@b.uyvy422 -o @o");
  EXPECT_EQ(a.substr(0, uyvy), t.substr(0, uyvy));
  EXPECT_EQ(b.substr(uyvy), t.substr(4 * uyvy));  // B's last frame is held
  EXPECT_EQ(t.substr(uyvy, uyvy),
            Run("wipe --code 1 --progress 2 --span 8 --raw 24x10 --pix uyvy422 @a.uyvy422 @b.uyvy422 -o @o")
                .substr(uyvy));
  // Without --span the scale is 0 to 65536: frame 1 of 4 plays 21845.
  const size_t rgba = size_t{kWidth} * kHeight * 4;
  EXPECT_EQ(
      Run("transition --code 0 --frames 4 --raw 24x10 @a.rgba @b.rgba -o @o").substr(rgba, rgba),
      Run("wipe --code 0 --progress 21845 --span 65536 --raw 24x10 @a.rgba @b.rgba -o @o").substr(rgba));

  // v210: each 10-bit sample of B's last frame with its low 2 bits cleared,
  // bits 30-31 and the row padding past the 4 groups of 24 pixels as 0.
  const std::string v210 = Run("transition --code 1 --frames 2 --raw 24x10 --pix v210 @a.v210 @b.v210 -o @o");
  std::string b210 = test::ReadFile(dir_ / "b.v210").substr(1280);
  for (size_t i = 0; i < b210.size(); i += 4) {
    uint32_t word = 0;
    for (int k = 0; k < 4; ++k) word |= static_cast<uint32_t>(static_cast<uint8_t>(b210[i + k])) << (8 * k);
    word = i % 128 < 64 ? word & 0x3FCFF3FC : 0;
    for (int k = 0; k < 4; ++k) b210[i + k] = static_cast<char>(word >> (8 * k));
  }
  EXPECT_EQ(b210, v210.substr(1280));

  // PNG mode: --layout as in wipe, --span shared.
  WritePng(dir_ / "a.png", test::RandomFrame(kWidth, kHeight, 5), false);
  WritePng(dir_ / "b.png", test::RandomFrame(kWidth, kHeight, 6), false);
  Run("transition --code 2 --frames 4 --span 10 --layout ycbcr @a.png @b.png -o @f%d.png");
  Run("wipe --code 2 --progress 3 --span 10 --layout ycbcr @a.png @b.png -o @w.png");
  EXPECT_EQ(test::ReadFile(dir_ / "w.png"), test::ReadFile(dir_ / "f1.png"));

  const std::string y4m = Run("transition --code 1 --frames 2 @a_C444.y4m @b_C444.y4m -o @o");
  const std::string b444 = test::ReadFile(dir_ / "b_C444.y4m");
  EXPECT_TRUE(y4m.starts_with("YUV4MPEG2 W24 H10 F30000:1001 Ip A1:1 C444\nFRAME\n"));
  const size_t frame = 3 * kWidth * kHeight;
  EXPECT_EQ(b444.substr(b444.size() - frame), y4m.substr(y4m.size() - frame));
}

// One line on standard error, status 2, and no output file.
TEST_F(Streams, Refusals) {
  struct Row {
    const char* args;
    const char* message;
  };
  const Row rows[] = {
      {"mux --mode average --raw 24x10 --pix uyvy422 @a.uyvy422 @b.uyvy422 -o @o",
       "the mux does not take uyvy"},
      {"mux --mode average @a_C422.y4m @b_C422.y4m -o @o", "the mux does not take C422 frames"},
      {"transition --code 1 --frames 2 --raw 24x10 --pix pixelRGB30DPX @a.rgba @b.rgba -o @o",
       "the transitions do not take pixelRGB30DPX"},
      {"transition --code 1 --frames 2 --raw 23x10 --pix uyvy422 @a.rgba @b.rgba -o @o",
       "uyvy422 frames need a"},
      {"transition --code 1 --frames 2 --layout v210 --raw 24x10 @a.rgba @b.rgba -o @o",
       "--layout is for PNG"},
      {"transition --code 1 --frames 2 --pix rgba @a.rgba @b.rgba -o @o",
       "raw streams need their frame size"},
      {"wipe --code 1 --progress 1 --raw 24x10 @a_C422.y4m @b_C422.y4m -o @o",
       "--raw and --pix do not apply"},
      {"transition --code 1 --frames 2 @It.y4m @b_C422.y4m -o @o", "@It.y4m is not progressive (It)"},
      {"transition --code 1 --frames 2 @420.y4m @b_C422.y4m -o @o", "@420.y4m holds C420jpeg y4m frames"},
      {"transition --code 1 --frames 2 @a_C422.y4m @narrow.y4m -o @o",
       "@a_C422.y4m holds 24x10 C422 frames but"},
      {"transition --code 1 --frames 2 --y4m @a.rgba @b_C422.y4m -o @o", "@a.rgba is not a YUV4MPEG2 stream"},
  };
  for (const Row& row : rows) {
    Run(row.args, 2);
    std::string message = std::string("zrfx: ") + row.message;
    for (size_t at; (at = message.find('@')) != std::string::npos;) message.replace(at, 1, dir_ / "");
    EXPECT_TRUE(last_.err.starts_with(message) && std::count(last_.err.begin(), last_.err.end(), '\n') == 1)
        << row.args << "\n"
        << last_.err;
    EXPECT_FALSE(std::filesystem::exists(dir_ / "o")) << row.args;
  }
}

}  // namespace
}  // namespace zrfx
