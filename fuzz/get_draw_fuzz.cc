// Canvas factory from a bitmap record: the format table, its size arithmetic
// and the canvas it builds over a buffer of the size it asks for, then the
// re-pointing path of the typed factory and the reference count.
#include <cstdint>
#include <vector>

#include "input_reader.h"
#include "zrfactory.h"

namespace {

// Larger frames add nothing to the size arithmetic and only cost time.
constexpr uint32_t kMaxBufferBytes = 16u << 20;

// Whether the typed factory builds a class for `type`; for the others it
// re-points the canvas it is given.
bool HasCanvasClass(uint32_t type) {
  return (type >= 1 && type <= 6) || (type >= 10 && type <= 14) || (type >= 20 && type <= 28) || type == 31 ||
         type == 32 || type == 37 || type == 38 || type == 10000 || type == 10001;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  InputReader in(data, size);
  BITMAPINFO record{};
  record.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  record.bmiHeader.biWidth = in.Take<int32_t>();
  record.bmiHeader.biHeight = in.Take<int32_t>();
  record.bmiHeader.biBitCount = in.U16();
  record.bmiHeader.biCompression = in.U32();
  record.bmiHeader.biSizeImage = in.U32();
  record.bmiColors[0] = in.Take<RGBQUAD>();
  const uint32_t repointType = in.U32();
  const int32_t repointPitch = in.Take<int32_t>();

  // The table alone, on a copy, with and without a place for the type.
  BITMAPINFO probe = record;
  unsigned int type = in.U32();
  GetDrawSize(&probe, &type);
  probe = record;
  GetDrawSize(&probe, nullptr);

  // The canvas is built over a buffer of the size the table computes.
  probe = record;
  const uint32_t bytes = GetDrawSize(&probe, nullptr);
  if (bytes > kMaxBufferBytes) return 0;
  std::vector<char> buffer(bytes);
  ZrDraw* canvas = nullptr;
  if (GetDraw(&record, buffer.data(), canvas) != 0 || canvas == nullptr) return 0;
  canvas->GetPitch();

  // A type without a class re-points the canvas; nothing is drawn, so the
  // sizes and the pitch are only stored.
  if (!HasCanvasClass(repointType)) {
    const int32_t width = record.bmiHeader.biWidth;
    const int32_t height = record.bmiHeader.biHeight;
    GetDraw(repointType, width, height, repointPitch, buffer.data(), canvas);
    canvas->GetPitch();
  }
  AddRefDraw(canvas);
  ReleaseDraw(canvas);
  ReleaseDraw(canvas);
  return 0;
}
