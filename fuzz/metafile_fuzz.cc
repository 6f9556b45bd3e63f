// The metafile headers on any file, with header storage in the two places a
// host can give it: inside a derived object, where the check walk runs over
// the object, and below the object, where the walk is empty. The descriptor
// is held until EMFClose.
#include "fuzz/fuzz_file.h"
#include "zrdraw.h"

namespace {

struct Inside : ZrDraw {
  alignas(2) uint8_t placeable[22] = {};
  uint8_t meta[18] = {};
  Inside() {
    mpPlaceableHeader = placeable;
    mpMetaHeader = meta;
  }
};

struct Below {
  uint8_t store[40] = {};
  ZrDraw draw;
  Below() {
    draw.mpPlaceableHeader = store;
    draw.mpMetaHeader = store + 22;
  }
};

void Read(ZrDraw& draw, const char* path) {
  int width = 0, height = 0;
  draw.EMFOpen(path);
  draw.EMFGetSize(width, height);
  draw.EMFClose();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  static zr::fuzz::InputFile input;
  const char* path = input.Write(bytes, size);
  Inside inside;
  Below below;
  Read(inside, path);
  Read(below.draw, path);
  input.CheckNoneLeft();
  return 0;
}
