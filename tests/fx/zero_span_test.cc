// A zero progress span: the division by zero faults on x86-64, on the worker
// that divides, and reads as 0 on arm64. The members that test their band
// before they divide pass silently on both.
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>

#include "fx_frames.h"

namespace {

constexpr uint32_t kW = 12, kH = 6, kPitch = kW * 4;

// All but the edges from the left and the top divide before they test the band.
// clang-format off
constexpr zrfxEffectFn* kDivideFirst[] = {
    zrfxSMPTE_BarnDoorVertical, zrfxSMPTE_BarnDoorHorizontal, zrfxSMPTE_TopLeft, zrfxSMPTE_TopRight,
    zrfxSMPTE_BottomRight, zrfxSMPTE_BottomLeft, zrfxSMPTE_FourCorners, zrfxSMPTE_FourSquare, zrfxSMPTE_TopCenter,
    zrfxSMPTE_RightCenter, zrfxSMPTE_BottomCenter, zrfxSMPTE_LeftCenter, zrfxSMPTE_Rectangle, zrfxSLIDE_Basic};
// clang-format on

// Start = end = 50, progress 7, band columns from `left`, rows top..bottom.
zr::fx::FxCall ZeroSpan(zr::test::Frames& f, uint32_t code, uint32_t format, uint32_t h, uint32_t left,
                        uint32_t top, uint32_t bottom) {
  auto c = f.Call(kPitch, code, format, kW, h, 50, 7);
  c.progressStart = 50, c.bandLeft = left, c.bandTop = top, c.bandBottom = bottom;
  return c;
}

// An empty row range for the edges from the left and the top (and a band off
// column 0 for the latter), a slide with nothing to do or no rows, any
// format in no group.
TEST(ZeroSpan, MembersThatTestFirstPassSilently) {
  zr::test::Frames f(kPitch * kH, 3);
  const auto before = f.d;
  const struct {
    zrfxEffectFn* effect;
    uint32_t code, h, left, top, bottom;
  } cases[] = {{zrfxSMPTE_Horizontal, 0, kH, 0, 4, 4}, {zrfxSMPTE_Vertical, 0, kH, 0, 5, 2},
               {zrfxSMPTE_Vertical, 0, kH, 1, 0, kH},  {zrfxSLIDE_Basic, 500, kH, 1, 0, kH},
               {zrfxSLIDE_Basic, 508, kH, 0, 0, kH},   {zrfxSLIDE_Basic, 501, 0, 0, 0, kH}};
  for (const auto& c : cases) zr::test::Run(c.effect, ZeroSpan(f, c.code, 1, c.h, c.left, c.top, c.bottom));
  for (zrfxEffectFn* effect : kDivideFirst)
    if (effect != zrfxSLIDE_Basic) zr::test::Run(effect, ZeroSpan(f, 0, 7, kH, 0, 0, kH));
  EXPECT_EQ(f.d, before);
}

#if defined(__x86_64__)

// Reports which fault came on which thread. The sanitizers would take the
// signal themselves, so the handler is the test's own.
void ReportFaultAndExit(int, siginfo_t* info, void*) {
  char name[16] = {}, line[64];
  pthread_getname_np(pthread_self(), name, sizeof name);
  const int n = std::snprintf(line, sizeof line, "SIGFPE %s on %s\n",
                              info->si_code == FPE_INTDIV ? "FPE_INTDIV" : "other", name);
  static_cast<void>(write(STDERR_FILENO, line, n));
  _exit(3);
}

void CallWithFaultReporter(zrfxEffectFn* effect, const zr::fx::FxCall& c, bool frontDoor) {
  struct sigaction sa = {};
  sa.sa_sigaction = ReportFaultAndExit;
  sa.sa_flags = SA_SIGINFO;
  sigaction(SIGFPE, &sa, nullptr);
  pthread_setname_np(pthread_self(), "caller");
  frontDoor ? zr::test::RunFrontDoor(c) : zr::test::Run(effect, c);
}

// Through the front door the fault comes on a worker of the driver. Called
// directly, every member that divides first faults even on an empty band;
// the slide's vertical moves divide before any copy, the sideways ones after
// the first.
TEST(ZeroSpanDeathTest, FaultsWhereTheDivisionIs) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  zr::test::Frames f(kPitch * kH, 1);
  EXPECT_EXIT(CallWithFaultReporter(nullptr, ZeroSpan(f, 3, 1, kH, 0, 0, kH), true),
              testing::ExitedWithCode(3), "SIGFPE FPE_INTDIV on dffx");
  for (zrfxEffectFn* effect : kDivideFirst)
    for (uint32_t code : {500u, 501u}) {
      if (effect != zrfxSLIDE_Basic && code == 501) continue;
      EXPECT_EXIT(CallWithFaultReporter(effect, ZeroSpan(f, code, 1, kH, 0, 0, 0), false),
                  testing::ExitedWithCode(3), "SIGFPE FPE_INTDIV on caller")
          << reinterpret_cast<void*>(effect) << " " << code;
    }
}

#else

// Every scaled length reads as 0, so each member shows its progress-0 shape.
TEST(ZeroSpan, EveryMemberActsAsAtProgressZero) {
  for (zrfxEffectFn* effect : kDivideFirst)
    for (uint32_t code : {0u, 0x80000000u, 500u, 501u, 503u}) {
      zr::test::Frames zero(kPitch * kH, code), atZero = zero;
      zr::test::Run(effect, ZeroSpan(zero, code, 1, kH, 0, 0, kH));
      zr::test::Run(effect, atZero.Call(kPitch, code, 1, kW, kH, 100, 0));
      EXPECT_EQ(zero.d, atZero.d) << reinterpret_cast<void*>(effect) << " code " << code;
    }
}

#endif

}  // namespace
