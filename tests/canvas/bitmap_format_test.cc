// The bitmap format table: GetDrawSize against a small model built from the
// four-character names of the codes, and GetDraw from a record.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "common/test_random.h"
#include "zrdraw.h"

namespace {

using zr::test::Rng;

uint32_t Code(const char* s) {
  return uint32_t(uint8_t(s[0])) | uint32_t(uint8_t(s[1])) << 8 | uint32_t(uint8_t(s[2])) << 16 |
         uint32_t(uint8_t(s[3])) << 24;
}

// Each code by its bytes in memory, lowest address first, and its group.
std::map<uint32_t, std::string> Groups() {
  std::map<uint32_t, std::string> g;
  const auto add = [&](const std::string& group, std::vector<const char*> names) {
    for (const char* n : names) g[Code(n)] = group;
  };
  add("A", {"BW10", "BT20", "CC12", "YC12", "V422", "RGB2", "AUR2", "V655", "YUV8", "RGBA", "CPLA", "IUVA",
            "84GB", "46GB", "84GR", "46GR", "RGBT", "BTCV", "IRAW", "84YX", "46YX", "CYUY", "VDTZ"});
  add("B", {"I420", "Y211", "YV12", "YUV4", "IF09", "YVU9", "CLPL", "Y41P", "CLJR", "Y41T", "Y42T", "IYUV",
            "r84b", "a46b", "612v", "803v", "014v", "024y", "4vuy"});
  add("C", {"dv50", "yuV2", "auv2", "yuv2", "80d3", "dv25", "MMES", "UYNV", "UYVY", "1cva", "dvhd", "dvsd",
            "n1vd", "p1vd", "n5vd", "p5vd", " cvd", "pcvd", "nfvd", "pfvd", "2hvd", "3hvd", "5hvd", "6hvd",
            "phvd", "qhvd", "npvd", "ppvd", "mpeg", "dvcp", "52dv", "05dv", "cyuv", "ctrw", "2Vuy", "2vuy"});
  add("D", {"YUY2", "YUNV"});
  add("YVYU", {"YVYU"});
  add("E", {"v210", "01d3", "012v", "a12v"});
  add("F", {"21ia", "31ia", "51ia", "61ia", "p1ia", "q1ia", "25ia", "35ia", "55ia", "65ia", "p5ia", "q5ia"});
  add("G", {"03d3", "R01L", "RF1L", "R04L", "RF4L", "L10R", "L40R", "g01R", "k01R", "L1FR", "L4FR"});
  add("23d3", {"23d3"});
  add("H", {"1SCA", "2SCA", "ccCA", "gcCA", "tcCA", "xpCA", "61lf"});
  add("I21", {"si2k", "bggr"});
  add("I22", {"rggb", "CBYR", "DBYR", "PBYR"});
  add("I23", {"gbrg"});
  add("I24", {"grbg", "Vcva"});
  add("I25", {"BGGR", "BGGc"});
  add("I26", {"RGGB", "RGGc"});
  add("I27", {"GBRG", "GBRc"});
  add("I28", {"GRBG", "GRBc"});
  add("RYBP", {"RYBP"});
  add("hcpa", {"hcpa", "ncpa"});
  add("ocpa", {"ocpa", "scpa"});
  add("h4pa", {"h4pa"});
  g[0] = "A";
  g[3] = "mask";
  return g;
}

struct Expect {
  bool typeWritten = false;
  unsigned int type = 0;
  uint16_t bits = 0;
  uint32_t result = 0;
  uint32_t sizeImage = 0;
};

Expect Model(const std::map<uint32_t, std::string>& groups, const tagBITMAPINFO& in) {
  const BITMAPINFOHEADER& h = in.bmiHeader;
  const uint32_t w = uint32_t(h.biWidth);
  const uint32_t ah = h.biHeight < 0 ? 0u - uint32_t(h.biHeight) : uint32_t(h.biHeight);
  const uint32_t wh = w * ah;
  Expect e;
  e.bits = h.biBitCount;
  uint32_t size = 0;
  bool overwrite = false;
  const auto set = [&](unsigned int type, uint32_t s) {
    e.typeWritten = true;
    e.type = type;
    size = s;
  };
  const auto generic = [&](uint16_t bits) {
    if (bits == 8)
      set(0xFFFFFFFF, 0);
    else if (bits == 15 || bits == 16)
      set(1, 2 * wh);
    else if (bits == 24)
      set(6, 3 * wh);
    else if (bits == 48)
      set(32, 6 * wh);
    else if (bits == 64)
      set(32, 8 * wh);
    else
      set(3, 4 * wh);
  };
  const auto it = groups.find(h.biCompression);
  const std::string g = it == groups.end() ? "" : it->second;
  const uint16_t bits = h.biBitCount;
  if (g == "A")
    generic(bits);
  else if (g == "B")
    set(0xFFFFFFFF, 0);
  else if (g == "C" || g == "D" || g == "YVYU") {
    set(g == "C" ? 11 : g == "D" ? 10 : 12, 2 * wh);
    e.bits = 16;
  } else if (g == "E") {
    set(14, 16 * wh / 6);
    e.bits = 16;
  } else if (g == "F") {
    set(14, 2 * wh);
    e.bits = 16;
  } else if (g == "G") {
    set(20, 0);
    e.bits = 30;
  } else if (g == "23d3") {
    generic(32);
    e.bits = 32;
  } else if (g == "H") {
    set(bits == 48 ? 37 : 38, bits == 48 ? w * 6 : w * 8);
    overwrite = true;
  } else if (g[0] == 'I') {
    set(std::stoi(g.substr(1)), 3 * wh / 2);
    e.bits = 12;
    overwrite = true;
  } else if (g == "RYBP") {
    set(22, 4 * wh / 3);
    e.bits = 10;
    overwrite = true;
  } else if (g == "hcpa") {
    set(bits == 8 ? 11 : 14, 16 * wh / 6);
    e.bits = 16;
  } else if (g == "ocpa") {
    set(bits == 10 ? 14 : 11, 2 * wh);
    e.bits = 16;
  } else if (g == "h4pa") {
    if (bits == 48)
      set(31, 6 * wh);
    else
      generic(bits);
  } else if (g == "mask") {
    if (bits == 24)
      set(6, 3 * wh);
    else if (bits == 15 || bits == 16)
      set(0xFFFFFFFF, 2 * wh);
    else
      set(2, 4 * wh);
    const uint8_t* mask = reinterpret_cast<const uint8_t*>(in.bmiColors);
    for (unsigned int k = 0; k < 4; ++k)
      if (mask[k]) {
        e.type = bits == 24 ? (k < 2 ? 5 : 6) : k + 1;
        break;
      }
  }
  const uint32_t given = overwrite ? size : h.biSizeImage;
  e.result = size > given ? size : given;
  e.sizeImage = given == 0 ? e.result : given;
  return e;
}

tagBITMAPINFO Record(uint32_t code, int32_t w, int32_t h, uint16_t bits, uint32_t sizeImage = 0) {
  tagBITMAPINFO b;
  std::memset(&b, 0, sizeof b);
  b.bmiHeader.biSize = 40;
  b.bmiHeader.biWidth = w;
  b.bmiHeader.biHeight = h;
  b.bmiHeader.biPlanes = 1;
  b.bmiHeader.biBitCount = bits;
  b.bmiHeader.biCompression = code;
  b.bmiHeader.biSizeImage = sizeImage;
  return b;
}

TEST(BitmapFormat, NamesAndNumbersAgree) {
  const auto groups = Groups();
  EXPECT_EQ(0x59565955u, Code("UYVY"));
  EXPECT_EQ(0x64766320u, Code(" cvd"));
  EXPECT_EQ(0x30313276u, Code("v210"));
  EXPECT_EQ(141u, groups.size());
}

TEST(BitmapFormat, MatchesModelOnRandomRecords) {
  const auto groups = Groups();
  std::vector<uint32_t> codes;
  for (const auto& g : groups) codes.push_back(g.first);
  const uint16_t depths[] = {0, 1, 4, 8, 10, 12, 15, 16, 24, 30, 32, 48, 64, 65535};
  Rng rng(0xB1F0);
  for (int i = 0; i < 40000; ++i) {
    const uint32_t code = rng.Below(8) ? codes[rng.Below(codes.size())] : rng.Next32();
    const int32_t w = rng.Below(4) ? int32_t(rng.Below(5000)) : int32_t(rng.Next32());
    const int32_t h = rng.Below(4) ? int32_t(rng.Below(5000)) - 2500 : int32_t(rng.Next32());
    const uint16_t bits = rng.Below(8) ? depths[rng.Below(14)] : uint16_t(rng.Next32());
    const uint32_t sizeImage = rng.Next32();
    const uint32_t shift = rng.Below(32);
    tagBITMAPINFO in = Record(code, w, h, bits, rng.Below(2) ? 0 : sizeImage >> shift);
    uint32_t mask = rng.Next32();
    for (int k = 0; k < 4; ++k)
      if (rng.Below(2)) mask &= ~(0xFFu << (8 * k));
    std::memcpy(in.bmiColors, &mask, 4);
    const Expect e = Model(groups, in);

    tagBITMAPINFO out = in;
    const uint32_t size = GetDrawSize(&out, nullptr);
    SCOPED_TRACE("seed 0xB1F0 record " + std::to_string(i) + " code " + std::to_string(code));
    ASSERT_EQ(e.result, size);
    ASSERT_EQ(e.bits, out.bmiHeader.biBitCount);
    ASSERT_EQ(e.sizeImage, out.bmiHeader.biSizeImage);
    // Nothing else of the record changes.
    out.bmiHeader.biBitCount = in.bmiHeader.biBitCount;
    out.bmiHeader.biSizeImage = in.bmiHeader.biSizeImage;
    ASSERT_EQ(0, std::memcmp(&in, &out, sizeof in));

    unsigned int written = 0xC0FFEE;
    tagBITMAPINFO again = in;
    GetDrawSize(&again, &written);
    ASSERT_EQ(e.typeWritten ? e.type : 0xC0FFEEu, written);
  }
}

TEST(BitmapFormat, DocumentedCases) {
  unsigned int type = 0;
  tagBITMAPINFO b = Record(Code("UYVY"), 1920, 1080, 24);
  EXPECT_EQ(4147200u, GetDrawSize(&b, &type));
  EXPECT_EQ(11u, type);
  EXPECT_EQ(16, b.bmiHeader.biBitCount);
  EXPECT_EQ(4147200u, b.bmiHeader.biSizeImage);

  b = Record(Code("v210"), 1920, 1080, 0);
  EXPECT_EQ(5529600u, GetDrawSize(&b, &type));
  EXPECT_EQ(14u, type);
  b = Record(Code("v210"), 1921, 3, 0);
  EXPECT_EQ(15368u, GetDrawSize(&b, &type));

  b = Record(Code("UYVY"), 4, 4, 16, 10);
  EXPECT_EQ(32u, GetDrawSize(&b, &type));
  EXPECT_EQ(10u, b.bmiHeader.biSizeImage);
  b = Record(Code("UYVY"), 4, 4, 16, 1000);
  EXPECT_EQ(1000u, GetDrawSize(&b, &type));

  b = Record(Code("L10R"), 64, 64, 0);
  EXPECT_EQ(0u, GetDrawSize(&b, &type));
  EXPECT_EQ(20u, type);

  b = Record(Code("1SCA"), 1920, 5, 48);
  EXPECT_EQ(11520u, GetDrawSize(&b, &type));
  EXPECT_EQ(37u, type);
  b = Record(Code("1SCA"), 1920, 500, 48, 99999999);
  EXPECT_EQ(11520u, GetDrawSize(&b, &type));
  EXPECT_EQ(11520u, b.bmiHeader.biSizeImage);

  b = Record(3, 10, -10, 32);
  const uint8_t mask[4] = {0, 0, 255, 0};
  std::memcpy(b.bmiColors, mask, 4);
  EXPECT_EQ(400u, GetDrawSize(&b, &type));
  EXPECT_EQ(3u, type);
  b = Record(3, 10, 10, 16);
  EXPECT_EQ(200u, GetDrawSize(&b, &type));
  EXPECT_EQ(0xFFFFFFFFu, type);

  for (uint16_t bits : {8, 24, 32}) {
    b = Record(0, 10, 10, bits);
    GetDrawSize(&b, &type);
    EXPECT_EQ(bits == 8 ? 0xFFFFFFFFu : bits == 24 ? 6u : 3u, type);
  }
  EXPECT_EQ(0u, GetDrawSize(1, 640, 480, 0));
}

TEST(BitmapFormat, GetDrawFromRecord) {
  std::vector<char> mem(10 * 7 * 4);
  ZrDraw* c = nullptr;
  tagBITMAPINFO b = Record(0, 10, -7, 32);
  ASSERT_EQ(0, GetDraw(&b, mem.data(), c));
  ASSERT_NE(nullptr, dynamic_cast<CDrawRGBA32*>(c));
  EXPECT_EQ(pixelBGRA32, c->mPixelType);
  EXPECT_EQ(10u, c->mWidth);
  EXPECT_EQ(7u, c->mHeight);
  EXPECT_FALSE(c->mbBottomUp);  // a negative height never reaches SetCanvas
  EXPECT_EQ(40u, c->mPitch);
  EXPECT_TRUE(c->mbUseBuiltInFont);
  EXPECT_EQ(280u, b.bmiHeader.biSizeImage);
  ReleaseDraw(c);

  // Failure nulls the handle and still rewrites the record.
  c = reinterpret_cast<ZrDraw*>(uintptr_t{0x40});
  b = Record(0, 10, 7, 8);
  EXPECT_EQ(-1, GetDraw(&b, mem.data(), c));
  EXPECT_EQ(nullptr, c);
  b = Record(Code("L10R"), 10, 7, 0);
  EXPECT_EQ(-1, GetDraw(&b, mem.data(), c));
  EXPECT_EQ(30, b.bmiHeader.biBitCount);
  b = Record(Code("UYVY"), 0, 7, 16);
  EXPECT_EQ(-1, GetDraw(&b, mem.data(), c));
  b = Record(Code("YUY2"), 10, 7, 16, 0xFFFFFFFF);
  EXPECT_EQ(-1, GetDraw(&b, mem.data(), c));

  b = Record(3, 10, 7, 24);
  const uint8_t mask[4] = {0, 9, 0, 0};
  std::memcpy(b.bmiColors, mask, 4);
  EXPECT_NE(nullptr, c = qtGetDrawBMI(&b, mem.data()));
  EXPECT_EQ(pixelRGB24, c->mPixelType);
  EXPECT_EQ(30u, c->mPitch);
  ReleaseDraw(c);
  b = Record(0, 10, 7, 8);
  EXPECT_EQ(nullptr, qtGetDrawBMI(&b, mem.data()));
}

}  // namespace
