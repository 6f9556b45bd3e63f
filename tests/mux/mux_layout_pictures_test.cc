// The layout modes, the copies, the flips and swap in front of them and the
// grid overlay after them, as pictures of tiny frames: which source pixel
// lands where, what stays untouched, and the row and column past the frame
// that some modes read and write.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mux/mux_args.h"
#if defined(__x86_64__)
#include "zripp.h"
#endif

namespace zr::test {
namespace {

constexpr uint32_t kUntouched = 0x0C0C0C0C;

// Pixel (r, c) of A reads 0xA0000r0c and of B 0xB0000r0c. In a picture "A12"
// is A's pixel at row 1, column 2, "---" black, "|||" the divider, "###" the
// grid, "..." untouched and "???" anything else; " / " ends a row. Each
// frame has a spare row and, unless its rows are tight, a spare column, both
// drawn.
std::string Picture(MuxArgs g, std::vector<uint32_t>* keep = nullptr) {
  const uint32_t pitchPixels = g.width + (TightRows(g.flags) ? 0 : 1);
  g.pitch = pitchPixels * 4;
  const uint32_t n = (g.height + 1) * pitchPixels;
  std::vector<uint32_t> a(n), b(n), out(n, kUntouched);
  for (uint32_t i = 0; i < n; ++i)
    a[i] = 0xA0000000 | (i / pitchPixels) << 8 | i % pitchPixels, b[i] = a[i] ^ 0x10000000;
  CallMux(a.data(), b.data(), out.data(), g);
  std::string s;
  for (uint32_t i = 0; i < n; ++i) {
    const uint32_t v = out[i], source = v >> 28;
    s += v == kUntouched   ? "..."
         : v == 0          ? "---"
         : v == 0x80808080 ? "|||"
         : v == 0xBFBFBFBF ? "###"
         : source == 0xA || source == 0xB
             ? std::string{char('A' + source - 0xA), char('0' + (v >> 8 & 0xFF)), char('0' + (v & 0xFF))}
             : "???";
    s += i + 1 == n ? "" : (i + 1) % pitchPixels ? " " : " / ";
  }
  if (keep) *keep = out;
  return s;
}

// clang-format off
const std::pair<MuxArgs, const char*> kPictures[] = {
    // The copies: sizeA and sizeB stay with their argument positions, whatever the roles and mode bits.
    {{.flags = MUX_DEFAULT, .width = 2, .height = 1, .sizeA = 8, .sizeB = 4}, "A00 A01 ... / ... ... ..."},
    {{.flags = MUXF_SWAP, .width = 2, .height = 1, .sizeA = 8, .sizeB = 4}, "B00 B01 ... / ... ... ..."},
    {{.flags = MUX_COPY_B | MUXF_SWAP, .width = 2, .height = 1, .sizeA = 8, .sizeB = 4}, "A00 ... ... / ... ... ..."},
    {{.flags = 0x000003, .width = 1, .height = 1, .sizeA = 4}, "A00 ... / ... ..."},
    {{.flags = 0x400000, .width = 1, .height = 1, .sizeA = 4}, "A00 ... / ... ..."},
    // An odd height takes row height from B; whole rows are pitch bytes.
    {{.flags = MUX_INTERLEAVE, .width = 2, .height = 3}, "A00 A01 A02 / B10 B11 B12 / A20 A21 A22 / B30 B31 B32"},
    {{.flags = MUX_INTERLEAVE | MUXF_ALT_AXIS, .width = 3, .height = 1}, "A00 B01 ... ... / ... ... ... ..."},
    {{.flags = MUX_INTERLEAVE | MUXF_FLIP_V_B, .width = 1, .height = 2}, "A00 A01 / B00 B11 / ... ..."},
    {{.flags = MUX_OVER_UNDER, .width = 1, .height = 3}, "A00 A01 / B00 B01 / ... ... / ... ..."},
    {{.flags = MUX_SPLIT | MUXF_DIVIDER, .width = 3, .height = 1, .splitX = 3}, "A00 A01 A02 ||| / ... ... ... ..."},
    {{.flags = MUX_SPLIT | MUXF_DIVIDER, .width = 3, .height = 1}, "||| B01 B02 ... / ... ... ... ..."},
    {{.flags = MUX_SPLIT, .width = 5, .height = 1, .splitX = 6}, "A00 A01 B02 B03 B04 ... / ... ... ... ... ... ..."},
    {{.flags = MUX_SPLIT | MUXF_FLIP_H_B, .width = 3, .height = 2, .splitX = 1}, "A00 B01 B00 ... / A10 B11 B10 ... / ... ... ... ..."},
    {{.flags = MUX_SPLIT | MUXF_FLIP_V_A, .width = 3, .height = 2, .splitX = 2}, "A10 A11 B02 ... / A00 A01 B12 ... / ... ... ... ..."},
    {{.flags = MUX_SPLIT | MUXF_SWAP | MUXF_FLIP_H_A, .width = 3, .height = 1, .splitX = 2}, "B02 B01 A02 ... / ... ... ... ..."},
    {{.flags = MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, .width = 1, .height = 3, .splitY = 1}, "A00 A01 / ||| ||| / B20 B21 / ... ..."},
    {{.flags = MUX_SPLIT | MUXF_ALT_AXIS | MUXF_DIVIDER, .width = 1, .height = 3, .splitY = 3}, "A00 A01 / A10 A11 / A20 A21 / ... ..."},
    {{.flags = MUX_MIRROR2, .width = 5, .height = 1}, "A00 A01 B02 B01 B00 ... / ... ... ... ... ... ..."},
    {{.flags = MUX_MIRROR | MUXF_ALT_AXIS, .width = 1, .height = 5}, "A00 A01 / A10 A11 / B20 B21 / B10 B11 / B00 B01 / ... ..."},
    // Pairs of columns and rows: an odd frame reads and writes past itself.
    {{.flags = MUX_CHECKER, .width = 3, .height = 1}, "A00 B01 A02 B03 / B10 A11 B12 A13"},
    {{.flags = MUX_BLOCK_CHECKER, .width = 3, .height = 2, .mixPosition = 255}, "A00 B01 A02 ... / B10 A11 B12 ... / ... ... ... ..."},
    {{.flags = MUX_BLOCK_CHECKER, .width = 5, .height = 3, .mixPosition = 0x2FF},
     "A00 A01 B02 B03 A04 ... / A10 A11 B12 B13 A14 ... / B20 B21 A22 A23 B24 ... / ... ... ... ... ... ..."},
    {{.flags = MUX_TWO_UP, .width = 4, .height = 4}, "--- --- --- --- / A00 A02 B00 B02 / A20 A22 B20 B22 / --- --- --- --- / ... ... ... ..."},
    {{.flags = MUX_TWO_UP, .width = 5, .height = 1}, "A00 A02 A04 B02 B04 / ... ... ... ... ..."},
    {{.flags = MUX_CROP_PAIR, .width = 5, .height = 1, .splitX = 100}, "A02 A03 B02 B03 --- / ... ... ... ... ..."},
    {{.flags = MUX_CROP_PAIR | MUXF_ALT_AXIS, .width = 3, .height = 3, .splitY = 1}, "A10 A11 A12 / --- B10 B11 / B12 --- --- / ... ... ..."},
    {{.flags = MUX_SIDE_BY_SIDE, .width = 4, .height = 2}, "A00 A02 B00 B02 / A10 A12 B10 B12 / ... ... ... ..."},
    {{.flags = MUX_SIDE_BY_SIDE, .width = 4, .height = 0}, "... ... ... ..."},
    // The grid: rows that are lines fill the whole pitch. Steps in pixels from gridMode 2 on; below it, 100 /
    // gridStepX parts (34 makes 2), each division truncated.
    {{.flags = MUX_DEFAULT, .width = 4, .height = 3, .gridMode = 2, .gridStepX = 3, .gridStepY = 2},
     "### ### ### ### ### / ### ... ... ### ... / ### ### ### ### ### / ... ... ... ... ..."},
    {{.flags = MUXF_GRID, .width = 4, .height = 4, .gridStepX = 34, .gridStepY = 1},
     "### ### ### ### ### / ### ... ### ... ... / ### ### ### ### ### / ### ... ### ... ... / ... ... ... ... ..."},
    {{.flags = MUX_DEFAULT, .width = 1, .height = 2, .gridMode = 9, .gridStepX = 0, .gridStepY = 1}, "### ### / ### ### / ... ..."},
    {{.flags = MUXF_GRID, .width = 0, .height = 3, .gridMode = 2, .gridStepX = 0, .gridStepY = 2}, "### / ... / ### / ..."},
    {{.flags = MUX_SPLIT | MUXF_GRID, .width = 3, .height = 0, .splitX = 1, .gridStepX = 0}, "... ... ... ..."},
};
// clang-format on

TEST(MuxLayoutPictures, Pictures) {
  for (const auto& [args, picture] : kPictures)
    EXPECT_EQ(Picture(args), picture)
        << "flags " << std::hex << args.flags << std::dec << ", " << args.width << " x " << args.height;
}

#if defined(__x86_64__)
// Two pixels a call; B's start 6 bytes into the row, mid-pixel, and its last
// two bytes run into the spare row.
TEST(MuxLayoutPictures, SideBySideOfAnOddWidthThroughTheEngine) {
  std::vector<uint32_t> out;
  Picture({.flags = MUX_SIDE_BY_SIDE, .width = 3, .height = 1}, &out);
  EXPECT_EQ(out,
            (std::vector<uint32_t>{0xA0000000, 0x00000002, 0x0002B000, 0x0C0CB000, kUntouched, kUntouched}));
}

// Without scratch only B's call is made, and the engine refuses it.
TEST(MuxLayoutPictures, SideBySideDrawsNothingWithoutScratch) {
  void* (*const saved)(size_t) = i_malloc;
  i_malloc = [](size_t) -> void* { return nullptr; };
  const std::string picture = Picture({.flags = MUX_SIDE_BY_SIDE, .width = 2, .height = 1});
  i_malloc = saved;
  EXPECT_EQ(picture, "... ... / ... ...");
}
#endif

}  // namespace
}  // namespace zr::test
