#include "zrfx/png_io.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <vector>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"
#include "zrfx/output_file.h"
#include "zrfx/raw_io.h"

namespace zrfx {
namespace {

// libpng reports errors by longjmp. The functions that call setjmp below hold
// only plain data, so the jump skips no destructor; the C++ objects live in
// their callers.
struct PngState {
  explicit PngState(bool writing) : writing(writing) {}
  ~PngState() {
    if (writing)
      png_destroy_write_struct(&png, info ? &info : nullptr);
    else
      png_destroy_read_struct(&png, info ? &info : nullptr, nullptr);
  }
  PngState(const PngState&) = delete;
  PngState& operator=(const PngState&) = delete;

  bool writing;
  png_structp png = nullptr;
  png_infop info = nullptr;
  char message[200] = "";
};

void OnPngError(png_structp png, png_const_charp text) {
  auto* state = static_cast<PngState*>(png_get_error_ptr(png));
  std::snprintf(state->message, sizeof state->message, "%s", text);
  png_longjmp(png, 1);
}

void OnPngWarning(png_structp, png_const_charp) {}

bool ReadHeader(PngState* s, FILE* file, png_uint_32* width, png_uint_32* height, bool* hasAlpha) {
  if (setjmp(png_jmpbuf(s->png))) return false;
  png_init_io(s->png, file);
  png_set_user_limits(s->png, kMaxDimension, kMaxDimension);
  png_read_info(s->png, s->info);
  const int colorType = png_get_color_type(s->png, s->info);
  *hasAlpha = (colorType & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(s->png, s->info, PNG_INFO_tRNS);
  png_set_expand(s->png);
  png_set_scale_16(s->png);
  if ((colorType & PNG_COLOR_MASK_COLOR) == 0) png_set_gray_to_rgb(s->png);
  png_set_filler(s->png, 0xFF, PNG_FILLER_AFTER);
  png_set_interlace_handling(s->png);
  png_read_update_info(s->png, s->info);
  *width = png_get_image_width(s->png, s->info);
  *height = png_get_image_height(s->png, s->info);
  if (png_get_rowbytes(s->png, s->info) != 4u * *width) {
    std::snprintf(s->message, sizeof s->message, "unexpected row layout");
    return false;
  }
  return true;
}

bool ReadRows(PngState* s, png_bytepp rows) {
  if (setjmp(png_jmpbuf(s->png))) return false;
  png_read_image(s->png, rows);
  png_read_end(s->png, nullptr);
  return true;
}

void OnPngWrite(png_structp png, png_bytep data, size_t bytes) {
  if (!static_cast<OutputFile*>(png_get_io_ptr(png))->Write(data, bytes))
    png_error(png, std::strerror(errno));
}

void OnPngFlush(png_structp) {}

bool WriteRows(PngState* s, OutputFile* file, png_uint_32 width, png_uint_32 height, bool withAlpha,
               png_bytepp rows) {
  if (setjmp(png_jmpbuf(s->png))) return false;
  png_set_write_fn(s->png, file, OnPngWrite, OnPngFlush);
  png_set_IHDR(s->png, s->info, width, height, 8, withAlpha ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(s->png, s->info);
  // On writing, the filler setting drops byte 3 of each 4-byte pixel.
  if (!withAlpha) png_set_filler(s->png, 0, PNG_FILLER_AFTER);
  png_write_image(s->png, rows);
  png_write_end(s->png, s->info);
  return true;
}

std::vector<png_bytep> RowPointers(uint8_t* base, uint32_t pitch, uint32_t height) {
  std::vector<png_bytep> rows(height);
  for (uint32_t y = 0; y < height; ++y) rows[y] = base + static_cast<size_t>(y) * pitch;
  return rows;
}

class File {
 public:
  File(const std::string& path, const char* mode) : file_(std::fopen(path.c_str(), mode)) {}
  ~File() {
    if (file_) std::fclose(file_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  FILE* get() const { return file_; }

 private:
  FILE* file_;
};

}  // namespace

PngPicture ReadPng(const std::string& path) {
  File file(path, "rb");
  if (!file.get()) throw UsageError("cannot open " + path + ": " + std::strerror(errno));
  if (IsDirectory(fileno(file.get()))) throw UsageError("cannot open " + path + ": " + std::strerror(EISDIR));
  PngState s(false);
  s.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &s, OnPngError, OnPngWarning);
  if (!s.png) throw RunError("out of memory reading " + path);
  s.info = png_create_info_struct(s.png);
  png_uint_32 width = 0, height = 0;
  bool hasAlpha = false;
  bool ok = s.info && ReadHeader(&s, file.get(), &width, &height, &hasAlpha);
  PngPicture picture{Frame(), hasAlpha};
  if (ok) {
    CheckFrameSize(width, height, path + ": a picture");
    picture.frame = Frame(width, height);
    std::vector<png_bytep> rows = RowPointers(picture.frame.data(), picture.frame.pitch(), height);
    ok = ReadRows(&s, rows.data());
  }
  if (!ok) throw UsageError("cannot read " + path + ": " + (s.message[0] ? s.message : "not a PNG file"));
  return picture;
}

void WritePng(const std::string& path, const Frame& frame, bool withAlpha) {
  OutputFile file(path, "a PNG picture");
  PngState s(true);
  s.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &s, OnPngError, OnPngWarning);
  if (!s.png) throw RunError("out of memory writing " + file.name());
  s.info = png_create_info_struct(s.png);
  // libpng takes non-const row pointers but only reads them when writing.
  std::vector<png_bytep> rows =
      RowPointers(const_cast<uint8_t*>(frame.data()), frame.pitch(), frame.height());
  if (!s.info || !WriteRows(&s, &file, frame.width(), frame.height(), withAlpha, rows.data()))
    throw RunError("cannot write " + file.name() + (s.message[0] ? std::string(": ") + s.message : ""));
  file.Commit();
}

}  // namespace zrfx
