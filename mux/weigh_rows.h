// Row functions of weigh_plane: dst[x] = low byte of
// (dst[x] * weightDst + src[x] * weightSrc + 32768) >> 16, in 32-bit
// arithmetic that wraps, x ascending. The scalar row is the reference; the
// vector rows give its bytes exactly, the wrap included, and hand rows in
// which src starts below dst and runs into it to the scalar row.
#ifndef ZR_MUX_WEIGH_ROWS_H
#define ZR_MUX_WEIGH_ROWS_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace zr::mux {

using WeighRowFn = void (*)(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc,
                            uint32_t weightDst);

void WeighRowScalar(uint8_t* dst, const uint8_t* src, uint32_t width, uint32_t weightSrc, uint32_t weightDst);
// The vector rows, each in its instruction set's namespace.
#if defined(__x86_64__)
namespace sse41 {
void WeighRow(uint8_t*, const uint8_t*, uint32_t, uint32_t, uint32_t);
}
namespace avx2 {
void WeighRow(uint8_t*, const uint8_t*, uint32_t, uint32_t, uint32_t);
}
namespace avx512 {
void WeighRow(uint8_t*, const uint8_t*, uint32_t, uint32_t, uint32_t);
}
#else
namespace neon {
void WeighRow(uint8_t*, const uint8_t*, uint32_t, uint32_t, uint32_t);
}
#endif

// A vector row and the instruction set (cpu::Isa) it needs.
struct WeighRowForm {
  uint32_t isa;
  WeighRowFn row;
};

// The vector rows, widest first, and the widest one the processor runs.
std::span<const WeighRowForm> WeighRowForms();
WeighRowFn ActiveWeighRow();

// True when src does not start below dst and run into it: then a vector
// step that loads before it stores gives the byte-by-byte result. Internal
// linkage, so that a copy compiled for a wider instruction set never serves
// another file.
static inline bool WeighVectorSafe(const uint8_t* dst, const uint8_t* src, uint32_t width) {
  const auto d = reinterpret_cast<uintptr_t>(dst);
  const auto s = reinterpret_cast<uintptr_t>(src);
  return !(s < d && d - s < width);
}

// Weights for the x86 rows, which multiply (dst, src) byte pairs by signed
// 16-bit weights (pmaddwd). Only the low 24 bits of a weight reach bits 16
// to 23 of the sum, and modulo 2^24 a weight is low + 65536 * carry, with low
// its bits 0 to 15 taken as signed and carry its bits 16 to 23 plus bit 15.
// Byte 2 of d * lowDst + s * lowSrc + 32768 then lacks d * carryDst +
// s * carrySrc, modulo 256. For weights from -32768 to 65536, the usual ones,
// the carries are 0 or 1 and that is a plain byte add of d, of s, or of both;
// other weights take a second multiply-add.
struct WeighSplit {
  uint32_t low;    // low 16 bits of weightDst | those of weightSrc << 16
  uint32_t carry;  // carryDst | carrySrc << 16
  int kind;        // kWeighAddDst and kWeighAddSrc bits, or kWeighGeneral
};
inline constexpr int kWeighAddDst = 1;
inline constexpr int kWeighAddSrc = 2;
inline constexpr int kWeighGeneral = 4;

static inline WeighSplit SplitWeights(uint32_t weightSrc, uint32_t weightDst) {
  const auto carry = [](uint32_t w) { return ((w >> 16) + ((w >> 15) & 1)) & 0xFF; };
  const uint32_t cd = carry(weightDst), cs = carry(weightSrc);
  const int kind =
      cd <= 1 && cs <= 1 ? static_cast<int>(cd * kWeighAddDst + cs * kWeighAddSrc) : kWeighGeneral;
  return {(weightDst & 0xFFFF) | weightSrc << 16, cd | cs << 16, kind};
}

}  // namespace zr::mux

#endif
