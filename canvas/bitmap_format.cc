// The bitmap format table: from a tagBITMAPINFO record and its compression
// code to a pixel type and a frame size, and the canvas built from it.
#include <cstdint>

#include "zrfactory.h"

namespace {

// What one compression code makes of the record. Sizes are unsigned 32-bit
// products and wrap silently.
struct Outcome {
  bool hasType;  // false: *type is left as the caller set it
  unsigned int type;
  uint32_t size;
  bool storeSize;  // biSizeImage takes the size before the final step
};

struct Frame {
  tagBITMAPINFO& info;
  uint32_t w;  // biWidth as it is
  uint32_t h;  // |biHeight|
  uint16_t& bits() { return info.bmiHeader.biBitCount; }
};

constexpr unsigned int kNone = static_cast<unsigned int>(pixelNone);

// The bit-count switch shared by plain RGB and several codes.
struct GenericDepth {
  uint16_t bits;
  unsigned int type;
  uint32_t bytesPerPixel;
};
constexpr GenericDepth kGenericDepths[] = {
    {8, kNone, 0},
    // Type 1 is 4 bytes a pixel: the size and the class disagree; keep.
    {15, pixelRGBA32, 2},
    {16, pixelRGBA32, 2},
    {24, pixelBGR24, 3},
    // Type 32 is 8 bytes a pixel, sized at 6 here; keep.
    {48, pixelARGB64, 6},
    {64, pixelARGB64, 8},
};

Outcome Generic(Frame& f, unsigned int) {
  for (const GenericDepth& d : kGenericDepths)
    if (d.bits == f.bits()) return {true, d.type, d.bytesPerPixel * f.w * f.h, false};
  return {true, pixelBGRA32, 4 * f.w * f.h, false};
}

Outcome Refused(Frame&, unsigned int) { return {true, kNone, 0, false}; }

Outcome Packed422(Frame& f, unsigned int type) {
  f.bits() = 16;
  return {true, type, 2 * f.w * f.h, false};
}

// Not rounded up to whole 48-pixel groups.
Outcome V210(Frame& f, unsigned int) {
  f.bits() = 16;
  return {true, pixelV210, 16 * f.w * f.h / 6, false};
}

Outcome V210AtTwoBytes(Frame& f, unsigned int) {
  f.bits() = 16;
  return {true, pixelV210, 2 * f.w * f.h, false};
}

// Size 0: only a biSizeImage set by the caller makes the record usable.
Outcome Dpx(Frame& f, unsigned int) {
  f.bits() = 30;
  return {true, pixelRGB30DPX, 0, false};
}

Outcome Deep32(Frame& f, unsigned int type) {
  f.bits() = 32;
  return Generic(f, type);
}

// One row only: the height does not enter; keep.
Outcome HalfFloat(Frame& f, unsigned int) {
  if (f.bits() == 48) return {true, pixelRGBHalf48, f.w * 6, true};
  return {true, pixelARGBHalf64, f.w * 8, true};
}

Outcome Bayer(Frame& f, unsigned int type) {
  f.bits() = 12;
  return {true, type, 3 * f.w * f.h / 2, true};
}

Outcome Rybp(Frame& f, unsigned int) {
  f.bits() = 10;
  return {true, pixelBayerRGGB, 4 * f.w * f.h / 3, true};
}

Outcome Hcpa(Frame& f, unsigned int) {
  const unsigned int type = f.bits() == 8 ? pixelUYVY : pixelV210;
  f.bits() = 16;
  return {true, type, 16 * f.w * f.h / 6, false};
}

Outcome Ocpa(Frame& f, unsigned int) {
  const unsigned int type = f.bits() == 10 ? pixelV210 : pixelUYVY;
  f.bits() = 16;
  return {true, type, 2 * f.w * f.h, false};
}

Outcome H4pa(Frame& f, unsigned int type) {
  if (f.bits() == 48) return {true, pixelRGB48, 6 * f.w * f.h, false};
  return Generic(f, type);
}

// Code 3: the depth sets a first guess, then the first non-zero byte of the
// red mask (the first colour-table entry) picks the byte order.
Outcome Bitfields(Frame& f, unsigned int) {
  Outcome o{true, kNone, 0, false};
  const uint16_t bits = f.bits();
  if (bits == 24) {
    o.type = pixelBGR24;
    o.size = 3 * f.w * f.h;
  } else if (bits == 15 || bits == 16) {
    o.size = 2 * f.w * f.h;
  } else {
    o.type = pixelARGB32;
    o.size = 4 * f.w * f.h;
  }
  const RGBQUAD& mask = f.info.bmiColors[0];
  const uint8_t maskBytes[4] = {mask.rgbBlue, mask.rgbGreen, mask.rgbRed, mask.rgbReserved};
  for (unsigned int k = 0; k < 4; ++k) {
    if (maskBytes[k] == 0) continue;
    if (bits == 24)
      o.type = k < 2 ? pixelRGB24 : pixelBGR24;
    else
      o.type = pixelRGBA32 + k;
    break;
  }
  return o;
}

struct FormatCode {
  uint32_t code;  // as a little-endian 32-bit number; the comment gives its bytes
  Outcome (*rule)(Frame&, unsigned int type);
  unsigned int type;
};

constexpr FormatCode kFormatCodes[] = {
    {0, Generic, 0},
    {3, Bitfields, 0},
    // Group A: the bit-count switch.
    {0x30315742, Generic, 0},  // BW10
    {0x30325442, Generic, 0},  // BT20
    {0x32314343, Generic, 0},  // CC12
    {0x32314359, Generic, 0},  // YC12
    {0x32323456, Generic, 0},  // V422
    {0x32424752, Generic, 0},  // RGB2
    {0x32525541, Generic, 0},  // AUR2
    {0x35353656, Generic, 0},  // V655
    {0x38565559, Generic, 0},  // YUV8
    {0x41424752, Generic, 0},  // RGBA
    {0x414c5043, Generic, 0},  // CPLA
    {0x41565549, Generic, 0},  // IUVA
    {0x42473438, Generic, 0},  // 84GB
    {0x42473634, Generic, 0},  // 46GB
    {0x52473438, Generic, 0},  // 84GR
    {0x52473634, Generic, 0},  // 46GR
    {0x54424752, Generic, 0},  // RGBT
    {0x56435442, Generic, 0},  // BTCV
    {0x57415249, Generic, 0},  // IRAW
    {0x58593438, Generic, 0},  // 84YX
    {0x58593634, Generic, 0},  // 46YX
    {0x59555943, Generic, 0},  // CYUY
    {0x5a544456, Generic, 0},  // VDTZ
    // Group B: known and refused.
    {0x30323449, Refused, 0},  // I420
    {0x31313259, Refused, 0},  // Y211
    {0x32315659, Refused, 0},  // YV12
    {0x34565559, Refused, 0},  // YUV4
    {0x39304649, Refused, 0},  // IF09
    {0x39555659, Refused, 0},  // YVU9
    {0x4c504c43, Refused, 0},  // CLPL
    {0x50313459, Refused, 0},  // Y41P
    {0x524a4c43, Refused, 0},  // CLJR
    {0x54313459, Refused, 0},  // Y41T
    {0x54323459, Refused, 0},  // Y42T
    {0x56555949, Refused, 0},  // IYUV
    {0x62343872, Refused, 0},  // r84b
    {0x62363461, Refused, 0},  // a46b
    {0x76323136, Refused, 0},  // 612v
    {0x76333038, Refused, 0},  // 803v
    {0x76343130, Refused, 0},  // 014v
    {0x79343230, Refused, 0},  // 024y
    {0x79757634, Refused, 0},  // 4vuy
    // Group C: 4:2:2 in the order Cb Y Cr Y, and what decodes to it.
    {0x30357664, Packed422, pixelUYVY},  // dv50
    {0x32567579, Packed422, pixelUYVY},  // yuV2
    {0x32767561, Packed422, pixelUYVY},  // auv2
    {0x32767579, Packed422, pixelUYVY},  // yuv2
    {0x33643038, Packed422, pixelUYVY},  // 80d3
    {0x35327664, Packed422, pixelUYVY},  // dv25
    {0x53454d4d, Packed422, pixelUYVY},  // MMES
    {0x564e5955, Packed422, pixelUYVY},  // UYNV
    {0x59565955, Packed422, pixelUYVY},  // UYVY
    {0x61766331, Packed422, pixelUYVY},  // 1cva
    {0x64687664, Packed422, pixelUYVY},  // dvhd
    {0x64737664, Packed422, pixelUYVY},  // dvsd
    {0x6476316e, Packed422, pixelUYVY},  // n1vd
    {0x64763170, Packed422, pixelUYVY},  // p1vd
    {0x6476356e, Packed422, pixelUYVY},  // n5vd
    {0x64763570, Packed422, pixelUYVY},  // p5vd
    {0x64766320, Packed422, pixelUYVY},  // " cvd"
    {0x64766370, Packed422, pixelUYVY},  // pcvd
    {0x6476666e, Packed422, pixelUYVY},  // nfvd
    {0x64766670, Packed422, pixelUYVY},  // pfvd
    {0x64766832, Packed422, pixelUYVY},  // 2hvd
    {0x64766833, Packed422, pixelUYVY},  // 3hvd
    {0x64766835, Packed422, pixelUYVY},  // 5hvd
    {0x64766836, Packed422, pixelUYVY},  // 6hvd
    {0x64766870, Packed422, pixelUYVY},  // phvd
    {0x64766871, Packed422, pixelUYVY},  // qhvd
    {0x6476706e, Packed422, pixelUYVY},  // npvd
    {0x64767070, Packed422, pixelUYVY},  // ppvd
    {0x6765706d, Packed422, pixelUYVY},  // mpeg
    {0x70637664, Packed422, pixelUYVY},  // dvcp
    {0x76643235, Packed422, pixelUYVY},  // 52dv
    {0x76643530, Packed422, pixelUYVY},  // 05dv
    {0x76757963, Packed422, pixelUYVY},  // cyuv
    {0x77727463, Packed422, pixelUYVY},  // ctrw
    {0x79755632, Packed422, pixelUYVY},  // 2Vuy
    {0x79757632, Packed422, pixelUYVY},  // 2vuy
    // Group D: Y Cb Y Cr.
    {0x32595559, Packed422, pixelYUYV},  // YUY2
    {0x564e5559, Packed422, pixelYUYV},  // YUNV
    {0x55595659, Packed422, pixelYVYU},  // YVYU
    // Group E: v210 sized by its 16-byte groups of 6 pixels.
    {0x30313276, V210, 0},  // v210
    {0x33643130, V210, 0},  // 01d3
    {0x76323130, V210, 0},  // 012v
    {0x76323161, V210, 0},  // a12v
    // Group F: v210 sized at 2 bytes a pixel.
    {0x61693132, V210AtTwoBytes, 0},  // 21ia
    {0x61693133, V210AtTwoBytes, 0},  // 31ia
    {0x61693135, V210AtTwoBytes, 0},  // 51ia
    {0x61693136, V210AtTwoBytes, 0},  // 61ia
    {0x61693170, V210AtTwoBytes, 0},  // p1ia
    {0x61693171, V210AtTwoBytes, 0},  // q1ia
    {0x61693532, V210AtTwoBytes, 0},  // 25ia
    {0x61693533, V210AtTwoBytes, 0},  // 35ia
    {0x61693535, V210AtTwoBytes, 0},  // 55ia
    {0x61693536, V210AtTwoBytes, 0},  // 65ia
    {0x61693570, V210AtTwoBytes, 0},  // p5ia
    {0x61693571, V210AtTwoBytes, 0},  // q5ia
    // Group G: 10-bit RGB in big-endian words.
    {0x33643330, Dpx, 0},     // 03d3
    {0x4c313052, Dpx, 0},     // R01L
    {0x4c314652, Dpx, 0},     // RF1L
    {0x4c343052, Dpx, 0},     // R04L
    {0x4c344652, Dpx, 0},     // RF4L
    {0x5230314c, Dpx, 0},     // L10R
    {0x5230344c, Dpx, 0},     // L40R
    {0x52313067, Dpx, 0},     // g01R
    {0x5231306b, Dpx, 0},     // k01R
    {0x5246314c, Dpx, 0},     // L1FR
    {0x5246344c, Dpx, 0},     // L4FR
    {0x33643332, Deep32, 0},  // 23d3
    // Group H: half-float RGB and ARGB.
    {0x41435331, HalfFloat, 0},  // 1SCA
    {0x41435332, HalfFloat, 0},  // 2SCA
    {0x41436363, HalfFloat, 0},  // ccCA
    {0x41436367, HalfFloat, 0},  // gcCA
    {0x41436374, HalfFloat, 0},  // tcCA
    {0x41437078, HalfFloat, 0},  // xpCA
    {0x666c3136, HalfFloat, 0},  // 61lf
    // Group I: packed 12-bit Bayer mosaics.
    {0x6b326973, Bayer, pixelBayerBGGR},   // si2k
    {0x72676762, Bayer, pixelBayerBGGR},   // bggr
    {0x62676772, Bayer, pixelBayerRGGB},   // rggb
    {0x52594243, Bayer, pixelBayerRGGB},   // CBYR
    {0x52594244, Bayer, pixelBayerRGGB},   // DBYR
    {0x52594250, Bayer, pixelBayerRGGB},   // PBYR
    {0x67726267, Bayer, pixelBayerGBRG},   // gbrg
    {0x67627267, Bayer, pixelBayerGRBG},   // grbg
    {0x61766356, Bayer, pixelBayerGRBG},   // Vcva
    {0x52474742, Bayer, pixelBayerBGGR2},  // BGGR
    {0x63474742, Bayer, pixelBayerBGGR2},  // BGGc
    {0x42474752, Bayer, pixelBayerRGGB2},  // RGGB
    {0x63474752, Bayer, pixelBayerRGGB2},  // RGGc
    {0x47524247, Bayer, pixelBayerGBRG2},  // GBRG
    {0x63524247, Bayer, pixelBayerGBRG2},  // GBRc
    {0x47425247, Bayer, pixelBayerGRBG2},  // GRBG
    {0x63425247, Bayer, pixelBayerGRBG2},  // GRBc
    {0x50425952, Rybp, 0},                 // RYBP
    {0x61706368, Hcpa, 0},                 // hcpa
    {0x6170636e, Hcpa, 0},                 // ncpa
    {0x6170636f, Ocpa, 0},                 // ocpa
    {0x61706373, Ocpa, 0},                 // scpa
    {0x61703468, H4pa, 0},                 // h4pa
};

}  // namespace

unsigned int GetDrawSize(tagBITMAPINFO* format, unsigned int* type) {
  BITMAPINFOHEADER& header = format->bmiHeader;
  const int32_t height = header.biHeight;
  Frame frame{*format, static_cast<uint32_t>(header.biWidth),
              height < 0 ? 0u - static_cast<uint32_t>(height) : static_cast<uint32_t>(height)};
  Outcome o{false, 0, 0, false};
  for (const FormatCode& c : kFormatCodes) {
    if (c.code == header.biCompression) {
      o = c.rule(frame, c.type);
      break;
    }
  }
  if (o.hasType && type) *type = o.type;
  if (o.storeSize) header.biSizeImage = o.size;
  // The larger of the computed size and biSizeImage; a biSizeImage of 0 is
  // filled in, any other value is kept even when smaller.
  const uint32_t given = header.biSizeImage;
  const uint32_t size = o.size > given ? o.size : given;
  if (given == 0) header.biSizeImage = size;
  return size;
}

unsigned int GetDrawSize(unsigned int, int, int, int) { return 0; }

int GetDraw(tagBITMAPINFO* format, char* buffer, ZrDraw*& canvas) {
  unsigned int type = kNone;
  const unsigned int size = GetDrawSize(format, &type);
  if (type == kNone || size == 0 || size == 0xFFFFFFFF) {
    canvas = nullptr;
    return -1;
  }
  const int32_t height = format->bmiHeader.biHeight;
  const int absHeight =
      static_cast<int>(height < 0 ? 0u - static_cast<uint32_t>(height) : static_cast<uint32_t>(height));
  return GetDraw(type, format->bmiHeader.biWidth, absHeight, 0, buffer, canvas);
}
