// Which source is coming in, and where a row of a picture starts.
#ifndef ZR_FX_SOURCE_ROWS_H
#define ZR_FX_SOURCE_ROWS_H

#include <cstdint>

namespace zr::fx {

// The two pictures of a transition. Each keeps its own pitch, whichever
// role it plays.
struct zrfxSourceRoles {
  const uint8_t* incoming;
  uint32_t incomingPitch;
  const uint8_t* outgoing;
  uint32_t outgoingPitch;
};

// Bit 31 of the wipe code exchanges the sources: clear, srcB comes in.
inline zrfxSourceRoles zrfxPickRoles(const uint8_t* srcA, uint32_t pitchA, const uint8_t* srcB,
                                     uint32_t pitchB, uint32_t wipeCode) {
  if (wipeCode & 0x80000000u) return {srcA, pitchA, srcB, pitchB};
  return {srcB, pitchB, srcA, pitchA};
}

// Row y of a picture. The offset y * pitch wraps at 2^32 before it is added,
// as it always has; hosts with frames beyond 4 GiB see the wrap.
template <typename Byte>
inline Byte* FxRow(Byte* base, uint32_t y, uint32_t pitch) {
  return base + static_cast<uint32_t>(y * pitch);
}

}  // namespace zr::fx

#endif
