// A zero progress span: the division by zero faults on x86-64, on the worker
// that divides, and reads as 0 on arm64. The members that test their band
// before they divide pass silently on both.
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <vector>

#include "common/test_random.h"
#include "fx/fx_call.h"
#include "platform/int_divide.h"
#include "wipe_model.h"
#include "zrfx.h"

namespace {

using zr::platform::DivideOrFault;

TEST(IntDivide, NonZeroDivisorsDivideAsUnsigned) {
  zr::test::Rng r(99);
  for (int i = 0; i < 10000; ++i) {
    const uint32_t num = r.Next32(), den = r.Below(4) ? r.Next32() | 1 : 1 + r.Below(9);
    ASSERT_EQ(DivideOrFault(num, den), num / den);
  }
  EXPECT_EQ(DivideOrFault(0xFFFFFFFF, 1), 0xFFFFFFFFu);
}

constexpr uint32_t kW = 12, kH = 6, kPitch = kW * 4;

// Calls the effect with a zero span (start = end = 50).
void CallWithZeroSpan(zrfxEffectFn effect, uint32_t code, uint32_t format, uint32_t h, uint32_t left,
                      uint32_t right, uint32_t top, uint32_t bottom, uint8_t* a, uint8_t* b, uint8_t* d) {
  effect(a, kPitch, b, kPitch, d, kPitch, code, format, kW, h, 0, 0, 0, 0, 0, 50, 50, 7, left, right, top,
         bottom);
}

// The members that pass a zero span silently: an empty row range for the
// edges from the left and the top (and a band off column 0 for the latter),
// a slide with nothing to do or no rows, any format in no group.
TEST(ZeroSpan, MembersThatTestFirstPassSilently) {
  std::vector<uint8_t> a(kPitch * kH, 1), b(a.size(), 2), d(a.size(), 3);
  const auto before = d;
  CallWithZeroSpan(zrfxSMPTE_Horizontal, 0, 1, kH, 0, kW, 4, 4, a.data(), b.data(), d.data());
  CallWithZeroSpan(zrfxSMPTE_Vertical, 0, 1, kH, 0, kW, 5, 2, a.data(), b.data(), d.data());
  CallWithZeroSpan(zrfxSMPTE_Vertical, 0, 1, kH, 1, kW, 0, kH, a.data(), b.data(), d.data());
  CallWithZeroSpan(zrfxSLIDE_Basic, 500, 1, kH, 1, kW, 0, kH, a.data(), b.data(), d.data());
  CallWithZeroSpan(zrfxSLIDE_Basic, 508, 1, kH, 0, kW, 0, kH, a.data(), b.data(), d.data());
  CallWithZeroSpan(zrfxSLIDE_Basic, 501, 1, 0, 0, kW, 0, kH, a.data(), b.data(), d.data());
  for (const auto& m : zr::test::kWipeMembers)
    if (m.effect != zrfxSLIDE_Basic)
      CallWithZeroSpan(m.effect, 0, 7, kH, 0, kW, 0, kH, a.data(), b.data(), d.data());
  EXPECT_EQ(d, before);
}

#if defined(__x86_64__)

void ReportFaultAndExit(int, siginfo_t* info, void*) {
  char name[16] = {};
  pthread_getname_np(pthread_self(), name, sizeof name);
  char line[64];
  const int n = std::snprintf(line, sizeof line, "SIGFPE %s on %s\n",
                              info->si_code == FPE_INTDIV ? "FPE_INTDIV" : "other", name);
  static_cast<void>(write(STDERR_FILENO, line, n));
  _exit(3);
}

void InstallFaultReporter() {
  struct sigaction sa = {};
  sa.sa_sigaction = ReportFaultAndExit;
  sa.sa_flags = SA_SIGINFO;
  sigaction(SIGFPE, &sa, nullptr);
  pthread_setname_np(pthread_self(), "caller");
}

class ZeroSpanDeathTest : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

#if !defined(__SANITIZE_ADDRESS__)
// The sanitizers catch the signal themselves; here it goes unhandled.
TEST_F(ZeroSpanDeathTest, DivisionByZeroKillsWithTheProcessorsSignal) {
  EXPECT_EXIT(DivideOrFault(7, 0), testing::KilledBySignal(SIGFPE), "");
}
#endif

TEST_F(ZeroSpanDeathTest, FaultsOnTheWorkerThatDivides) {
  std::vector<uint8_t> a(kPitch * kH), b(a.size()), d(a.size());
  EXPECT_EXIT(
      {
        InstallFaultReporter();
        ZrDraw_DisplayWipe(a.data(), kPitch, b.data(), kPitch, d.data(), kPitch, 3, 1, kW, kH, 0, 0, 0, 0, 0,
                           50, 50, 7);
      },
      testing::ExitedWithCode(3), "SIGFPE FPE_INTDIV on dffx");
}

// All but the edges from the left and the top divide before they test the
// band, so even an empty band faults; the slide's vertical moves divide
// before any copy and the sideways ones after the first.
TEST_F(ZeroSpanDeathTest, MembersThatDivideFirstFaultEvenOnAnEmptyBand) {
  std::vector<uint8_t> a(kPitch * kH), b(a.size()), d(a.size());
  for (const auto& m : zr::test::kWipeMembers) {
    if (m.effect == zrfxSMPTE_Horizontal || m.effect == zrfxSMPTE_Vertical) continue;
    const bool slide = m.effect == zrfxSLIDE_Basic;
    for (uint32_t code : {500u, 501u}) {
      if (!slide && code == 501) continue;
      EXPECT_EXIT(
          {
            InstallFaultReporter();
            CallWithZeroSpan(m.effect, code, 1, kH, 0, 0, 0, 0, a.data(), b.data(), d.data());
          },
          testing::ExitedWithCode(3), "SIGFPE FPE_INTDIV on caller")
          << m.name << " " << code;
    }
  }
}

#else

TEST(ZeroSpan, DivisionByZeroReadsAsZero) {
  EXPECT_EQ(DivideOrFault(7, 0), 0u);
  EXPECT_EQ(DivideOrFault(0xFFFFFFFF, 0), 0u);
}

// Every scaled length reads as 0, so each member shows its progress-0 shape.
TEST(ZeroSpan, EveryMemberActsAsAtProgressZero) {
  zr::test::Rng r(5);
  for (const auto& m : zr::test::kWipeMembers)
    for (uint32_t code : {0u, 0x80000000u, 500u, 501u, 503u}) {
      std::vector<uint8_t> a(kPitch * kH), b(a.size()), d(a.size());
      r.Fill(a.data(), a.size());
      r.Fill(b.data(), b.size());
      r.Fill(d.data(), d.size());
      auto want = d;
      zr::fx::FxCall c{a.data(), kPitch, b.data(), kPitch, want.data(), kPitch, code, 1, kW, kH, 0,
                       0,        0,      0,        0,      50,          50,     7,    0, kW, 0,  kH};
      zr::test::ModelEffect(m.effect, c);
      CallWithZeroSpan(m.effect, code, 1, kH, 0, kW, 0, kH, a.data(), b.data(), d.data());
      EXPECT_EQ(d, want) << m.name << " code " << code;
    }
}

#endif

}  // namespace
