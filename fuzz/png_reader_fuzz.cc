// The PNG chunk walk on any file: it must end, and close its file.
#include "fuzz/fuzz_file.h"
#include "zrdraw.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  static zr::fuzz::InputFile input;
  ZrDraw draw;
  draw.ExtractPNGData(input.Write(bytes, size));
  input.CheckNoneLeft();
  return 0;
}
