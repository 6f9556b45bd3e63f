// One mux call as a record, after the roles of the two sources are settled,
// and the addressing that every mode shares.
#ifndef ZR_MUX_MUX_CALL_H
#define ZR_MUX_MUX_CALL_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zr::mux {

struct MuxCall {
  uint8_t* a;  // frameA, or frameB under MUXF_SWAP
  uint8_t* b;  // the other one
  uint8_t* out;
  uint32_t sizeA;  // byte counts stay with their argument position, not the role
  uint32_t sizeB;
  uint32_t flags;  // the whole muxFlags word
  uint32_t wipeCode;
  uint32_t mixPosition;
  uint32_t mixLevel;
  uint32_t splitX;
  uint32_t splitY;
  uint32_t width;
  uint32_t height;
  uint32_t pitch;

  bool Has(uint32_t flag) const { return (flags & flag) != 0; }
};

// One mode of the mux, run over the whole frame.
using MuxModeFn = void (*)(const MuxCall& call);

// Row r of a frame stepped by pitch: the offset wraps at 2^32 before it is
// added, as hosts have always seen it.
inline uint8_t* MuxRow(uint8_t* frame, uint32_t r, uint32_t pitch) {
  return frame + static_cast<uint32_t>(r * pitch);
}

// Pixel i of a frame taken as one tight run of pixels; i itself is a 32-bit
// index that wraps.
inline uint8_t* MuxPixel(uint8_t* frame, uint32_t i) { return frame + size_t{i} * 4; }

// Frames need not be 4-byte aligned: pixels move through memcpy.
inline uint32_t LoadPixel(const uint8_t* p) {
  uint32_t v;
  std::memcpy(&v, p, 4);
  return v;
}
inline void StorePixel(uint8_t* p, uint32_t v) { std::memcpy(p, &v, 4); }
inline void CopyPixel(uint8_t* to, const uint8_t* from) { std::memcpy(to, from, 4); }

}  // namespace zr::mux

#endif
