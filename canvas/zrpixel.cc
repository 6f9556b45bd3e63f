// ZrPixel: construction, geometry, and the plain state setters.
#include "zrpixel.h"

#include "canvas/convert.h"
#include "platform/zrutil.h"

namespace {

// The smallest row that SetCanvas accepts, in bytes a pixel, for the types
// that have one. The v210 canvas keeps its own minimum; the DPX and Bayer
// types have none.
struct MinimumRow {
  int type;
  unsigned int bytesPerPixel;
};
constexpr MinimumRow kMinimumRows[] = {
    {pixelRGBA32, 4},    {pixelARGB32, 4},     {pixelBGRA32, 4}, {pixelABGR32, 4},
    {pixelRGB24, 3},     {pixelBGR24, 3},      {pixelYUYV, 2},   {pixelUYVY, 2},
    {pixelYVYU, 2},      {pixelVYUY, 2},       {pixelRGB48, 6},  {pixelARGB64, 8},
    {pixelRGBHalf48, 6}, {pixelARGBHalf64, 8}, {pixelUV8, 2},    {pixelUV16, 4},
};

unsigned int AbsU32(int v) {
  return v < 0 ? 0u - static_cast<unsigned int>(v) : static_cast<unsigned int>(v);
}

}  // namespace

ZrPixel::ZrPixel()
    : mPixelType(pixelRGBA32),
      mYCbCrMode(cmYCbCr601Studio),
      mWidth(0),
      mHeight(0),
      mPitch(0),
      mbBottomUp(false),
      mForeColor(0xFFFFFFFF),
      mForeOpacity(0.0),
      mBackColor(0),
      mBackOpacity(0.0),
      mbTransparency(false),
      mbAlphaAdditive(false),
      mLastChange(0),
      mRefCount(1),
      mChangeEvent(zrOSCreateEvent(nullptr, 0, 0, nullptr)),
      mpCanvas(nullptr) {
  // mbLineSmoothing and mbSpareFlag belong to the ZrDraw constructor.
  zrOSInitializeCriticalSection(&mLock);
}

ZrPixel::~ZrPixel() {
  if (mChangeEvent) {
    zrOSCloseEvent(mChangeEvent);
    mChangeEvent = nullptr;
  }
  zrOSDeleteCriticalSection(&mLock);
}

int ZrPixel::SetCanvas(char* buffer, int height, int width, int pitch) {
  mpCanvas = buffer;
  mbBottomUp = height < 0;
  mHeight = AbsU32(height);
  mWidth = AbsU32(width);
  if (pitch == 0) pitch = GetPitch();
  mPitch = AbsU32(pitch);
  for (const MinimumRow& m : kMinimumRows) {
    if (m.type != mPixelType) continue;
    const unsigned int row = m.bytesPerPixel * mWidth;
    if (mPitch < row) mPitch = row;
    break;
  }
  return 0;
}

int ZrPixel::GetPitch() { return static_cast<int>(mPitch); }

int ZrPixel::IsRgbType() {
  const int t = mPixelType;
  if (t == pixelNone || (t >= 10 && t <= 19) || (t >= 33 && t <= 36) || t == pixelUV8 || t == pixelUV16)
    return 0;
  return 1;
}

void ZrPixel::SetTransparency(bool on) { mbTransparency = on; }

bool ZrPixel::GetTransparency() { return mbTransparency; }

void ZrPixel::SetAlphaAdditive(bool on) { mbAlphaAdditive = on; }

bool ZrPixel::GetAlphaAdditive() { return mbAlphaAdditive; }

int ZrPixel::SetTransparency(double opacity, bool foreground) {
  if (opacity > 1.0) opacity = 1.0;
  if (opacity < 0.0) opacity = 0.0;
  (foreground ? mForeOpacity : mBackOpacity) = opacity;
  return 0;
}

int ZrPixel::PercentX(double fraction) { return zr::TruncToI32(mWidth * fraction); }

int ZrPixel::PercentY(double fraction) { return zr::TruncToI32(mHeight * fraction); }

int ZrPixel::SetYCbCrMode(cmYCbCr mode) {
  mYCbCrMode = mode;
  return 0;
}

int ZrPixel::GetYCbCrMode(cmYCbCr& mode) {
  mode = mYCbCrMode;
  return 0;
}
