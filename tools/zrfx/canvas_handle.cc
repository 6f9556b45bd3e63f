#include "zrfx/canvas_handle.h"

#include "zrfx/errors.h"

namespace zrfx {

CanvasHandle::CanvasHandle(unsigned int type, uint32_t width, uint32_t height, uint32_t pitch,
                           uint8_t* buffer)
    : canvas_(qtGetDraw(type, static_cast<int>(width), static_cast<int>(height), static_cast<int>(pitch),
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
  // The canvas stores each component times 255, truncated: the half step
  // keeps an 8-bit value exact through the division.
  auto component = [rgba](int k) { return ((rgba >> (8 * k) & 0xFF) + 0.5) / 255.0; };
  canvas_->SetColorRGBA(component(0), component(1), component(2), component(3), foreground);
}

}  // namespace zrfx
