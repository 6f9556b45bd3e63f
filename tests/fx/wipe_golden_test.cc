// Golden checksums of every wipe and the slide in every format group: the
// same constants in the SSE and NEON builds, with the sanitizers, and whether
// the picture is done as one band on the calling thread or on the driver.
#include <gtest/gtest.h>

#include "common/crc32.h"
#include "fx_frames.h"

namespace {

constexpr uint32_t kW = 37, kH = 23, kSpan = 65536;
constexpr uint32_t kProgress[] = {0, 1000, 21845, 32768, 65535, 65536, 70000};

struct Golden {
  zrfxEffectFn* effect;
  uint32_t crc[6];  // by zr::test::kGroupFormats
};

// clang-format off
constexpr Golden kGolden[] = {
    {zrfxSMPTE_Horizontal, {0x7C82358F, 0xFD816CA8, 0x4420470D, 0x81E179B0, 0x4A116B77, 0x31476633}},
    {zrfxSMPTE_Vertical, {0x38D43F40, 0xF16BA1A9, 0xA70DFBEF, 0x94B8A7FA, 0x9A132368, 0xB1826376}},
    {zrfxSMPTE_BarnDoorVertical, {0x779F701D, 0x750B0FFD, 0x546C5E83, 0x3424CD5D, 0xC937F4B7, 0x46F67121}},
    {zrfxSMPTE_BarnDoorHorizontal, {0xAC7868C3, 0x3F61F849, 0x2F238504, 0x636D58D2, 0x744A684C, 0x7D1B9769}},
    {zrfxSMPTE_TopLeft, {0x03E952C8, 0x3F9E0539, 0x52D7377C, 0x9F6B4FDF, 0xCA0D50E2, 0x220F1268}},
    {zrfxSMPTE_TopRight, {0xE40C5D03, 0xF9EE46CC, 0x3CCD0D20, 0x79BF5E94, 0x4C893370, 0x80A2601B}},
    {zrfxSMPTE_BottomRight, {0xC0C92E7A, 0x961F7AB1, 0x64573C34, 0x21D53F67, 0x97D9452F, 0x12F7B436}},
    {zrfxSMPTE_BottomLeft, {0xB6EF1D5B, 0xA481F71A, 0xD8D578F6, 0x37562996, 0x03D50202, 0x2CD339C3}},
    {zrfxSMPTE_FourCorners, {0xCC45C498, 0x4911A8B0, 0xAB964C5C, 0x88E1C8DD, 0x82C9066D, 0xE501F100}},
    {zrfxSMPTE_FourSquare, {0x17A2DC46, 0x037B5F04, 0xD0D997DB, 0xDFA85D52, 0x3FB49A96, 0xDEEC1748}},
    {zrfxSMPTE_TopCenter, {0x15F4CD15, 0x1DD3376C, 0x1A1C70D4, 0x0508886B, 0x0E52CA15, 0x62FF3F5D}},
    {zrfxSMPTE_RightCenter, {0x5729F090, 0x884141DA, 0xC2C70ECF, 0xA2366093, 0x5617CDF7, 0x5623B21C}},
    {zrfxSMPTE_BottomCenter, {0x502C8566, 0x5CE4C923, 0xDA9323F4, 0xF986D8B4, 0xC28505DB, 0x01EB7FF5}},
    {zrfxSMPTE_LeftCenter, {0x52190AA6, 0xE92DF521, 0x4E6743D7, 0x2F9FCB19, 0x4F97B7C5, 0xC22967F2}},
    {zrfxSMPTE_Rectangle, {0x00181047, 0x49EE8E53, 0xBCBD6F6C, 0x1D9F650F, 0x60121C24, 0x5D8E7A77}},
    {zrfxSLIDE_Basic, {0x6652C375, 0xAD334342, 0x7BC39F9B, 0x7AC0D313, 0xE2201853, 0xCF11F578}},
};
// clang-format on

// CRC of the outputs at each progress step, each step on fresh inputs in
// rows with 5 bytes of padding; the wipes alternate the reverse flag, the
// slide (packed rows) walks its four directions.
uint32_t Checksum(zrfxEffectFn* effect, uint32_t format, uint32_t bpp, bool driver) {
  const bool slide = effect == zrfxSLIDE_Basic;
  const uint32_t pitch = kW * bpp + (slide ? 0 : 5);
  const size_t bytes = size_t{pitch} * kH;
  std::vector<uint8_t> a(bytes), b(bytes), d(bytes);
  zr::test::Rng r(format * 7919);
  uint32_t crc = 0;
  for (size_t i = 0; i < std::size(kProgress); ++i) {
    for (auto* v : {&a, &b, &d}) r.Fill(v->data(), bytes);
    const uint32_t code = slide ? 500 + i % 4 : (i & 1) << 31;
    zr::test::Run(effect,
                  {a.data(), pitch, b.data(), pitch, d.data(), pitch, code,         format, kW, kH, 0,
                   0,        0,     0,        0,     0,        kSpan, kProgress[i], 0,      kW, 0,  kH},
                  driver);
    crc = zr::test::Crc32(d.data(), bytes, crc);
  }
  return crc;
}

TEST(WipeGolden, EveryMemberInEveryFormatGroupOnOneBandAndOnTheDriver) {
  for (size_t m = 0; m < std::size(kGolden); ++m)
    for (size_t f = 0; f < 6; ++f)
      for (bool driver : {false, true}) {
        const auto [format, bpp] = zr::test::kGroupFormats[f];
        EXPECT_EQ(Checksum(kGolden[m].effect, format, bpp, driver), kGolden[m].crc[f])
            << "row " << m << " format " << format << (driver ? " on the driver" : " as one band");
      }
}

}  // namespace
