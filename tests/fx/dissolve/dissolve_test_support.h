// Shared by the dissolve tests: effect calls as records, test pictures with
// padded rows, and byte comparison with a readable first difference.
#ifndef ZR_TESTS_FX_DISSOLVE_DISSOLVE_TEST_SUPPORT_H
#define ZR_TESTS_FX_DISSOLVE_DISSOLVE_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "zrfx.h"

namespace zr::test {

// The 22 arguments of an effect call.
struct EffectArgs {
  uint8_t* srcA;
  uint32_t pitchA;
  uint8_t* srcB;
  uint32_t pitchB;
  uint8_t* dst;
  uint32_t dstPitch;
  uint32_t wipeCode;
  uint32_t format;
  uint32_t width;
  uint32_t height;
  uint32_t reserved[5];
  uint32_t progressStart;
  uint32_t progressEnd;
  uint32_t progress;
  uint32_t bandLeft;
  uint32_t bandRight;
  uint32_t bandTop;
  uint32_t bandBottom;
};

inline uint32_t RunEffect(zrfxEffectFn effect, const EffectArgs& a) {
  return effect(a.srcA, a.pitchA, a.srcB, a.pitchB, a.dst, a.dstPitch, a.wipeCode, a.format, a.width,
                a.height, a.reserved[0], a.reserved[1], a.reserved[2], a.reserved[3], a.reserved[4],
                a.progressStart, a.progressEnd, a.progress, a.bandLeft, a.bandRight, a.bandTop, a.bandBottom);
}

// The first 18 arguments through the front door; the band is not passed.
inline uint32_t RunFrontDoor(const EffectArgs& a) {
  return ZrDraw_DisplayWipe(a.srcA, a.pitchA, a.srcB, a.pitchB, a.dst, a.dstPitch, a.wipeCode, a.format,
                            a.width, a.height, a.reserved[0], a.reserved[1], a.reserved[2], a.reserved[3],
                            a.reserved[4], a.progressStart, a.progressEnd, a.progress);
}

// A picture of `height` rows `pitch` bytes apart, seeded, fenced by guards.
class TestPicture : public GuardedBuffer {
 public:
  TestPicture(uint32_t pitch, uint32_t height, uint64_t seed, size_t misalign = 0)
      : GuardedBuffer(size_t{pitch} * height, misalign), pitch_(pitch) {
    Rng(seed).Fill(data(), size());
  }
  uint32_t pitch() const { return pitch_; }
  std::vector<uint8_t> Bytes() const { return {data(), data() + size()}; }

 private:
  uint32_t pitch_;
};

// Succeeds when the n bytes are equal; otherwise names the first differing
// byte as x, y of a picture whose rows are `pitch` bytes apart.
inline ::testing::AssertionResult SameBytes(const uint8_t* got, const uint8_t* want, size_t n, size_t pitch,
                                            const std::string& context) {
  for (size_t i = 0; i < n; ++i) {
    if (got[i] != want[i]) {
      return ::testing::AssertionFailure()
             << context << ": first difference at byte x=" << i % pitch << " y=" << i / pitch << " (got "
             << int{got[i]} << ", want " << int{want[i]} << ")";
    }
  }
  return ::testing::AssertionSuccess();
}

}  // namespace zr::test

#endif
