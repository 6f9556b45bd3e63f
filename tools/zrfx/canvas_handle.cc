#include "zrfx/canvas_handle.h"

#include <algorithm>
#include <type_traits>

#include "zrfx/errors.h"

namespace zrfx {
namespace {

// The words of a 16-bit RGB canvas of class Canvas; other canvases are left alone.
template <class Canvas, size_t N>
void StoreChannels(ZrDraw* handle, const uint32_t (&words)[N], bool foreground) {
  static_assert(N == std::extent_v<decltype(Canvas::mForeChannel)>);
  if (Canvas* canvas = dynamic_cast<Canvas*>(handle))
    std::copy(words, words + N, foreground ? canvas->mForeChannel : canvas->mBackChannel);
}

}  // namespace

CanvasHandle::CanvasHandle(unsigned int type, uint32_t width, uint32_t height, uint32_t pitch,
                           uint8_t* buffer)
    : type_(type),
      canvas_(qtGetDraw(type, static_cast<int>(width), static_cast<int>(height), static_cast<int>(pitch),
                        reinterpret_cast<char*>(buffer))) {
  if (!canvas_) throw RunError("the library has no canvas for pixel type " + std::to_string(type));
}

CanvasHandle::~CanvasHandle() { qtReleaseDraw(canvas_); }

bool CanvasHandle::Supports(unsigned int type) {
  // The factory only stores the buffer pointer, so one byte does for a probe.
  char byte = 0;
  ZrDraw* probe = qtGetDraw(type, 1, 1, 0, &byte);
  if (probe) qtReleaseDraw(probe);
  return probe != nullptr;
}

void CanvasHandle::SetColour(uint32_t rgba, bool foreground) {
  // The 8-bit RGB and Bayer canvases store each component times 255,
  // truncated: the half step keeps an 8-bit value exact through the
  // division. The others take the plain fraction, so that 255 stays 1.0: the
  // 10-bit RGB canvas carries a component above 1 into the next field.
  const bool eightBit =
      (type_ >= pixelRGBA32 && type_ <= pixelBGR24) || (type_ >= pixelBayerBGGR && type_ <= pixelBayerGRBG2);
  const double half = eightBit ? 0.5 : 0.0;
  auto component = [rgba, half](int k) { return ((rgba >> (8 * k) & 0xFF) + half) / 255.0; };
  canvas_->SetColorRGBA(component(0), component(1), component(2), component(3), foreground);

  // The 16-bit RGB canvases draw with words of their own, which no setter of
  // the library changes: a host writes them. An 8-bit c becomes c * 257, the
  // same fraction of 65535.
  auto word = [rgba](int k) { return (rgba >> (8 * k) & 0xFF) * 257; };
  const uint32_t rgb[] = {word(0), word(1), word(2)}, argb[] = {word(3), word(0), word(1), word(2)};
  StoreChannels<CDrawRGB48>(canvas_, rgb, foreground);
  StoreChannels<CDrawRGBHalf48>(canvas_, rgb, foreground);
  StoreChannels<CDrawARGB64>(canvas_, argb, foreground);
}

}  // namespace zrfx
