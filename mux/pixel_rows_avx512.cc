// The pixel mix rows with AVX-512 (F and BW), sixteen pixels a step. Every
// byte operation stays within its 128-bit lane, so the lanes come out in
// order; the rest of a row, and rows where out runs into a source, go to the
// scalar rows.
// GCC 12 warns about the undefined inputs that its own AVX-512 intrinsics
// pass to their builtins (fixed in GCC 13); nothing here is uninitialised.
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>

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
    for (; width - x >= 16; x += 16) {
      const uint8_t* pa = a + size_t{x} * 4;
      const uint8_t* pb = b + size_t{x} * 4;
      if ((x - first) % 16 == 0) {  // once a cache line
        PrefetchAhead(pa);
        PrefetchAhead(pb);
      }
      store(out + size_t{x} * 4, op(InRegister(_mm512_loadu_si512(pa)), InRegister(_mm512_loadu_si512(pb))));
    }
  };
  if (VectorSafe(a, b, out, width * 4)) {
    if (width >= kStreamBytes / 4 && StreamStart(out, width, x)) {
      scalar(a, b, out, x, k);
      steps([](uint8_t* to, __m512i v) { _mm512_stream_si512(reinterpret_cast<__m512i*>(to), v); });
      _mm_sfence();
    } else {
      steps([](uint8_t* to, __m512i v) { _mm512_storeu_si512(to, v); });
    }
  }
  if (x < width) scalar(a + size_t{x} * 4, b + size_t{x} * 4, out + size_t{x} * 4, width - x, k);
}

inline __m512i Lanes(__m128i lane) { return _mm512_broadcast_i32x4(lane); }

inline __m512i Broadcast(__m512i v, int i) {
  return _mm512_shuffle_epi8(v, Lanes(_mm_setr_epi8(i, i, i, i, i + 4, i + 4, i + 4, i + 4, i + 8, i + 8,
                                                    i + 8, i + 8, i + 12, i + 12, i + 12, i + 12)));
}

void Merge(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m512i ma = _mm512_set1_epi32(static_cast<int>(k.maskA));
  const __m512i mb = _mm512_set1_epi32(static_cast<int>(k.maskB));
  Rows(a, b, out, width, k, kPixelRowsScalar.merge, [&](__m512i va, __m512i vb) {
    return _mm512_or_si512(_mm512_and_si512(va, ma), _mm512_and_si512(vb, mb));
  });
}

// a / 2 + b / 2 is the rounded-up mean less 1 where either low bit is set.
void Average(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m512i one = _mm512_set1_epi8(1);
  Rows(a, b, out, width, k, kPixelRowsScalar.average, [&](__m512i va, __m512i vb) {
    const __m512i lowBits = _mm512_and_si512(_mm512_or_si512(va, vb), one);
    return _mm512_sub_epi8(_mm512_avg_epu8(va, vb), lowBits);
  });
}

void Difference(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m512i ones = _mm512_set1_epi8(-1);
  const __m512i halfMask = _mm512_set1_epi32(0x007F7F7F);  // halves of bytes 0-2; byte 3 dropped
  // min(m * gain, 127) is the same with the gain held to 127, which fits the
  // signed byte of pmaddubsw; bytes 1-3 of each word weigh 0.
  const __m512i gain = _mm512_set1_epi32(static_cast<int>(k.gain < 127 ? k.gain : 127));
  const __m512i limit = _mm512_set1_epi32(127);
  const __m512i grey = _mm512_set1_epi32(128);
  const __m512i spread = Lanes(_mm_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1));
  Rows(a, b, out, width, k, kPixelRowsScalar.difference, [&](__m512i va, __m512i vb) {
    // A byte of A below B wraps to a huge difference: make it 0xFF, which
    // halves to 127 and saturates v whatever the gain.
    const __m512i d0 = _mm512_mask_mov_epi8(_mm512_subs_epu8(va, vb), _mm512_cmpgt_epu8_mask(vb, va), ones);
    const __m512i d = _mm512_and_si512(_mm512_srli_epi16(d0, 1), halfMask);
    const __m512i m = _mm512_max_epu8(_mm512_max_epu8(d, _mm512_srli_epi32(d, 8)), _mm512_srli_epi32(d, 16));
    const __m512i v = _mm512_min_epu16(_mm512_maddubs_epi16(m, gain), limit);
    return _mm512_shuffle_epi8(_mm512_or_si512(v, grey), spread);
  });
}

void MatchGate(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  const __m512i tol = _mm512_set1_epi8(static_cast<char>(k.tolerance > 255 ? 255 : k.tolerance));
  const __m512i fill = _mm512_set1_epi32(static_cast<int>(k.fill));
  Rows(a, b, out, width, k, kPixelRowsScalar.matchGate, [&](__m512i va, __m512i vb) {
    const __m512i diff = _mm512_or_si512(_mm512_subs_epu8(va, vb), _mm512_subs_epu8(vb, va));
    const __m512i over = _mm512_subs_epu8(diff, tol);
    return _mm512_mask_mov_epi32(vb, _mm512_test_epi32_mask(over, over), fill);
  });
}

void Crossfade(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.p >= 1 && k.p <= 255 && k.p + k.q == 256) {
    // Both weights fit a byte and add up to 256: pmaddubsw of the weights
    // with the samples less 128 gives p * a + q * b - 32768 exactly.
    const __m512i weights = _mm512_set1_epi16(static_cast<short>(k.p | k.q << 8));
    const __m512i flip = _mm512_set1_epi8(-128);
    const __m512i bias = _mm512_set1_epi16(-32768);
    Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m512i va, __m512i vb) {
      const __m512i sa = _mm512_xor_si512(va, flip), sb = _mm512_xor_si512(vb, flip);
      const __m512i lo = _mm512_add_epi16(_mm512_maddubs_epi16(weights, _mm512_unpacklo_epi8(sa, sb)), bias);
      const __m512i hi = _mm512_add_epi16(_mm512_maddubs_epi16(weights, _mm512_unpackhi_epi8(sa, sb)), bias);
      return _mm512_packus_epi16(_mm512_srli_epi16(lo, 8), _mm512_srli_epi16(hi, 8));
    });
    return;
  }
  // Bits 8 to 15 of p * a + q * b depend only on the low 16 bits of p and q,
  // so 16-bit lanes that wrap give the 32-bit result exactly.
  const __m512i zero = _mm512_setzero_si512();
  const __m512i p = _mm512_set1_epi16(static_cast<short>(k.p));
  const __m512i q = _mm512_set1_epi16(static_cast<short>(k.q));
  const auto mix = [&](__m512i a16, __m512i b16) {
    return _mm512_srli_epi16(_mm512_add_epi16(_mm512_mullo_epi16(a16, p), _mm512_mullo_epi16(b16, q)), 8);
  };
  Rows(a, b, out, width, k, kPixelRowsScalar.crossfade, [&](__m512i va, __m512i vb) {
    const __m512i lo = mix(_mm512_unpacklo_epi8(va, zero), _mm512_unpacklo_epi8(vb, zero));
    const __m512i hi = mix(_mm512_unpackhi_epi8(va, zero), _mm512_unpackhi_epi8(vb, zero));
    return _mm512_packus_epi16(lo, hi);
  });
}

void ChannelView(const uint8_t* a, const uint8_t* b, uint8_t* out, uint32_t width, const PixelRowParams& k) {
  if (k.channel != kChannelMean) {
    const int c = static_cast<int>(k.channel);
    Rows(a, b, out, width, k, kPixelRowsScalar.channelView,
         [c](__m512i va, __m512i) { return Broadcast(va, c); });
    return;
  }
  // a0 + a1 + a2 by two multiply-adds, then (s * 0xAAAB) >> 17, which is s / 3
  // for s below 2^17.
  const __m512i pick = _mm512_set1_epi32(0x00010101);
  const __m512i ones = _mm512_set1_epi32(0x00010001);
  const __m512i third = _mm512_set1_epi32(0xAAAB);
  Rows(a, b, out, width, k, kPixelRowsScalar.channelView, [&](__m512i va, __m512i) {
    const __m512i s = _mm512_madd_epi16(_mm512_maddubs_epi16(va, pick), ones);
    return Broadcast(_mm512_srli_epi16(_mm512_mulhi_epu16(s, third), 1), 0);
  });
}

}  // namespace

const PixelRowSet kPixelRowsAvx512 = {"avx512",  Merge,     Average,    Difference,
                                      MatchGate, Crossfade, ChannelView};

}  // namespace zr::mux
