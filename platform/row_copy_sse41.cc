// The row copies that fetch the next row ahead (SSE build): one body, with
// streaming or ordinary stores.
#include <smmintrin.h>

#include <cstring>

#include "platform/row_copy.h"

namespace zr::platform {
namespace {

template <bool kStreaming>
void CopyFetchingAhead(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow) {
  constexpr size_t kMinimum = 256;
  const uintptr_t t = reinterpret_cast<uintptr_t>(target), s = reinterpret_cast<uintptr_t>(source);
  // A run that reaches the next row is a block of rows, for which there is
  // nothing ahead to fetch: the cached form leaves blocks to the C library.
  const bool block = !kStreaming && bytes > nextRow;
  if (bytes < kMinimum || block || (t < s + bytes && s < t + bytes))
    return CopyRowBytes(target, source, bytes, nextRow);
  // Head up to the first 16-byte boundary of the target, then aligned
  // stores, then the tail. The prefetch address is formed as an integer:
  // past the last row it points outside the picture, which a prefetch may do.
  const size_t head = (16 - (t & 15)) & 15;
  std::memcpy(target, source, head);
  const auto store = [](uint8_t* to, __m128i v) {
    if constexpr (kStreaming)
      _mm_stream_si128(reinterpret_cast<__m128i*>(to), v);
    else
      _mm_store_si128(reinterpret_cast<__m128i*>(to), v);
  };
  size_t i = head;
  for (; i + 64 <= bytes; i += 64) {
    _mm_prefetch(reinterpret_cast<const char*>(s + nextRow + i), _MM_HINT_T0);
    const __m128i v0 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i));
    const __m128i v1 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 16));
    const __m128i v2 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 32));
    const __m128i v3 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i + 48));
    store(target + i, v0);
    store(target + i + 16, v1);
    store(target + i + 32, v2);
    store(target + i + 48, v3);
  }
  for (; i + 16 <= bytes; i += 16)
    store(target + i, _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i)));
  std::memcpy(target + i, source + i, bytes - i);
}

}  // namespace

void CopyRowBytesStreaming_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow) {
  CopyFetchingAhead<true>(target, source, bytes, nextRow);
}

void CopyRowBytesAhead_sse41(uint8_t* target, const uint8_t* source, size_t bytes, size_t nextRow) {
  CopyFetchingAhead<false>(target, source, bytes, nextRow);
}

void StreamingFence_sse41() { _mm_sfence(); }

}  // namespace zr::platform
