#include "wipe_model.h"

#include <algorithm>
#include <cstring>

namespace zr::test {

const WipeMember kWipeMembers[16] = {
    {"Horizontal", zrfxSMPTE_Horizontal},
    {"Vertical", zrfxSMPTE_Vertical},
    {"BarnDoorVertical", zrfxSMPTE_BarnDoorVertical},
    {"BarnDoorHorizontal", zrfxSMPTE_BarnDoorHorizontal},
    {"TopLeft", zrfxSMPTE_TopLeft},
    {"TopRight", zrfxSMPTE_TopRight},
    {"BottomRight", zrfxSMPTE_BottomRight},
    {"BottomLeft", zrfxSMPTE_BottomLeft},
    {"FourCorners", zrfxSMPTE_FourCorners},
    {"FourSquare", zrfxSMPTE_FourSquare},
    {"TopCenter", zrfxSMPTE_TopCenter},
    {"RightCenter", zrfxSMPTE_RightCenter},
    {"BottomCenter", zrfxSMPTE_BottomCenter},
    {"LeftCenter", zrfxSMPTE_LeftCenter},
    {"Rectangle", zrfxSMPTE_Rectangle},
    {"Slide", zrfxSLIDE_Basic},
};

uint32_t ModelBytesPerPixel(uint32_t format) {
  switch (format) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 34:
      return 4;
    case 5:
    case 6:
    case 33:
      return 3;
    case 31:
    case 35:
      return 6;
    case 32:
    case 36:
      return 8;
    case 29:
      return 16;
    case 30:
      return 12;
    default:
      return 0;
  }
}

namespace {

uint32_t Scale(uint32_t n, const fx::FxCall& c) {
  const uint32_t span = c.progressEnd - c.progressStart;
  const uint32_t product = n * c.progress;
  return span == 0 ? 0 : product / span;
}

}  // namespace

bool ModelTakesIncoming(zrfxEffectFn* e, uint32_t x, uint32_t y, const fx::FxCall& c) {
  const uint32_t w = c.width, h = c.height;
  const uint32_t sW = Scale(w, c), sH = Scale(h, c);
  const uint32_t hW = Scale(w >> 1, c), hH = Scale(h >> 1, c);
  const bool middle = y > hH && y < h - hH;
  const bool side = x <= hW || x >= w - hW;
  if (e == zrfxSMPTE_Horizontal) return x < sW;
  if (e == zrfxSMPTE_Vertical) return y < sH;
  if (e == zrfxSMPTE_BarnDoorVertical) return x <= hW || x >= w - hW;
  if (e == zrfxSMPTE_BarnDoorHorizontal) return y <= hH || y >= h - hH;
  if (e == zrfxSMPTE_TopLeft) return y < sH && x < sW;
  if (e == zrfxSMPTE_TopRight) return y < sH && w - x <= sW;
  if (e == zrfxSMPTE_BottomRight) return y > h - sH && x > w - sW;
  if (e == zrfxSMPTE_BottomLeft) return h - y < sH && x < sW;
  if (e == zrfxSMPTE_FourCorners) return !middle && side;
  if (e == zrfxSMPTE_FourSquare) return !middle || side;
  if (e == zrfxSMPTE_TopCenter) return y < h - sH ? side : true;
  if (e == zrfxSMPTE_BottomCenter) return y > sH ? side : true;
  if (e == zrfxSMPTE_RightCenter) return middle ? x <= sW : true;
  if (e == zrfxSMPTE_LeftCenter) return middle ? x >= w - sW : true;
  if (e == zrfxSMPTE_Rectangle) {
    const uint32_t a = (w >> 1) - hW, b = w - a, top = (h >> 1) - hH, e2 = h - top;
    return y > top && y < e2 && x >= a && x <= b;
  }
  return false;
}

namespace {

void ModelSlide(const fx::FxCall& c) {
  if (c.bandLeft != 0 || c.bandTop != 0) return;
  const uint32_t bpp = ModelBytesPerPixel(c.format) ? ModelBytesPerPixel(c.format) : 4;
  const uint32_t number = c.wipeCode;
  if (number < 500 || number > 507) return;
  const uint32_t w = c.width, h = c.height;
  const bool vertical = number != 501 && number != 503;
  const uint32_t n = vertical ? std::min(Scale(h, c), h) : std::min(Scale(w, c), w);
  const size_t row = size_t{w} * bpp;
  for (uint32_t y = 0; y < h; ++y)
    for (uint32_t x = 0; x < w; ++x) {
      const uint8_t* src;
      if (number == 500)
        src = y < h - n ? c.srcA + (y + n) * row + x * bpp : c.srcB + y * row + x * bpp;
      else if (number == 501)
        src = x < w - n ? c.srcA + y * row + (x + n) * bpp : c.srcB + y * row + x * bpp;
      else if (number == 503)
        src = x < n ? c.srcB + y * row + x * bpp : c.srcA + y * row + (x - n) * bpp;
      else
        src = y < n ? c.srcB + y * row + x * bpp : c.srcA + (y - n) * row + x * bpp;
      std::memcpy(c.dst + y * row + x * bpp, src, bpp);
    }
}

}  // namespace

void ModelEffect(zrfxEffectFn* effect, const fx::FxCall& c) {
  if (effect == zrfxSLIDE_Basic) return ModelSlide(c);
  const uint32_t bpp = ModelBytesPerPixel(c.format);
  if (bpp == 0) return;
  const bool reversed = (c.wipeCode & 0x80000000u) != 0;
  const uint8_t* in = reversed ? c.srcA : c.srcB;
  const uint8_t* out = reversed ? c.srcB : c.srcA;
  const uint32_t inPitch = reversed ? c.pitchA : c.pitchB;
  const uint32_t outPitch = reversed ? c.pitchB : c.pitchA;
  if (effect == zrfxSMPTE_Vertical) {
    if (c.bandLeft != 0) return;
    // Whole rows, in order; the incoming row is pitchA bytes long, the
    // outgoing one pitchB, whichever picture each is.
    for (uint32_t y = c.bandTop; y < c.bandBottom; ++y) {
      const bool incoming = ModelTakesIncoming(effect, 0, y, c);
      std::memmove(c.dst + uint32_t(y * c.pitchB),
                   incoming ? in + uint32_t(y * inPitch) : out + uint32_t(y * outPitch),
                   incoming ? c.pitchA : c.pitchB);
    }
    return;
  }
  for (uint32_t y = c.bandTop; y < c.bandBottom; ++y)
    for (uint32_t x = c.bandLeft; x < c.bandRight; ++x) {
      const bool incoming = ModelTakesIncoming(effect, x, y, c);
      const uint8_t* src = incoming ? in + uint32_t(y * inPitch) : out + uint32_t(y * outPitch);
      std::memcpy(c.dst + uint32_t(y * c.pitchB) + size_t{x} * bpp, src + size_t{x} * bpp, bpp);
    }
}

}  // namespace zr::test
