#include "zrfx/wipe_probe.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "zrfx/errors.h"
#include "zrfx/frame.h"
#include "zrfx/operations.h"
#include "zrfx/wipe_names.h"

namespace zrfx {
namespace {

// Output bytes that no probe source holds: A has bytes below 0x80, B from
// 0x80 to 0xBF, and a dissolve stays between the two.
constexpr uint8_t kUntouched = 0xFF;
constexpr uint32_t kWidth = 8, kHeight = 6, kSpan = 8, kProgress = 3;

// The output of one wipe at three eighths on the probe pictures.
Frame Probe(uint32_t code) {
  Frame a(kWidth, kHeight), b(kWidth, kHeight), out(kWidth, kHeight);
  for (size_t i = 0; i < a.bytes(); ++i) {
    a.data()[i] = static_cast<uint8_t>(i & 0x7F);
    b.data()[i] = static_cast<uint8_t>(0x80 | ((i * 7) & 0x3F));
    out.data()[i] = kUntouched;
  }
  RunWipe(a, b, out, code, kSpan, kProgress);
  return out;
}

bool SamePicture(const Frame& x, const Frame& y) {
  return std::equal(x.data(), x.data() + x.bytes(), y.data());
}

}  // namespace

bool WipeWritesNothing(uint32_t code) {
  const Frame out = Probe(code);
  return std::all_of(out.data(), out.data() + out.bytes(), [](uint8_t v) { return v == kUntouched; });
}

uint32_t WipeShownAs(uint32_t code) {
  static std::map<uint32_t, Frame> families;
  const Frame out = Probe(code);
  for (const WipeFamily& family : WipeFamilies()) {
    if (std::strcmp(family.effect, WipeEffectName(code)) != 0) continue;
    auto [it, added] = families.try_emplace(family.code);
    if (added) it->second = Probe(family.code);
    if (SamePicture(it->second, out)) return family.code;
  }
  return code;
}

void RefuseSilentWipe(uint32_t code) {
  if (WipeWritesNothing(code))
    throw UsageError(DescribeWipe(code) +
                     ": the library writes nothing for it, so there is no transition to see" +
                     " (see zrfx list)");
}

}  // namespace zrfx
