// The dissolve over one band: t and u once, then each row by the plain loop
// or the widest vector form, which give the same bytes. Integer samples take
// the integer mix wherever it gives the double mix's bytes.
#include "fx/dissolve/dissolve_band.h"

#include <cstddef>

#include "fx/dissolve/dissolve_convert.h"
#include "fx/dissolve/dissolve_row.h"
#include "fx/dissolve/mix_row.h"

namespace zr::fx {
namespace {

// Bands narrower than this take the plain loop.
constexpr uint32_t kVectorMinPixels = 8;

// True when the runs [a, a + n) and [b, b + n) share a byte at different
// starts. A vector step loads before it stores, so a run that is exactly a
// source is fine; one shifted against it is not.
bool PartlyOverlaps(const uint8_t* a, const uint8_t* b, size_t n) {
  const auto x = reinterpret_cast<uintptr_t>(a), y = reinterpret_cast<uintptr_t>(b);
  return x != y && x < y + n && y < x + n;
}

DissolveRowFn PlainRow(const FxFormatInfo& format) {
  switch (format.BytesPerSample()) {
    case 1:
      return DissolveRow8_C;
    case 2:
      return DissolveRow16_C;
    default:
      return DissolveRowF32_C;
  }
}

// Every integer group: a sample is mixed on its own, whatever the pixel, so
// the 3-sample groups run the same loops. The float groups have the plain
// loop only.
DissolveRowFn VectorRow(const FxFormatInfo& format) {
  switch (format.BytesPerSample()) {
    case 1:
      return PickDissolveRowForm().row8;
    case 2:
      return PickDissolveRowForm().row16;
    default:
      return nullptr;
  }
}

}  // namespace

void DissolveBand(const FxFormatInfo& format, const FxCall& c) {
  if (c.BandEmpty()) return;
  const uint32_t span = c.progressEnd - c.progressStart;
  const double t = zrfxDissolveRatio(c.progress, span);
  const double u = 1.0 - t;

  const size_t bytesPerPixel = format.bytesPerPixel;
  const size_t first = c.bandLeft * bytesPerPixel;
  const size_t bytes = (c.bandRight - c.bandLeft) * bytesPerPixel;
  const size_t samples = size_t{c.bandRight - c.bandLeft} * format.samplesPerPixel;
  const bool wide = c.bandRight - c.bandLeft >= kVectorMinPixels;
  const DissolveRowFn plain = PlainRow(format);
  const DissolveRowFn vector = wide ? VectorRow(format) : nullptr;

  const bool eight = format.BytesPerSample() == 1;
  const std::optional<uint32_t> weight =
      format.BytesPerSample() <= 2 ? MixWeight(c.progress, span) : std::nullopt;
  const MixRowFn mixPlain = eight ? MixRow8_C : MixRow16_C;
  const MixRowFn mixVector = !wide ? nullptr : eight ? PickMixRowForm().row8 : PickMixRowForm().row16;

  const FxPictures p(c);
  for (uint32_t y = c.bandTop; y < c.bandBottom; ++y) {
    const uint8_t* in = FxRow(p.in, y, p.inPitch) + first;
    const uint8_t* out = FxRow(p.out, y, p.outPitch) + first;
    uint8_t* row = FxRow(p.dst, y, p.dstPitch) + first;
    const bool vectorOk = !PartlyOverlaps(row, in, bytes) && !PartlyOverlaps(row, out, bytes);
    const NextRows next = y + 1 < c.bandBottom ? NextRows{p.inPitch, p.outPitch} : NextRows{};
    if (weight)
      (vectorOk && mixVector ? mixVector : mixPlain)(in, out, row, samples, *weight, next);
    else
      (vectorOk && vector ? vector : plain)(in, out, row, samples, t, u);
  }
}

}  // namespace zr::fx
