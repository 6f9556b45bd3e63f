// The wipe front door and its 4:2:2 and v210 adapters: wipe code, format,
// progress scale, sizes and pitches from the input, over frames allocated to
// exactly the bytes each call may read or write.
#include <zrfx.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "fx/fx_format.h"
#include "fx/wipe_table.h"
#include "input_reader.h"
#include "tools/zrfx/late_workers.h"

namespace {

constexpr uint32_t kMaxSide = 64;
constexpr uint32_t kMaxV210Width = 100;  // past two groups of 48 pixels

// Numbers from each row of the wipe table and some that play as a dissolve.
constexpr uint32_t kCodes[] = {0,   1,   2,   3,   4,   5,   6,   7,   8,   9,   21,  22,
                               23,  24,  25,  26,  41,  48,  61,  74,  101, 102, 131, 409,
                               500, 501, 502, 503, 504, 507, 508, 515, 516, 600, 115, 999};
constexpr uint32_t kFormats[] = {1, 2, 3, 4, 5, 6, 29, 30, 31, 32, 33, 34, 35, 36, 0, 10, 14, 37, 99};

enum class Entry : uint8_t { kDirect, kYCbCr, kV210 };

// Bytes of `rows` rows `pitch` apart whose last row is `rowBytes` long.
uint32_t Frame(uint32_t rows, uint32_t pitch, uint32_t rowBytes) {
  return rows == 0 || rowBytes == 0 ? 0 : (rows - 1) * pitch + rowBytes;
}

uint32_t PickPitch(InputReader& in, uint32_t rowBytes) {
  const uint8_t choice = in.U8();
  return choice < 192 ? rowBytes + (choice & 15) : in.Below(rowBytes + 32);
}

// Wipes and slides divide by the span of the progress scale in integers, a
// fault when it is zero; a host must not pass such a scale. The dissolve
// divides in floating point, and wipes on a format without a group return
// before they divide.
bool SpanMayBeZero(uint32_t code, uint32_t format) {
  zrfxEffectFn* effect = zr::fx::WipeEffectFor(code);
  if (effect == zrfxDISSOLVE) return true;
  return effect != zrfxSLIDE_Basic && zr::fx::FxFormatOf(format).bytesPerPixel == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  InputReader in(data, size);
  const Entry entry = static_cast<Entry>(in.U8() % 3);
  const uint8_t codeChoice = in.U8();
  const uint32_t rawCode = in.U32();
  uint32_t code = codeChoice % 64 < std::size(kCodes) ? kCodes[codeChoice % 64] : rawCode & 0x7FFFFFFFu;
  if ((codeChoice & 0x80) != 0) code |= 0x80000000u;
  const uint8_t formatChoice = in.U8();
  const uint32_t rawFormat = in.U32();
  const uint32_t format = formatChoice % 32 < std::size(kFormats) ? kFormats[formatChoice % 32] : rawFormat;
  const uint32_t width = in.Below(entry == Entry::kV210 ? kMaxV210Width : kMaxSide);
  const uint32_t height = in.Below(kMaxSide);
  const uint32_t progressStart = in.U32();
  const uint32_t progressEnd = in.U32();
  const uint32_t progress = in.U32();
  const uint32_t wipeFormat = entry == Entry::kDirect ? format : 33;
  if (progressEnd == progressStart && !SpanMayBeZero(code, wipeFormat)) return 0;

  uint32_t pitchA, pitchB, dstPitch, bytesA, bytesB, bytesOut;
  if (entry == Entry::kDirect) {
    // A format without a group is four bytes a pixel to the slide; the
    // slide also takes all three frames as packed rows. dst steps by pitchB.
    const uint32_t bpp = std::max(zr::fx::FxFormatOf(format).bytesPerPixel, 4u);
    const uint32_t rowBytes = width * bpp;
    pitchA = PickPitch(in, rowBytes);
    pitchB = PickPitch(in, rowBytes);
    dstPitch = in.U32();
    const uint32_t packed = rowBytes * height;
    // The vertical wipe copies whole rows, pitchA bytes from the incoming
    // row and pitchB bytes from the outgoing one, whichever picture each is.
    const bool wholeRows = zr::fx::WipeEffectFor(code) == zrfxSMPTE_Vertical;
    const uint32_t longest = wholeRows ? std::max({rowBytes, pitchA, pitchB}) : rowBytes;
    bytesA = std::max(Frame(height, pitchA, longest), packed);
    bytesB = std::max(Frame(height, pitchB, longest), packed);
    bytesOut = bytesB;
  } else if (entry == Entry::kYCbCr) {
    // Sources are read in groups of 4 pixels, dst written in pairs.
    pitchA = PickPitch(in, 2 * width);
    pitchB = PickPitch(in, 2 * width);
    dstPitch = PickPitch(in, 2 * width);
    const uint32_t read = (width + 3) / 4 * 8;
    bytesA = Frame(height, pitchA, read);
    bytesB = Frame(height, pitchB, read);
    bytesOut = Frame(height, dstPitch, (width + 1) / 2 * 4);
  } else {
    // Pitches below the v210 row are raised to it; rows are read and
    // written in whole groups of 6 pixels.
    const uint32_t minRow = width % 48 == 0 ? width * 8 / 3 : (width / 48 * 384 + 384) / 3;
    pitchA = PickPitch(in, minRow);
    pitchB = PickPitch(in, minRow);
    dstPitch = PickPitch(in, minRow);
    const uint32_t groups = (width + 5) / 6 * 16;
    bytesA = Frame(height, std::max(pitchA, minRow), groups);
    bytesB = Frame(height, std::max(pitchB, minRow), groups);
    bytesOut = Frame(height, std::max(dstPitch, minRow), groups);
  }

  std::vector<uint8_t> frameA(std::max(bytesA, 1u)), frameB(std::max(bytesB, 1u)),
      frameOut(std::max(bytesOut, 1u));
  uint8_t* a = frameA.data();
  uint8_t* b = frameB.data();
  uint8_t* out = frameOut.data();
  for (uint32_t i = 0; i < bytesA; ++i) a[i] = in.U8();
  for (uint32_t i = 0; i < bytesB; ++i) b[i] = static_cast<uint8_t>(i * 13 + 5);
  const uint32_t r0 = in.U32(), r1 = in.U32();
  zrfx::RunAndJoinWorkers([&] {
    switch (entry) {
      case Entry::kDirect:
        ZrDraw_DisplayWipe(a, pitchA, b, pitchB, out, dstPitch, code, format, width, height, r0, r1, 0, 0, 0,
                           progressStart, progressEnd, progress);
        break;
      case Entry::kYCbCr:
        ZrDraw_DisplayWipeYCbCr(a, pitchA, b, pitchB, out, dstPitch, code, format, width, height, r0, r1, 0,
                                0, 0, progressStart, progressEnd, progress);
        break;
      case Entry::kV210:
        ZrDraw_DisplayWipeV210(a, pitchA, b, pitchB, out, dstPitch, code, format, width, height, r0, r1, 0, 0,
                               0, progressStart, progressEnd, progress);
        break;
    }
  });
  return 0;
}
