// The pixel mix rows with SSE4.1, four pixels a step; the rest of a row, and
// rows where out runs into a source, go to the scalar rows.
#include <smmintrin.h>

#include "mux/pixel_rows.h"
#include "mux/x86_stream.h"

namespace zr::mux {
namespace {

template <class Op>
void Rows(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k,
          PixelRowFn scalar, Op op) {
  uint32_t x = 0;
  const auto steps = [&](auto store) {
    const uint32_t first = x;
    for (; width - x >= 4; x += 4) {
      const uint8_t* pa = a + size_t{x} * 4;
      const uint8_t* pb = b + size_t{x} * 4;
      if ((x - first) % 16 == 0) {  // once a cache line
        PrefetchAhead(pa);
        PrefetchAhead(pb);
      }
      store(out + size_t{x} * 4, op(InRegister(_mm_loadu_si128(reinterpret_cast<const __m128i*>(pa))),
                                    InRegister(_mm_loadu_si128(reinterpret_cast<const __m128i*>(pb)))));
    }
  };
  if (VectorSafe(a, b, out, width * 4)) {
    if (width >= kStreamBytes / 4 && StreamStart(out, width, x)) {
      scalar(a, b, out, x, k);
      steps([](uint8_t* to, __m128i v) { _mm_stream_si128(reinterpret_cast<__m128i*>(to), v); });
      _mm_sfence();
    } else {
      steps([](uint8_t* to, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), v); });
    }
  }
  if (x < width) scalar(a + size_t{x} * 4, b + size_t{x} * 4, out + size_t{x} * 4, width - x, k);
}

// Each pixel's byte i in all four bytes.
inline __m128i Broadcast(__m128i v, int i) {
  return _mm_shuffle_epi8(v, _mm_setr_epi8(i, i, i, i, i + 4, i + 4, i + 4, i + 4, i + 8, i + 8, i + 8, i + 8,
                                           i + 12, i + 12, i + 12, i + 12));
}

void Merge(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m128i ma = _mm_set1_epi32(static_cast<int>(k.maskA));
  const __m128i mb = _mm_set1_epi32(static_cast<int>(k.maskB));
  Rows(a, b, out, width, k, kPixelRowsScalar.merge,
       [&](__m128i va, __m128i vb) { return _mm_or_si128(_mm_and_si128(va, ma), _mm_and_si128(vb, mb)); });
}

// a / 2 + b / 2 is the rounded-up mean less 1 where either low bit is set.
void Average(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m128i one = _mm_set1_epi8(1);
  Rows(a, b, out, width, k, kPixelRowsScalar.average, [&](__m128i va, __m128i vb) {
    return _mm_sub_epi8(_mm_avg_epu8(va, vb), _mm_and_si128(_mm_or_si128(va, vb), one));
  });
}

void Difference(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i halfMask = _mm_set1_epi32(0x007F7F7F);  // halves of bytes 0-2; byte 3 dropped
  // min(m * gain, 127) is the same with the gain held to 127, which fits the
  // signed byte of pmaddubsw; bytes 1-3 of each word weigh 0.
  const __m128i gain = _mm_set1_epi32(static_cast<int>(k.gain < 127 ? k.gain : 127));
  const __m128i limit = _mm_set1_epi32(127);
  const __m128i grey = _mm_set1_epi32(128);
  const __m128i spread = _mm_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
  Rows(a, b, out, width, k, kPixelRowsScalar.difference, [&](__m128i va, __m128i vb) {
    // Where a byte of A is below B the difference wraps to a huge value: its
    // half is taken as 127, which saturates v whatever the gain.
    const __m128i notBelow = _mm_cmpeq_epi8(_mm_subs_epu8(vb, va), zero);
    const __m128i half = _mm_and_si128(_mm_srli_epi16(_mm_subs_epu8(va, vb), 1), halfMask);
    const __m128i d = _mm_or_si128(half, _mm_andnot_si128(notBelow, halfMask));
    const __m128i m = _mm_max_epu8(_mm_max_epu8(d, _mm_srli_epi32(d, 8)), _mm_srli_epi32(d, 16));
    const __m128i v = _mm_min_epu16(_mm_maddubs_epi16(m, gain), limit);
    return _mm_shuffle_epi8(_mm_or_si128(v, grey), spread);
  });
}

void MatchGate(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m128i tol = _mm_set1_epi8(static_cast<char>(k.tolerance > 255 ? 255 : k.tolerance));
  const __m128i fill = _mm_set1_epi32(static_cast<int>(k.fill));
  const __m128i zero = _mm_setzero_si128();
  Rows(a, b, out, width, k, kPixelRowsScalar.matchGate, [&](__m128i va, __m128i vb) {
    const __m128i diff = _mm_or_si128(_mm_subs_epu8(va, vb), _mm_subs_epu8(vb, va));
    const __m128i pass = _mm_cmpeq_epi32(_mm_subs_epu8(diff, tol), zero);
    return _mm_blendv_epi8(fill, vb, pass);
  });
}

void Crossfade(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.p >= 1 && k.p <= 255 && k.p + k.q == 256) {
    // Both weights fit a byte and add up to 256: pmaddubsw of the weights
    // with the samples less 128 gives p * a + q * b - 32768 exactly.
    const __m128i weights = _mm_set1_epi16(static_cast<short>(k.p | k.q << 8));
    const __m128i flip = _mm_set1_epi8(-128);
    const __m128i bias = _mm_set1_epi16(-32768);
    Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m128i va, __m128i vb) {
      const __m128i sa = _mm_xor_si128(va, flip), sb = _mm_xor_si128(vb, flip);
      const __m128i lo = _mm_add_epi16(_mm_maddubs_epi16(weights, _mm_unpacklo_epi8(sa, sb)), bias);
      const __m128i hi = _mm_add_epi16(_mm_maddubs_epi16(weights, _mm_unpackhi_epi8(sa, sb)), bias);
      return _mm_packus_epi16(_mm_srli_epi16(lo, 8), _mm_srli_epi16(hi, 8));
    });
    return;
  }
  // Bits 8 to 15 of p * a + q * b depend only on the low 16 bits of p and q,
  // so 16-bit lanes that wrap give the 32-bit result exactly.
  const __m128i zero = _mm_setzero_si128();
  const __m128i p = _mm_set1_epi16(static_cast<short>(k.p));
  const __m128i q = _mm_set1_epi16(static_cast<short>(k.q));
  const auto mix = [&](__m128i a16, __m128i b16) {
    return _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(a16, p), _mm_mullo_epi16(b16, q)), 8);
  };
  Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m128i va, __m128i vb) {
    const __m128i lo = mix(_mm_unpacklo_epi8(va, zero), _mm_unpacklo_epi8(vb, zero));
    const __m128i hi = mix(_mm_unpackhi_epi8(va, zero), _mm_unpackhi_epi8(vb, zero));
    return _mm_packus_epi16(lo, hi);
  });
}

void ChannelView(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.channel != kChannelMean) {
    const int c = static_cast<int>(k.channel);
    Rows(a, b, out, width, k, kPixelRowsScalar.channelView,
         [c](__m128i va, __m128i) { return Broadcast(va, c); });
    return;
  }
  // a0 + a1 + a2 by two multiply-adds, then (s * 0xAAAB) >> 17, which is s / 3
  // for s below 2^17.
  const __m128i pick = _mm_set1_epi32(0x00010101);
  const __m128i ones = _mm_set1_epi32(0x00010001);
  const __m128i third = _mm_set1_epi32(0xAAAB);
  Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [&](__m128i va, __m128i) {
    const __m128i s = _mm_madd_epi16(_mm_maddubs_epi16(va, pick), ones);
    return Broadcast(_mm_srli_epi16(_mm_mulhi_epu16(s, third), 1), 0);
  });
}

}  // namespace

const PixelRowSet kPixelRowsSse41 = {"sse41", Merge, Average, Difference, MatchGate, Crossfade, ChannelView};

}  // namespace zr::mux
