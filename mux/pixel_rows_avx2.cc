// The pixel mix rows with AVX2, eight pixels a step. Every operation stays
// within its 128-bit lane, so the lanes come out in order; the rest of a row,
// and rows where out runs into a source, go to the scalar rows.
#include <immintrin.h>

#include "mux/pixel_rows.h"
#include "mux/x86_stream.h"

namespace zr::mux {
namespace {

inline __m256i Lanes(__m128i lane) { return _mm256_broadcastsi128_si256(lane); }

template <class Op>
void Rows(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k,
          PixelRowFn scalar, Op op) {
  uint32_t x = 0;
  const auto steps = [&](auto store) {
    const uint32_t first = x;
    for (; width - x >= 8; x += 8) {
      const uint8_t* pa = a + size_t{x} * 4;
      const uint8_t* pb = b + size_t{x} * 4;
      if ((x - first) % 16 == 0) {  // once a cache line
        PrefetchAhead(pa);
        PrefetchAhead(pb);
      }
      store(out + size_t{x} * 4, op(InRegister(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pa))),
                                    InRegister(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pb)))));
    }
  };
  if (VectorSafe(a, b, out, width * 4)) {
    if (width >= kStreamBytes / 4 && StreamStart(out, width, x)) {
      scalar(a, b, out, x, k);
      steps([](uint8_t* to, __m256i v) { _mm256_stream_si256(reinterpret_cast<__m256i*>(to), v); });
      _mm_sfence();
    } else {
      steps([](uint8_t* to, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), v); });
    }
  }
  if (x < width) scalar(a + size_t{x} * 4, b + size_t{x} * 4, out + size_t{x} * 4, width - x, k);
}

// Each pixel's byte i in all four bytes.
inline __m256i Broadcast(__m256i v, int i) {
  return _mm256_shuffle_epi8(v, Lanes(_mm_setr_epi8(i, i, i, i, i + 4, i + 4, i + 4, i + 4, i + 8, i + 8,
                                                    i + 8, i + 8, i + 12, i + 12, i + 12, i + 12)));
}

void Merge(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m256i ma = _mm256_set1_epi32(static_cast<int>(k.maskA));
  const __m256i mb = _mm256_set1_epi32(static_cast<int>(k.maskB));
  Rows(a, b, out, width, k, kPixelRowsScalar.merge, [&](__m256i va, __m256i vb) {
    return _mm256_or_si256(_mm256_and_si256(va, ma), _mm256_and_si256(vb, mb));
  });
}

// a / 2 + b / 2 is the rounded-up mean less 1 where either low bit is set.
void Average(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m256i one = _mm256_set1_epi8(1);
  Rows(a, b, out, width, k, kPixelRowsScalar.average, [&](__m256i va, __m256i vb) {
    return _mm256_sub_epi8(_mm256_avg_epu8(va, vb), _mm256_and_si256(_mm256_or_si256(va, vb), one));
  });
}

void Difference(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i halfMask = _mm256_set1_epi32(0x007F7F7F);  // halves of bytes 0-2; byte 3 dropped
  // min(m * gain, 127) is the same with the gain held to 127, which fits the
  // signed byte of pmaddubsw; bytes 1-3 of each word weigh 0.
  const __m256i gain = _mm256_set1_epi32(static_cast<int>(k.gain < 127 ? k.gain : 127));
  const __m256i limit = _mm256_set1_epi32(127);
  const __m256i grey = _mm256_set1_epi32(128);
  const __m256i spread = Lanes(_mm_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1));
  Rows(a, b, out, width, k, kPixelRowsScalar.difference, [&](__m256i va, __m256i vb) {
    // Where a byte of A is below B the difference wraps to a huge value: its
    // half is taken as 127, which saturates v whatever the gain.
    const __m256i notBelow = _mm256_cmpeq_epi8(_mm256_subs_epu8(vb, va), zero);
    const __m256i half = _mm256_and_si256(_mm256_srli_epi16(_mm256_subs_epu8(va, vb), 1), halfMask);
    const __m256i d = _mm256_or_si256(half, _mm256_andnot_si256(notBelow, halfMask));
    const __m256i m = _mm256_max_epu8(_mm256_max_epu8(d, _mm256_srli_epi32(d, 8)), _mm256_srli_epi32(d, 16));
    const __m256i v = _mm256_min_epu16(_mm256_maddubs_epi16(m, gain), limit);
    return _mm256_shuffle_epi8(_mm256_or_si256(v, grey), spread);
  });
}

void MatchGate(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m256i tol = _mm256_set1_epi8(static_cast<char>(k.tolerance > 255 ? 255 : k.tolerance));
  const __m256i fill = _mm256_set1_epi32(static_cast<int>(k.fill));
  const __m256i zero = _mm256_setzero_si256();
  Rows(a, b, out, width, k, kPixelRowsScalar.matchGate, [&](__m256i va, __m256i vb) {
    const __m256i diff = _mm256_or_si256(_mm256_subs_epu8(va, vb), _mm256_subs_epu8(vb, va));
    const __m256i pass = _mm256_cmpeq_epi32(_mm256_subs_epu8(diff, tol), zero);
    return _mm256_blendv_epi8(fill, vb, pass);
  });
}

void Crossfade(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.p >= 1 && k.p <= 255 && k.p + k.q == 256) {
    // Both weights fit a byte and add up to 256: pmaddubsw of the weights
    // with the samples less 128 gives p * a + q * b - 32768 exactly.
    const __m256i weights = _mm256_set1_epi16(static_cast<short>(k.p | k.q << 8));
    const __m256i flip = _mm256_set1_epi8(-128);
    const __m256i bias = _mm256_set1_epi16(-32768);
    Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m256i va, __m256i vb) {
      const __m256i sa = _mm256_xor_si256(va, flip), sb = _mm256_xor_si256(vb, flip);
      const __m256i lo = _mm256_add_epi16(_mm256_maddubs_epi16(weights, _mm256_unpacklo_epi8(sa, sb)), bias);
      const __m256i hi = _mm256_add_epi16(_mm256_maddubs_epi16(weights, _mm256_unpackhi_epi8(sa, sb)), bias);
      return _mm256_packus_epi16(_mm256_srli_epi16(lo, 8), _mm256_srli_epi16(hi, 8));
    });
    return;
  }
  // Bits 8 to 15 of p * a + q * b depend only on the low 16 bits of p and q,
  // so 16-bit lanes that wrap give the 32-bit result exactly.
  const __m256i zero = _mm256_setzero_si256();
  const __m256i p = _mm256_set1_epi16(static_cast<short>(k.p));
  const __m256i q = _mm256_set1_epi16(static_cast<short>(k.q));
  const auto mix = [&](__m256i a16, __m256i b16) {
    return _mm256_srli_epi16(_mm256_add_epi16(_mm256_mullo_epi16(a16, p), _mm256_mullo_epi16(b16, q)), 8);
  };
  Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m256i va, __m256i vb) {
    const __m256i lo = mix(_mm256_unpacklo_epi8(va, zero), _mm256_unpacklo_epi8(vb, zero));
    const __m256i hi = mix(_mm256_unpackhi_epi8(va, zero), _mm256_unpackhi_epi8(vb, zero));
    return _mm256_packus_epi16(lo, hi);
  });
}

void ChannelView(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.channel != kChannelMean) {
    const int c = static_cast<int>(k.channel);
    Rows(a, b, out, width, k, kPixelRowsScalar.channelView,
         [c](__m256i va, __m256i) { return Broadcast(va, c); });
    return;
  }
  // a0 + a1 + a2 by two multiply-adds, then (s * 0xAAAB) >> 17, which is s / 3
  // for s below 2^17.
  const __m256i pick = _mm256_set1_epi32(0x00010101);
  const __m256i ones = _mm256_set1_epi32(0x00010001);
  const __m256i third = _mm256_set1_epi32(0xAAAB);
  Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [&](__m256i va, __m256i) {
    const __m256i s = _mm256_madd_epi16(_mm256_maddubs_epi16(va, pick), ones);
    return Broadcast(_mm256_srli_epi16(_mm256_mulhi_epu16(s, third), 1), 0);
  });
}

}  // namespace

const PixelRowSet kPixelRowsAvx2 = {"avx2", Merge, Average, Difference, MatchGate, Crossfade, ChannelView};

}  // namespace zr::mux
