// Golden checksums of every wipe and the slide in every format group: the
// same constants in the SSE and NEON builds, with the sanitizers, and whether
// the picture is done as one band on the calling thread or on the driver.
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "late_workers.h"
#include "wipe_model.h"
#include "zrfx.h"

namespace {

constexpr uint32_t kFormats[] = {1, 5, 31, 32, 29, 30};
constexpr uint32_t kBytes[] = {4, 3, 6, 8, 16, 12};
constexpr uint32_t kW = 37, kH = 23;
constexpr uint32_t kSpan = 65536;
constexpr uint32_t kProgress[] = {0, 1000, 21845, 32768, 65535, 65536, 70000};

// Rows: the members in the order of kWipeMembers; columns: kFormats.
constexpr uint32_t kGolden[16][6] = {
    {0x7C82358F, 0xFD816CA8, 0x4420470D, 0x81E179B0, 0x4A116B77, 0x31476633},
    {0x38D43F40, 0xF16BA1A9, 0xA70DFBEF, 0x94B8A7FA, 0x9A132368, 0xB1826376},
    {0x779F701D, 0x750B0FFD, 0x546C5E83, 0x3424CD5D, 0xC937F4B7, 0x46F67121},
    {0xAC7868C3, 0x3F61F849, 0x2F238504, 0x636D58D2, 0x744A684C, 0x7D1B9769},
    {0x03E952C8, 0x3F9E0539, 0x52D7377C, 0x9F6B4FDF, 0xCA0D50E2, 0x220F1268},
    {0xE40C5D03, 0xF9EE46CC, 0x3CCD0D20, 0x79BF5E94, 0x4C893370, 0x80A2601B},
    {0xC0C92E7A, 0x961F7AB1, 0x64573C34, 0x21D53F67, 0x97D9452F, 0x12F7B436},
    {0xB6EF1D5B, 0xA481F71A, 0xD8D578F6, 0x37562996, 0x03D50202, 0x2CD339C3},
    {0xCC45C498, 0x4911A8B0, 0xAB964C5C, 0x88E1C8DD, 0x82C9066D, 0xE501F100},
    {0x17A2DC46, 0x037B5F04, 0xD0D997DB, 0xDFA85D52, 0x3FB49A96, 0xDEEC1748},
    {0x15F4CD15, 0x1DD3376C, 0x1A1C70D4, 0x0508886B, 0x0E52CA15, 0x62FF3F5D},
    {0x5729F090, 0x884141DA, 0xC2C70ECF, 0xA2366093, 0x5617CDF7, 0x5623B21C},
    {0x502C8566, 0x5CE4C923, 0xDA9323F4, 0xF986D8B4, 0xC28505DB, 0x01EB7FF5},
    {0x52190AA6, 0xE92DF521, 0x4E6743D7, 0x2F9FCB19, 0x4F97B7C5, 0xC22967F2},
    {0x00181047, 0x49EE8E53, 0xBCBD6F6C, 0x1D9F650F, 0x60121C24, 0x5D8E7A77},
    {0x6652C375, 0xAD334342, 0x7BC39F9B, 0x7AC0D313, 0xE2201853, 0xCF11F578},
};

// CRC of the outputs at each progress step, each step on fresh inputs; the
// wipes alternate the reverse flag, the slide walks its four directions.
uint32_t Checksum(zrfxEffectFn effect, uint32_t format, uint32_t bpp, bool driver) {
  const bool slide = effect == zrfxSLIDE_Basic;
  const uint32_t pitch = kW * bpp + (slide ? 0 : 5);
  const size_t bytes = size_t{pitch} * kH;
  std::vector<uint8_t> a(bytes), b(bytes), d(bytes);
  zr::test::Rng r(format * 7919);
  uint32_t crc = 0;
  for (size_t i = 0; i < std::size(kProgress); ++i) {
    r.Fill(a.data(), bytes);
    r.Fill(b.data(), bytes);
    r.Fill(d.data(), bytes);
    const uint32_t code = slide ? 500 + i % 4 : (i & 1) << 31;
    if (driver) {
      ZrDraw_FXMultiThread(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, format, kW, kH, 0, 0, 0,
                           0, 0, 0, kSpan, kProgress[i], 0, 0, 0, 0, effect);
      zr::test::WaitForLateWorkers();
    } else {
      effect(a.data(), pitch, b.data(), pitch, d.data(), pitch, code, format, kW, kH, 0, 0, 0, 0, 0, 0, kSpan,
             kProgress[i], 0, kW, 0, kH);
    }
    crc = zr::test::Crc32(d.data(), bytes, crc);
  }
  return crc;
}

TEST(WipeGolden, EveryMemberInEveryFormatGroupOnOneBandAndOnTheDriver) {
  bool allMatch = true;
  char table[4096] = {};
  size_t used = 0;
  for (size_t m = 0; m < std::size(zr::test::kWipeMembers); ++m) {
    const auto& member = zr::test::kWipeMembers[m];
    used += std::snprintf(table + used, sizeof table - used, "    {");
    for (size_t f = 0; f < std::size(kFormats); ++f) {
      const uint32_t oneBand = Checksum(member.effect, kFormats[f], kBytes[f], false);
      const uint32_t onDriver = Checksum(member.effect, kFormats[f], kBytes[f], true);
      EXPECT_EQ(oneBand, kGolden[m][f]) << member.name << " format " << kFormats[f] << " as one band";
      EXPECT_EQ(onDriver, kGolden[m][f]) << member.name << " format " << kFormats[f] << " on the driver";
      allMatch &= oneBand == kGolden[m][f] && onDriver == kGolden[m][f];
      used +=
          std::snprintf(table + used, sizeof table - used, "0x%08X%s", oneBand, f + 1 < 6 ? ", " : "},\n");
    }
  }
  if (!allMatch) std::printf("Checksums of this build:\n%s", table);
}

}  // namespace
