// Golden checksums of the dissolve: a fixed seeded picture pair per case and
// the CRC-32 of the whole output buffer, padding included, that every build
// must give, in one band on the calling thread or through the four bands.
#ifndef ZR_TESTS_FX_DISSOLVE_DISSOLVE_GOLDEN_H
#define ZR_TESTS_FX_DISSOLVE_DISSOLVE_GOLDEN_H

#include <cstdint>
#include <cstring>
#include <vector>

#include "common/crc32.h"
#include "common/test_random.h"
#include "dissolve_test_support.h"
#include "fx/fx_format.h"

namespace zr::test {

struct DissolveGolden {
  uint32_t format, wipeCode, progressStart, progressEnd, progress, crc;
};

inline constexpr DissolveGolden kDissolveGoldens[] = {
    {1, 0, 0, 65536, 23456, 0x84ae7056},
    {1, 0x80000000u, 0, 65536, 23456, 0x2428593e},
    {1, 0, 0, 100, 37, 0xda764252},
    {1, 0, 10, 110, 37, 0xda764252},  // the start counts through the span only
    {5, 0, 0, 65536, 23456, 0xad7f61c5},
    {33, 0, 0, 1001, 999, 0x6649a1a6},
    {31, 0, 0, 65536, 23456, 0x3cc2bcdc},
    {32, 0, 0, 65536, 23456, 0xb113a091},
    {32, 0x80000000u, 0, 1001, 3, 0xa06af1c6},
    {29, 0, 0, 65536, 23456, 0xac10a7ec},
    {30, 0, 0, 100, 37, 0x658be6e2},
};

// 37 x 11 pixels (odd, so the four bands differ) in padded rows. Float
// pictures hold eighths between -250 and 250, where both builds agree, in
// every sample and the padding.
class GoldenFrames {
 public:
  static constexpr uint32_t kWidth = 37, kHeight = 11;

  explicit GoldenFrames(uint32_t format)
      : info_(fx::FxFormatOf(format)),
        pitch_(kWidth * info_.bytesPerPixel + (info_.BytesPerSample() == 4 ? 16 : 13)) {
    for (uint64_t seed : {1, 2, 3}) {
      auto& bytes = frames_[seed - 1];
      bytes.resize(size_t{pitch_} * kHeight);
      Rng rng(seed);
      if (info_.BytesPerSample() != 4) {
        rng.Fill(bytes.data(), bytes.size());
        continue;
      }
      for (size_t i = 0; i + 4 <= bytes.size(); i += 4) {
        const float v = static_cast<float>(static_cast<int32_t>(rng.Below(4001)) - 2000) / 8.0f;
        std::memcpy(&bytes[i], &v, 4);
      }
    }
  }

  // One band over the whole picture.
  EffectArgs Args(const DissolveGolden& g) {
    return {frames_[0].data(),
            pitch_,
            frames_[1].data(),
            pitch_,
            frames_[2].data(),
            pitch_,
            g.wipeCode,
            g.format,
            kWidth,
            kHeight,
            {1, 1, 0, 0, 0},
            g.progressStart,
            g.progressEnd,
            g.progress,
            0,
            kWidth,
            0,
            kHeight};
  }
  uint32_t DstCrc() const { return Crc32(frames_[2].data(), frames_[2].size()); }

 private:
  fx::FxFormatInfo info_;
  uint32_t pitch_;
  std::vector<uint8_t> frames_[3];
};

}  // namespace zr::test

#endif
