// The search for a default font file. It only tells whether one exists: no
// file is opened, and text always comes from the built-in font.
#include <cstdio>
#include <cstring>

#include "platform/zrutil.h"
#include "zrdrawobject.h"

namespace {

const char* FontFileFor(unsigned int width) {
  if (width <= 720) return "deffont_sd.bmp";
  if (width <= 1280) return "deffont_720.bmp";
  return "deffont_1080.bmp";
}

}  // namespace

// Beside the application first, then in two fixed install places, kept
// literally with their backslashes on every platform. 0 means a font file
// exists, 1 that the built-in font is what remains; the path is dropped.
int ZrDraw::UseDefaultFont(bool builtIn) {
  if (builtIn) {
    mbUseBuiltInFont = true;
    return 1;
  }
  char path[4096] = {};
  zrOSGetAppDir(path);
  const size_t dirLength = std::strlen(path);
  std::snprintf(path + dirLength, sizeof path - dirLength, "%s", FontFileFor(mWidth));
  if (!zrOSFileExists(path)) std::snprintf(path, sizeof path, "E:\\velmora\\bin\\%s", FontFileFor(mWidth));
  if (!zrOSFileExists(path))
    std::snprintf(path, sizeof path, "C:\\Program Files (x86)\\Velmora\\%s", FontFileFor(mWidth));
  const int missing = zrOSFileExists(path) ? 0 : 1;
  mbUseBuiltInFont = missing != 0;
  return missing;
}
