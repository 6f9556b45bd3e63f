// The two picture readers of ZrDraw. Nothing in the library calls them: the
// bitmap reader fills pImgHdr and data, the PNG reader only walks its chunks.
// Both close their file on every path.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "zrdrawobject.h"

ZrBitmapHeader pImgHdr;
unsigned char data[0x100000];
unsigned char fp[12];
void* mpEdgeBuffer;

static_assert(sizeof(long) >= 8, "chunk skips of up to 2^32 + 3 bytes fit a seek offset");

namespace {

size_t ReadSome(void* to, size_t bytes, FILE* file) { return std::fread(to, 1, bytes, file); }

int CloseAndFail(FILE* file) {
  std::fclose(file);
  return -1;
}

}  // namespace

// Only the low byte of the pixel-data offset counts, and only the low byte of
// the bit depth is tested. A zero image size becomes width x height x 3 in 32
// bits, rows unpadded, and is stored back. Hosts rely on this; keep it.
int ZrDraw::ExtractBMPData(const char* path) {
  FILE* file = std::fopen(path, "rb+");
  if (!file) return -1;
  // The header record runs four bytes past the 50 read; those stay 0.
  unsigned char header[18 + sizeof pImgHdr] = {};
  std::fseek(file, 0, SEEK_SET);
  ReadSome(header, 50, file);
  if (header[0] != 'B' || header[1] != 'M' || header[14] != 0x28) return CloseAndFail(file);
  std::memcpy(&pImgHdr, header + 18, sizeof pImgHdr);
  if (pImgHdr.compression != 0) return CloseAndFail(file);
  std::fseek(file, header[10], SEEK_SET);
  if ((pImgHdr.bitCount & 0xFF) != 24) return CloseAndFail(file);
  uint32_t bytes = pImgHdr.sizeImage;
  if (bytes == 0) {
    bytes = static_cast<uint32_t>(pImgHdr.width) * static_cast<uint32_t>(pImgHdr.height) * 3u;
    pImgHdr.sizeImage = bytes;
  }
  // A short read without an error is a success.
  ReadSome(data, std::min<size_t>(bytes, sizeof data), file);
  const bool failed = std::ferror(file) != 0;
  return std::fclose(file) != 0 || failed ? -1 : 0;
}

// Gathers the image chunks and drops them: only the result says anything.
// Check values are not verified. The walk ends at "IEND", or with -1 at the
// end of the file.
int ZrDraw::ExtractPNGData(const char* path) {
  FILE* file = std::fopen(path, "rb");
  if (!file) return -1;
  static constexpr unsigned char kStart[16] = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A,
                                               0,    0,   0,   13,  'I',  'H',  'D',  'R'};
  unsigned char chunks[65536];
  std::memset(chunks, 0, sizeof kStart);
  std::fseek(file, 0, SEEK_SET);
  ReadSome(chunks, 4196, file);
  if (std::memcmp(chunks, kStart, sizeof kStart) != 0) return CloseAndFail(file);
  std::fseek(file, 33, SEEK_SET);
  uint64_t gathered = 0;
  for (;;) {
    unsigned char head[8];
    if (ReadSome(head, sizeof head, file) != sizeof head) return CloseAndFail(file);
    const uint32_t length = static_cast<uint32_t>(head[0]) << 24 | static_cast<uint32_t>(head[1]) << 16 |
                            static_cast<uint32_t>(head[2]) << 8 | head[3];
    uint64_t skip = uint64_t{length} + 4;
    if (std::memcmp(head + 4, "IDAT", 4) == 0) {
      // Bytes past the end of the buffer are skipped rather than stored.
      const size_t keep = gathered < sizeof chunks ? std::min<size_t>(length, sizeof chunks - gathered) : 0;
      if (keep != 0 && ReadSome(chunks + gathered, keep, file) != keep) return CloseAndFail(file);
      gathered += length;
      skip -= keep;
    }
    std::fseek(file, static_cast<long>(skip), SEEK_CUR);
    if (std::memcmp(head + 4, "IEND", 4) == 0) break;
  }
  return std::fclose(file) != 0 ? -1 : 0;
}
