// A canvas from the library's factory over memory the caller owns, taken
// through the plain-function road (qtGetDraw) and released when the handle
// goes out of scope.
#ifndef ZRFX_CANVAS_HANDLE_H
#define ZRFX_CANVAS_HANDLE_H

#include <zrdraw.h>

#include <cstdint>

namespace zrfx {

class CanvasHandle {
 public:
  // A canvas of `type` over `buffer`; a pitch of 0 lets the canvas choose.
  // Throws RunError when the library has no canvas class for `type`.
  CanvasHandle(unsigned int type, uint32_t width, uint32_t height, uint32_t pitch, uint8_t* buffer);
  ~CanvasHandle();
  CanvasHandle(const CanvasHandle&) = delete;
  CanvasHandle& operator=(const CanvasHandle&) = delete;

  ZrDraw* operator->() const { return canvas_; }
  ZrDraw* get() const { return canvas_; }

  // Whether the library has a canvas class for `type`.
  static bool Supports(unsigned int type);

  // Sets the foreground (or background) colour from 8-bit components, the
  // same on every layout.
  void SetColour(uint32_t rgba, bool foreground = true);

 private:
  unsigned int type_;
  ZrDraw* canvas_ = nullptr;
};

}  // namespace zrfx

#endif
