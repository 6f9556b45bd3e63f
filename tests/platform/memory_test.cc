// The platform layer's memory: allocator hooks and reuse, ErrOut capture,
// the word fill and copy, the streaming row copy, the frame flips, and the application directory.
#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "common/form_check.h"
#include "common/guarded_buffer.h"
#include "common/test_random.h"
#include "platform/pixform.h"
#include "platform/row_copy.h"
#include "platform/testhooks.h"
#include "platform/zrutil.h"

namespace {

using zr::test::GuardedBuffer;

std::vector<std::string> gLines;

TEST(Platform, AllocAndErrOutHooks) {
  zr::testhooks::SetAllocHook([](size_t) -> void* { return nullptr; });
  EXPECT_EQ(nullptr, ZrAlloc(16));
  zr::testhooks::SetAllocHook([](size_t) -> void* { throw std::bad_alloc(); });
  EXPECT_THROW(ZrAlloc(16), std::bad_alloc);
  zr::testhooks::SetAllocHook(nullptr);
  zr::testhooks::SetErrOutHook([](const std::string& line) { gLines.push_back(line); });
  ErrOut("No Memory %s", "ZrDraw_DisplayWipeYCbCr");
  ErrOut("%d", 42);
  zr::testhooks::SetErrOutHook(nullptr);
  EXPECT_EQ((std::vector<std::string>{"No Memory ZrDraw_DisplayWipeYCbCr", "42"}), gLines);
  // A large freed block is kept and handed out again to a request it holds.
  const size_t frame = size_t{8} << 20;
  void* a = ZrAlloc(frame);
  ZrFree(a);
  void* b = ZrAlloc(frame - 4096);
  EXPECT_EQ(a, b);
  static_cast<char*>(b)[frame - 4097] = 1;
  ZrFree(b);
  void* c = ZrAlloc(2 * frame);  // too big for the kept block: one of its own
  static_cast<char*>(c)[2 * frame - 1] = 3;
  ZrFree(c);
  char dir[4096] = {};
  zrOSGetAppDir(dir);
  EXPECT_TRUE(dir[std::strlen(dir) - 1] == '/' && zrOSFileExists(dir));
  EXPECT_EQ(0, zrOSFileExists((std::string(dir) + "no-such-file.bmp").c_str()));
}

TEST(Platform, FillAndCopy) {
  for (size_t misalign = 0; misalign < 8; ++misalign)
    for (size_t n : {0, 1, 3, 4, 15, 16, 17, 33, 63, 64, 65, 257, 4099, (3 << 20) + 15}) {
      GuardedBuffer buf(n, misalign);
      SetMemoryFast(buf.data(), 0xA1B2C3D4u, n);
      for (size_t i = 0; i < n; ++i)
        ASSERT_EQ(static_cast<uint8_t>(0xA1B2C3D4u >> (8 * (i % 4))), buf[i]) << n << " at " << i;
      ASSERT_TRUE(buf.GuardsIntact()) << "size " << n << " misalign " << misalign;
    }
  GuardedBuffer src(1000), dst(1000);
  zr::test::Rng(3).Fill(src.data(), 1000);
  CopyMemoryFast(dst.data(), src.data(), 999);
  EXPECT_TRUE(std::memcmp(dst.data(), src.data(), 999) == 0 && dst[999] == GuardedBuffer::kGuardByte);
  std::vector<uint8_t> expect(src.data() + 10, src.data() + 510);
  CopyMemoryFast(src.data() + 20, src.data() + 10, 500);  // overlapping
  EXPECT_EQ(0, std::memcmp(src.data() + 20, expect.data(), 500));
}

#if defined(__x86_64__)
// Both row copies that fetch ahead give the plain copy's bytes at every
// length and alignment, and copy overlapping ranges as memmove does.
TEST(Platform, FetchingRowCopiesMatchThePlainCopy) {
  for (const zr::platform::RowCopyFn form :
       {zr::platform::CopyRowBytesStreaming_sse41, zr::platform::CopyRowBytesAhead_sse41}) {
    for (uint32_t w : zr::test::FormWidths()) {
      const size_t n = w * 9 + 200;  // the vector loop starts at 256 bytes
      const auto run = [&](bool ref, const uint8_t* src, const uint8_t*, uint8_t* dst) {
        (ref ? zr::platform::CopyRowBytes : form)(dst, src, n, n + 5);
        zr::platform::FinishRowCopies(form);
      };
      ASSERT_TRUE(zr::test::SameAsReference(w, n, n, 1, w % 2, run));
    }
    for (ptrdiff_t shift : {-300, -17, -1, 0, 1, 16, 300}) {  // overlapping ranges copy as memmove
      std::vector<uint8_t> got(2000), want(2000);
      zr::test::Rng(7).Fill(got.data(), got.size());
      want = got;
      std::memmove(&want[600 + shift], &want[600], 1000);
      form(&got[600 + shift], &got[600], 1000, 2000);
      EXPECT_EQ(got, want) << "shift " << shift;
    }
  }
}
#endif

// Flips of frames with row padding, which belongs to nobody and stays as it was.
TEST(Platform, Flips) {
  for (int w : {1, 2, 3, 7, 1030})
    for (int h : {1, 2, 3, 6}) {
      const int pitch = 4 * w + 8;
      const size_t size = static_cast<size_t>(pitch) * h;
      GuardedBuffer frame(size), other(size);
      zr::test::Rng(w * 10 + h).Fill(frame.data(), size);
      std::vector<uint8_t> copy(frame.data(), frame.data() + size);
      std::fill_n(other.data(), size, 0);
      pfmt_flip_vert(frame.data(), frame.data(), w, h, pitch);
      pfmt_flip_horz(copy.data(), other.data(), w, h, pitch, 0xFFFFFFFFu);
      for (int y = 0; y < h; ++y) {
        const uint8_t* row = copy.data() + y * pitch;
        ASSERT_EQ(0, std::memcmp(frame.data() + (h - 1 - y) * pitch, row, 4 * w)) << w << "x" << h;
        for (int x = 0; x < w; ++x)
          ASSERT_EQ(0, std::memcmp(other.data() + y * pitch + 4 * x, row + 4 * (w - 1 - x), 4));
        ASSERT_EQ(0, std::memcmp(other.data() + y * pitch + 4 * w, "\0\0\0\0\0\0\0\0", 8));
      }
      ASSERT_TRUE(frame.GuardsIntact() && other.GuardsIntact());
    }
  uint32_t row[3] = {0x11111111u, 0x22222222u, 0x33333333u};
  pfmt_flip_horz(row, row, 3, 1, 12, 0x00FF00FFu);  // cleared mask bits stay with their pixel
  EXPECT_EQ((std::vector<uint32_t>{0x11331133u, 0x22222222u, 0x33113311u}),
            std::vector<uint32_t>(row, row + 3));
}

}  // namespace
