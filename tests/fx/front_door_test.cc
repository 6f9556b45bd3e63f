// ZrDraw_DisplayWipe: which effect each wipe number plays, and what reaches
// the picture through the front door.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/test_random.h"
#include "fx/fx_call.h"
#include "fx/wipe_table.h"
#include "late_workers.h"
#include "wipe_model.h"
#include "zrfx.h"

namespace {

using zr::fx::WipeEffectFor;

// The numbers from 1 to 515 that have no effect of their own and play as the
// dissolve, as listed apart from the table itself.
bool ListedAsDissolve(uint32_t n) {
  static constexpr uint32_t kRanges[][2] = {
      {9, 20},    {27, 40},   {49, 60},   {69, 70},   {75, 100},  {115, 118}, {126, 126},
      {132, 200}, {208, 210}, {215, 220}, {229, 230}, {237, 240}, {247, 250}, {255, 260},
      {265, 300}, {307, 309}, {318, 319}, {330, 339}, {346, 349}, {354, 408}, {410, 499}};
  for (const auto& r : kRanges)
    if (n >= r[0] && n <= r[1]) return true;
  return false;
}

// The table's effect for a number, or null when the number is neither in
// the table nor listed as a dissolve.
zrfxEffectFn* Expected(uint32_t n) {
  if (n == 0 || n > 515 || ListedAsDissolve(n)) return zrfxDISSOLVE;
  for (const zr::fx::WipeRange& range : zr::fx::kWipeTable)
    if (n >= range.first && n <= range.last) return range.effect;
  return nullptr;
}

// Each row names the effect that it plays.
TEST(WipeTable, RowsNameTheirEffect) {
  for (const zr::fx::WipeRange& range : zr::fx::kWipeTable) {
    const std::string name = range.name;
    if (range.effect == zrfxSLIDE_Basic) {
      EXPECT_EQ(name, "zrfxSLIDE_Basic");
      continue;
    }
    bool found = false;
    for (const auto& member : zr::test::kWipeMembers)
      if (member.effect == range.effect) {
        found = true;
        EXPECT_EQ(name, std::string("zrfxSMPTE_") + member.name) << "row " << range.first;
      }
    EXPECT_TRUE(found) << "row " << range.first;
  }
  EXPECT_EQ(zr::fx::kWipeDefault.effect, zrfxDISSOLVE);
  EXPECT_STREQ(zr::fx::kWipeDefault.name, "zrfxDISSOLVE");
}

TEST(WipeTable, EveryNumberPlaysItsEffectWhateverTheReverseFlag) {
  for (uint32_t n = 0; n < 1200; ++n) {
    EXPECT_EQ(WipeEffectFor(n), Expected(n)) << "number " << n;
    EXPECT_EQ(WipeEffectFor(n | 0x80000000u), Expected(n)) << "number " << n << " reversed";
  }
  for (uint32_t n : {0x7FFFFFFFu, 0xFFFFFFFFu, 0x80000000u, 0x10000001u, 0x40000000u + 500})
    EXPECT_EQ(WipeEffectFor(n), zrfxDISSOLVE) << std::hex << n;
}

struct Frames {
  static constexpr uint32_t kW = 21, kH = 9, kBpp = 4, kPitch = kW * kBpp;
  std::vector<uint8_t> a, b, d;
  explicit Frames(uint64_t seed) : a(kPitch * kH), b(a.size()), d(a.size()) {
    zr::test::Rng r(seed);
    r.Fill(a.data(), a.size());
    r.Fill(b.data(), b.size());
    r.Fill(d.data(), d.size());
  }
  uint32_t Wipe(uint32_t code, uint32_t format, uint32_t start, uint32_t end, uint32_t progress,
                uint32_t dstPitch = kPitch) {
    const uint32_t result = ZrDraw_DisplayWipe(a.data(), kPitch, b.data(), kPitch, d.data(), dstPitch, code,
                                               format, kW, kH, 0, 0, 0, 0, 0, start, end, progress);
    zr::test::WaitForLateWorkers();
    return result;
  }
  // What the effect does to a copy of dst over the whole picture.
  std::vector<uint8_t> Direct(zrfxEffectFn effect, uint32_t code, uint32_t format, uint32_t start,
                              uint32_t end, uint32_t progress) {
    std::vector<uint8_t> out = d;
    effect(a.data(), kPitch, b.data(), kPitch, out.data(), kPitch, code, format, kW, kH, 0, 0, 0, 0, 0, start,
           end, progress, 0, kW, 0, kH);
    return out;
  }
};

TEST(FrontDoor, UnassignedNumbersPlayTheDissolve) {
  for (uint32_t code : {0u, 9u, 516u, 0x80000000u | 9u, 0xFFFFFFFFu}) {
    Frames f(code);
    const auto want = f.Direct(zrfxDISSOLVE, code, 1, 0, 65536, 20000);
    EXPECT_EQ(f.Wipe(code, 1, 0, 65536, 20000), 0u);
    EXPECT_EQ(f.d, want) << "code " << std::hex << code;
  }
}

// Each number that has an effect of its own, with and without the reverse
// flag, against the per-pixel model over the whole picture.
TEST(FrontDoor, EveryWipeNumberPlaysItsEffectOverTheWholePicture) {
  for (uint32_t number = 1; number <= 515; ++number) {
    zrfxEffectFn* const effect = WipeEffectFor(number);
    if (effect == zrfxDISSOLVE) continue;
    for (uint32_t reverse : {0u, 0x80000000u})
      for (uint32_t progress : {0u, 37u, 100u, 130u}) {
        const uint32_t code = number | reverse;
        Frames f(code * 7 + progress);
        auto want = f.d;
        zr::fx::FxCall c{f.a.data(),  Frames::kPitch,
                         f.b.data(),  Frames::kPitch,
                         want.data(), Frames::kPitch,
                         code,        1,
                         Frames::kW,  Frames::kH,
                         0,           0,
                         0,           0,
                         0,           0,
                         100,         progress,
                         0,           Frames::kW,
                         0,           Frames::kH};
        zr::test::ModelEffect(effect, c);
        EXPECT_EQ(f.Wipe(code, 1, 0, 100, progress), 0u);
        ASSERT_EQ(f.d, want) << "number " << number << (reverse ? " reversed" : "") << " progress "
                             << progress;
      }
  }
}

TEST(FrontDoor, SlideNumbersWithoutAMoveOrWithTheReverseFlagWriteNothing) {
  for (uint32_t code : {508u, 515u, 0x80000000u | 500u, 0x80000000u | 503u}) {
    Frames f(code);
    const auto before = f.d;
    f.Wipe(code, 1, 0, 100, 50);
    EXPECT_EQ(f.d, before) << "code " << std::hex << code;
  }
}

TEST(FrontDoor, FormatInNoGroupWritesNothingButTheSlideTakesItAsFourBytes) {
  std::vector<uint32_t> codes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 21, 22, 23, 24, 25, 26, 41, 102, 516};
  for (uint32_t code = 500; code <= 515; ++code) codes.push_back(code);
  for (uint32_t code : codes) {
    Frames f(code);
    auto want = f.d;
    if (code >= 500 && code <= 507) {
      zr::fx::FxCall c{f.a.data(), 0, f.b.data(), 0, want.data(), 0,   code, 1, Frames::kW, Frames::kH, 0,
                       0,          0, 0,          0, 0,           100, 40,   0, 0,          0,          0};
      zr::test::ModelEffect(zrfxSLIDE_Basic, c);
    }
    f.Wipe(code, 10, 0, 100, 40);
    EXPECT_EQ(f.d, want) << "code " << code;
  }
}

TEST(FrontDoor, StartCountsOnlyThroughTheSpan) {
  // Span 100, progress 100: complete, although the scale "ends" at 110.
  Frames f(7);
  f.Wipe(1, 1, 10, 110, 100);
  EXPECT_EQ(f.d, f.b);
}

TEST(FrontDoor, OutputPitchIsNeverRead) {
  Frames f(8), g(8);
  f.Wipe(3, 1, 0, 100, 60, 0);
  g.Wipe(3, 1, 0, 100, 60, 12345);
  EXPECT_EQ(f.d, g.d);
}

}  // namespace
