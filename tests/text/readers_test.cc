// The bitmap and PNG readers and the default-font search, on small files
// built here: cut at each header boundary, with lying sizes, missing or a
// directory. No read may leave a descriptor open.
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "platform/zrutil.h"
#include "text/temp_files.h"
#include "zrdraw.h"

namespace {

using namespace zr::test;

Bytes Ramp(size_t n, int step = 7) {
  Bytes b(n);
  for (size_t i = 0; i < n; ++i) b[i] = static_cast<uint8_t>(i * step + 1);
  return b;
}

// A bitmap with `pixels` at `offset`, any gap after the 54 header bytes
// filled with another ramp, and 7 important colours.
Bytes Bmp(uint32_t width, uint32_t height, uint32_t bits, uint32_t compression, uint32_t size,
          uint32_t offset, const Bytes& pixels) {
  Bytes b = Ramp(offset, 13);
  b.resize(54);
  b.resize(std::max<size_t>(54, offset));
  b.insert(b.end(), pixels.begin(), pixels.end());
  b[0] = 'B', b[1] = 'M';
  const uint32_t fields[] = {offset, 40, width, height, 1 | bits << 16, compression, size, 2835, 2835, 0, 7};
  for (int i = 0; i < 11; ++i) PutLE(b, 10 + 4 * i, fields[i], 4);
  return b;
}

// A chunk whose length field says `length` and which holds `actual` bytes.
Bytes Chunk(const char* type, uint32_t length, size_t actual) {
  Bytes b(8);
  for (int i = 0; i < 4; ++i) b[i] = static_cast<uint8_t>(length >> (24 - 8 * i)), b[4 + i] = type[i];
  const Bytes payload = Ramp(actual + 4);
  b.insert(b.end(), payload.begin(), payload.end());
  return b;
}

Bytes Png(std::vector<Bytes> chunks) {
  Bytes b = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
  chunks.insert(chunks.begin(), Chunk("IHDR", 13, 13));
  for (const Bytes& c : chunks) b.insert(b.end(), c.begin(), c.end());
  return b;
}

template <class Read>
int NoFdLeft(Read read) {
  const int before = OpenFds();
  const int result = read();
  EXPECT_EQ(before, OpenFds()) << "a descriptor stayed open";
  return result;
}

TEST(Readers, Bitmap) {
  const Bytes valid = Bmp(3, 2, 24, 0, 0, 54, Ramp(18));
  const struct {
    Bytes file;
    int result;
    bool copied;
    uint32_t size;
    size_t read;
  } cases[] = {
      {Bmp(3, 2, 24, 0, 0, 54, Ramp(20)), 0, true, 18, 18},  // size from the dimensions, unpadded
      {Bmp(3, 2, 24, 0, 5, 54, Ramp(20)), 0, true, 5, 5},
      {Bmp(3, 2, 24, 0, 0, 0x136, Ramp(20)), 0, true, 18, 18},  // read from 0x36
      {Bmp(3, 2, 0x118, 0, 0, 54, Ramp(20)), 0, true, 18, 18},
      {Bmp(3, 2, 32, 0, 0, 54, Ramp(24)), -1, true, 0, 0},
      {Bmp(3, 2, 24, 1, 0, 54, Ramp(18)), -1, true, 0, 0},
      {Bmp(0x55555556, 1, 24, 0, 0, 54, Ramp(9)), 0, true, 2, 2},  // 32-bit wrap
      {Bmp(1, 1, 24, 0, 0xFFFFFFFF, 54, Ramp(0x100040)), 0, true, 0xFFFFFFFF, 0x100000},
      {Set(valid, 14, "\x29"), -1, false, 0, 0},
      {Set(valid, 15, "\x01"), 0, true, 18, 18},  // only the low byte of the info size is tested
      {Set(valid, 0, "BA"), -1, false, 0, 0},
      {Cut(valid, 0), -1, false, 0, 0},
      {Cut(valid, 2), -1, false, 0, 0},
      {Cut(valid, 14), -1, false, 0, 0},
      {Cut(valid, 15), -1, true, 0, 0},
      {Cut(valid, 30), 0, true, 18, 0},
      {Cut(valid, 54), 0, true, 18, 0},
      {Cut(valid, 71), 0, true, 18, 17},
  };
  TempDir dir;
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << "case " << &c - cases);
    std::memset(&pImgHdr, 0x5A, sizeof pImgHdr);
    std::memset(data, 0xEE, sizeof data);
    const std::string path = dir.Write("a.bmp", c.file);
    EXPECT_EQ(c.result, NoFdLeft([&] { return ZrDraw().ExtractBMPData(path.c_str()); }));
    EXPECT_EQ(c.copied ? 0u : 0x5A5A5A5Au, pImgHdr.clrImportant);
    if (c.copied && c.file.size() >= 30) {
      EXPECT_EQ(c.file[28], pImgHdr.bitCount & 0xFF);
    }
    if (c.result == 0) {
      EXPECT_EQ(c.size, pImgHdr.sizeImage);
    }
    if (c.read != 0) {
      EXPECT_EQ(0, std::memcmp(data, c.file.data() + c.file[10], c.read));
    }
    if (c.read < sizeof data) {
      EXPECT_EQ(0xEE, data[c.read]);
    }
  }
  const std::string readOnly = dir.Write("r.bmp", valid);
  chmod(readOnly.c_str(), 0444);
  if (geteuid() != 0) {  // the owner of every file could open it for writing
    EXPECT_EQ(-1, NoFdLeft([&] { return ZrDraw().ExtractBMPData(readOnly.c_str()); }));
  }
  EXPECT_EQ(-1, NoFdLeft([&] { return ZrDraw().ExtractBMPData((dir.path() + "/none").c_str()); }));
  EXPECT_EQ(-1, NoFdLeft([&] { return ZrDraw().ExtractBMPData(dir.path().c_str()); }));
}

TEST(Readers, Png) {
  const Bytes valid = Png({Chunk("IDAT", 10, 10), Chunk("IEND", 0, 0)});
  const struct {
    Bytes file;
    int result;
  } cases[] = {
      {valid, 0},
      {Png({Chunk("tEXt", 5, 5), Chunk("IDAT", 70000, 70000), Chunk("IDAT", 40000, 40000),
            Chunk("IEND", 0, 0)}),
       0},
      {Cut(Png({Chunk("IEND", 0, 0)}), 41), 0},  // no check value after "IEND"
      {Png({Chunk("IDAT", 10, 10)}), -1},        // no "IEND": ends at end of file
      {Png({Chunk("IDAT", 0xFFFFFFF0, 10), Chunk("IEND", 0, 0)}), -1},
      {Png({Chunk("tEXt", 0xFFFFFFFF, 10), Chunk("IEND", 0, 0)}), -1},
      {Png({Chunk("IDAT", 2, 10), Chunk("IEND", 0, 0)}), -1},
      {Set(valid, 12, "IDAT"), -1},
      {Set(valid, 11, "\x0E"), -1},
      {Set(valid, 1, "Q"), -1},
      {Cut(valid, 15), -1},
      {Cut(valid, 33), -1},
      {Cut(valid, 41), -1},
      {Cut(valid, valid.size() - 13), -1},
  };
  TempDir dir;
  for (const auto& c : cases) {
    const std::string path = dir.Write("a.png", c.file);
    EXPECT_EQ(c.result, NoFdLeft([&] { return ZrDraw().ExtractPNGData(path.c_str()); }))
        << "case " << &c - cases;
  }
  EXPECT_EQ(-1, NoFdLeft([&] { return ZrDraw().ExtractPNGData((dir.path() + "/none").c_str()); }));
  EXPECT_EQ(-1, NoFdLeft([&] { return ZrDraw().ExtractPNGData(dir.path().c_str()); }));
}

// Each width asks for one name; the file is looked for beside the program,
// then under two fixed install paths, which here are file names relative to
// the working directory.
TEST(Readers, DefaultFontSearch) {
  TempDir dir;
  const std::string cwd = std::filesystem::current_path();
  ASSERT_EQ(0, chdir(dir.path().c_str()));
  char appDir[4096] = {};
  zrOSGetAppDir(appDir);
  const std::string places[] = {std::string(appDir) + "deffont_sd.bmp", "E:\\velmora\\bin\\deffont_720.bmp",
                                "C:\\Program Files (x86)\\Velmora\\deffont_1080.bmp"};
  const unsigned widths[] = {720, 721, 1280, 1281};
  const int expected[3][4] = {{0, 1, 1, 1}, {1, 0, 0, 1}, {1, 1, 1, 0}};
  ZrDraw d;
  for (int p = 0; p < 3; ++p) {
    std::ofstream(places[p]).put('x');
    for (int w = 0; w < 4; ++w) {
      d.mWidth = widths[w];
      d.mbUseBuiltInFont = !expected[p][w];
      EXPECT_EQ(expected[p][w], d.UseDefaultFont(false)) << places[p] << " " << widths[w];
      EXPECT_EQ(expected[p][w] == 1, d.mbUseBuiltInFont);
      d.mbUseBuiltInFont = false;
      EXPECT_EQ(1, d.UseDefaultFont(true));
      EXPECT_TRUE(d.mbUseBuiltInFont);
    }
    std::filesystem::remove(places[p]);
  }
  EXPECT_EQ(0, chdir(cwd.c_str()));
}

}  // namespace
