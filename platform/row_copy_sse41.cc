// The streaming row copy (SSE build).
#include <smmintrin.h>

#include <cstring>

#include "platform/row_copy.h"

namespace zr::platform {

void CopyRowBytesStreaming_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow) {
  constexpr size_t kMinimum = 256;
  const uintptr_t t = reinterpret_cast<uintptr_t>(target), s = reinterpret_cast<uintptr_t>(source);
  if (bytes < kMinimum || (t < s + bytes && s < t + bytes))
    return CopyRowBytes(target, source, bytes, nextRow);
  // Head up to the first 16-byte boundary of the target, then aligned
  // streaming stores, then the tail. The prefetch address is formed as an
  // integer: past the last row it points outside the picture, which a
  // prefetch may do.
  const size_t head = (16 - (t & 15)) & 15;
  std::memcpy(target, source, head);
  size_t i = head;
  for (; i + 64 <= bytes; i += 64) {
    _mm_prefetch(reinterpret_cast<const char*>(s + nextRow + i), _MM_HINT_T0);
    const __m128i v0 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i));
    const __m128i v1 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 16));
    const __m128i v2 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 32));
    const __m128i v3 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 48));
    _mm_stream_si128(reinterpret_cast<__m128i*>(target + i), v0);
    _mm_stream_si128(reinterpret_cast<__m128i*>(target + i + 16), v1);
    _mm_stream_si128(reinterpret_cast<__m128i*>(target + i + 32), v2);
    _mm_stream_si128(reinterpret_cast<__m128i*>(target + i + 48), v3);
  }
  for (; i + 16 <= bytes; i += 16)
    _mm_stream_si128(reinterpret_cast<__m128i*>(target + i),
                     _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i)));
  std::memcpy(target + i, source + i, bytes - i);
}

void StreamingFence_sse41() { _mm_sfence(); }

}  // namespace zr::platform
