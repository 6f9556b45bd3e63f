// The bitmap reader on any file.
#include "fuzz/fuzz_file.h"
#include "zrdraw.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  static zr::fuzz::InputFile input;
  ZrDraw draw;
  draw.ExtractBMPData(input.Write(bytes, size));
  input.CheckNoneLeft();
  return 0;
}
