// The metafile headers: plain and placeable files, files cut at each header
// boundary, the check value and the descriptor held open until EMFClose.
#include <cstring>
#include <new>

#include "text/temp_files.h"
#include "zrdraw.h"

namespace {

using namespace zr::test;

// A placeable prefix (Right -2, Bottom -32768) with `check`, the 18-byte
// standard header, and one record; or the standard header alone.
Bytes Metafile(bool placeable, uint16_t check) {
  const uint16_t prefix[] = {0xCDD7, 0x9AC6, 0, 0, 0, 0xFFFE, 0x8000, 1440, 0, 0, check};
  const uint16_t header[] = {1, 9, 0x300, 20, 0, 0, 3, 0, 0, 3, 0, 0};
  Bytes b;
  for (uint16_t w : placeable ? std::vector(prefix, prefix + 11) : std::vector<uint16_t>())
    b.push_back(w & 0xFF), b.push_back(w >> 8);
  for (uint16_t w : header) b.push_back(w & 0xFF), b.push_back(w >> 8);
  return b;
}

// The usual check value: the XOR of the prefix's first ten words.
constexpr uint16_t kUsualCheck = 0x2D4F;

// Header storage that lies below the object, so the check walk is empty.
struct Below {
  uint8_t store[40];  // the prefix, then the standard header
  ZrDraw draw;
  Below() {
    std::memset(store, 0xC3, sizeof store);
    draw.mpPlaceableHeader = store;
    draw.mpMetaHeader = store + 22;
  }
};

TEST(Metafile, HeadersAndShortFiles) {
  const Bytes placeable = Metafile(true, 0);
  const struct {
    Bytes file;
    int result;
    size_t place;  // bytes of the prefix read into the storage
    size_t metaAt, meta;
  } cases[] = {
      {Metafile(false, 0), 0, 0, 0, 18},
      {placeable, 0, 22, 22, 18},
      {Metafile(true, kUsualCheck), -1, 22, 0, 0},
      {Cut(placeable, 0), 0, 0, 0, 0},
      {Cut(placeable, 1), -1, 1, 0, 0},
      {Cut(placeable, 21), -1, 21, 0, 0},
      {Cut(placeable, 22), 0, 22, 0, 0},
      {Cut(placeable, 30), 0, 22, 22, 8},
  };
  TempDir dir;
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << "case " << &c - cases);
    Below b;
    const int fds = OpenFds();
    EXPECT_EQ(c.result, b.draw.EMFOpen(dir.Write("a.wmf", c.file).c_str()));
    EXPECT_EQ(fds + 1, OpenFds()) << "the file stays open, on failure too";
    Bytes expected(40, 0xC3);
    std::copy_n(c.file.begin(), c.place, expected.begin());
    std::copy_n(c.file.begin() + c.metaAt, c.meta, expected.begin() + 22);
    EXPECT_EQ(expected, Bytes(b.store, b.store + 40));
    int width = 0, height = 0;
    EXPECT_EQ(0, b.draw.EMFGetSize(width, height));
    EXPECT_EQ(c.place >= 14 ? -2 * 100000 - 32768 : -15421 * 100001, width * 100000 + height);
    EXPECT_EQ(0, b.draw.EMFClose());
    EXPECT_TRUE(fds == OpenFds() && b.draw.mEmfFile == 0);
  }
}

// Storage inside a derived object: the check value is the XOR of the 16-bit
// words from the member that holds the pointer up to the check word.
struct Inside : ZrDraw {
  alignas(2) uint8_t place[22] = {};
  uint8_t meta[18] = {};
};

TEST(Metafile, CheckWalksFromTheMember) {
  alignas(Inside) unsigned char raw[sizeof(Inside)] = {};  // padding stays 0
  Inside* c = new (raw) Inside;
  c->mpPlaceableHeader = c->place;
  c->mpMetaHeader = c->meta;
  Bytes file = Metafile(true, 0);
  std::copy_n(file.begin(), 20, c->place);
  uint16_t check = 0;
  for (auto* p = reinterpret_cast<const uint8_t*>(&c->mpPlaceableHeader); p < c->place + 20; p += 2) {
    check ^= static_cast<uint16_t>(p[0] | p[1] << 8);
  }
  PutLE(file, 20, check, 2);
  TempDir dir;
  EXPECT_EQ(-1, c->EMFOpen(dir.Write("usual.wmf", Metafile(true, kUsualCheck)).c_str()));
  EXPECT_EQ(0, c->EMFOpen(dir.Write("walk.wmf", file).c_str()));
  EXPECT_EQ(0, std::memcmp(c->meta, file.data() + 22, 18));
  c->EMFClose();
  c->~Inside();
}

TEST(Metafile, Descriptors) {
  TempDir dir;
  Below b;
  const int fds = OpenFds();
  EXPECT_EQ(-1, b.draw.EMFOpen((dir.path() + "/none").c_str()));
  EXPECT_EQ(-1, b.draw.mEmfFile);
  EXPECT_EQ(0, b.draw.EMFClose());
  EXPECT_EQ(0, b.draw.mEmfFile);
  const std::string text = dir.Write("a.txt", Bytes(3, 'x'));
  EXPECT_EQ(0, b.draw.EMFOpen(text.c_str()));
  EXPECT_EQ(0, b.draw.EMFOpen(text.c_str()));  // closes the first
  EXPECT_EQ(0, b.draw.EMFOpen(dir.path().c_str()));
  EXPECT_EQ(fds + 1, OpenFds());
  EXPECT_EQ(0, b.draw.EMFDraw(0, 0, 1, 1, true) + b.draw.EMFClose() + b.draw.EMFClose());
  EXPECT_EQ(fds, OpenFds());
}

}  // namespace
