// The colour arithmetic against a model driven by the coefficient tables,
// bit for bit in every mode (unknown and unclamped ones included), and the
// documented values and alpha rules.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>
#include <iterator>

#include "common/test_random.h"
#include "zrdraw.h"

namespace {

// Mode lists are padded by repeating a mode.

// YCbCr to RGB: R = Y2 + rQ Q, G = Y2 - gQ Q - gP P (P first where marked),
// B = Y2 + bP P, Y2 = (y - 0.0625) s when s is given.
struct ToRgb {
  int modes[3];
  bool centred;
  double s, rQ, gQ, gP, bP;
  bool greenPFirst;
};
constexpr ToRgb kToRgb[] = {
    {{0, 1, 1001}, true, 1.164, 1.596, 0.813, 0.391, 2.017, false},
    {{2, 1002, 2}, true, 0, 1.371, 0.698, 0.336, 1.732, false},
    {{3, 1003, 3}, true, 1.168932, 1.799744, 0.534991, 0.214082, 2.120653, false},
    {{4, 1004, 4}, true, 0, 1.5748, 0.468124, 0.187324, 1.8556, false},
    {{5, 1005, 5}, true, 1.164, 1.6786, 0.6504, 0.1873, 2.1417, false},
    {{6, 7, 1006}, true, 0, 1.4746, 0.5714, 0.1646, 1.8815, false},
    {{8, 1007, 1008}, false, 0, 1.4746, 0.57135312684366, 0.16455312684366, 1.8814, true},
};

// RGB to YCbCr: three rows of r, g, b weights and an offset (0 = none).
struct ToYcc {
  int modes[3];
  double w[3][4];
};
constexpr ToYcc kToYcc[] = {
    {{0, 1, 1001},
     {{0.257, 0.504, 0.098, 0.0625}, {-0.148, -0.291, 0.439, 0.5}, {0.439, -0.368, -0.071, 0.5}}},
    {{2, 1002, 2}, {{0.299, 0.587, 0.114, 0}, {-0.172, -0.339, 0.511, 0.5}, {0.511, -0.428, -0.083, 0.5}}},
    {{3, 1003, 3},
     {{0.183, 0.614, 0.062, 0.0625}, {-0.101, -0.338, 0.439, 0.5}, {0.439, -0.399, -0.04, 0.5}}},
    {{4, 1004, 4},
     {{0.212585, 0.71521, 0.072205, 0},
      {-0.117188, -0.394226, 0.511414, 0.5},
      {0.511414, -0.464508, -0.046906, 0.5}}},
    {{5, 1005, 5},
     {{0.22561, 0.58228, 0.05093, 0}, {-0.12266, -0.31656, 0.43921, 0}, {0.43921, -0.40389, -0.03532, 0}}},
    {{6, 1006, 6}, {{0.2627, 0.678, 0.0593, 0}, {-0.1396, -0.3604, 0.5, 0}, {0.5, -0.4598, -0.0402, 0}}},
};
constexpr int kConstantLuma[] = {7, 8, 1007, 1008};

// The 10-bit sets; a divisor of 1 means none.
struct To10 {
  int modes[6];
  double div;
  double w[3][4];
};
constexpr To10 kTo10[] = {
    {{0, 1, 3, 1000, 1001, 1003},
     16384,
     {{11914, 40095, 4050, 64}, {-6388, -21595, 28073, 512}, {28017, 25349, 2566, 512}}},
    {{5, 6, 1005, 1006, 5, 6},
     1,
     {{269, 694.272, 60.7232, 64}, {-142.9504, -369.0496, 512, 512}, {512, -470.8352, -41.1648, 512}}},
};

template <class Row>
const Row* Find(const Row* rows, int n, int mode) {
  for (int i = 0; i < n; ++i)
    for (int m : rows[i].modes)
      if (m == mode) return &rows[i];
  return nullptr;
}

double Weigh(const double* w, double r, double g, double b, double div) {
  const double sum = (w[0] * r + w[1] * g + w[2] * b) / div;
  return w[3] != 0 ? sum + w[3] : sum;
}

void ModelToRgb(int mode, double y, double cb, double cr, double* rgb) {
  const ToRgb* row = Find(kToRgb, 7, mode == 1000 ? 0 : mode);
  if (row) {
    const double p = row->centred ? cb - 0.5 : cb, q = row->centred ? cr - 0.5 : cr;
    const double y2 = row->s != 0 ? (y - 0.0625) * row->s : y;
    rgb[0] = y2 + row->rQ * q;
    rgb[1] = row->greenPFirst ? y2 - row->gP * p - row->gQ * q : y2 - row->gQ * q - row->gP * p;
    rgb[2] = y2 + row->bP * p;
  }
  if (mode < 1000)
    for (int i = 0; i < 3; ++i) rgb[i] = rgb[i] > 1.0 ? 1.0 : rgb[i] < 0.0 ? 0.0 : rgb[i];
}

void ModelToYcc(int mode, double r, double g, double b, double* ycc) {
  if (const ToYcc* row = Find(kToYcc, 6, mode == 1000 ? 0 : mode)) {
    for (int i = 0; i < 3; ++i) ycc[i] = Weigh(row->w[i], r, g, b, 1);
  } else if (std::find(std::begin(kConstantLuma), std::end(kConstantLuma), mode) != std::end(kConstantLuma)) {
    ycc[0] = 0.2627 * r + 0.678 * g + 0.0593 * b;
    ycc[1] = (b - ycc[0]) / (b - ycc[0] > 0 ? 1.5816 : 1.9404);
    ycc[2] = (r - ycc[0]) / (r - ycc[0] > 0 ? 0.9936 : 1.7184);
  }
}

void ModelTo10(int mode, double r, double g, double b, double* ycc) {
  if (const To10* set = Find(kTo10, 2, mode))
    for (int i = 0; i < 3; ++i) ycc[i] = Weigh(set->w[i], r, g, b, set->div);
}

// hsv[3] is the alpha slot: written only for a coloured pixel.
void ModelHsv(double r, double g, double b, double a, double* hsv) {
  const double v = std::max(std::max(r, g), b), delta = v - std::min(std::min(r, g), b);
  hsv[2] = v;
  if (v == 0 || delta == 0) {
    hsv[0] = -1.0, hsv[1] = 0.0;
    return;
  }
  hsv[1] = delta / v;
  const double hue = v == r ? (g - b) / delta : v == g ? (b - r) / delta + 2.0 : (r - g) / delta + 4.0;
  hsv[0] = hue * 60.0 < 0 ? hue * 60.0 + 360.0 : hue * 60.0;
  hsv[3] = a;
}

bool Same(const double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i)
    if (std::bit_cast<uint64_t>(a[i]) != std::bit_cast<uint64_t>(b[i])) return false;
  return true;
}

TEST(ColourArithmetic, EveryModeMatchesTheTables) {
  const uint64_t seed = 0xC0C0;
  zr::test::Rng rng(seed);
  const int modes[] = {INT_MIN, -1,   0,    1,    2,    3,    4,    5,    6,    7,    8,    9,    999,
                       1000,    1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008, 1009, 2001, 2006, INT_MAX};
  auto component = [&] { return (static_cast<int>(rng.Below(4001)) - 1000) / 2000.0; };
  ZrPixel px;
  for (int mode : modes) {
    px.SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(mode));
    for (int i = 0; i < 3000; ++i) {
      const double in[4] = {component(), component(), component(), component()};
      const double scale = i % 2 ? 255.0 : 1.0;  // the first 10-bit set is for 0 to 255
      double got[4], want[4];
      for (int k = 0; k < 4; ++k) got[k] = want[k] = component() + 7.0;  // unwritten marks
      px.YCbCrToRGB(in[0], in[1], in[2], in[3], got[0], got[1], got[2], got[3]);
      ModelToRgb(mode, in[0], in[1], in[2], want);
      want[3] = 0.0;
      ASSERT_TRUE(Same(got, want, 4)) << "YCbCrToRGB mode " << mode << " seed " << seed << " step " << i;
      px.RGBToYCbCr(in[0], in[1], in[2], in[3], got[0], got[1], got[2], got[3]);
      ModelToYcc(mode, in[0], in[1], in[2], want);
      ASSERT_TRUE(Same(got, want, 4)) << "RGBToYCbCr mode " << mode << " step " << i;
      px.RGBToYCbCr10(in[0] * scale, in[1] * scale, in[2] * scale, in[3], got[0], got[1], got[2], got[3]);
      ModelTo10(mode, in[0] * scale, in[1] * scale, in[2] * scale, want);
      ASSERT_TRUE(Same(got, want, 4)) << "RGBToYCbCr10 mode " << mode << " step " << i;
      px.YCbCrToHSV(in[0], in[1], in[2], in[3], got[0], got[1], got[2], got[3]);
      double rgb[3] = {0.0, 0.0, 0.0};
      ModelToRgb(mode, in[0], in[1], in[2], rgb);
      ModelHsv(rgb[0], rgb[1], rgb[2], 0.0, want);
      ASSERT_TRUE(Same(got, want, 4)) << "YCbCrToHSV mode " << mode << " step " << i;
    }
  }
}

TEST(ColourArithmetic, HsvOfRandomColours) {
  zr::test::Rng rng(0x4575);
  ZrPixel px;
  for (int i = 0; i < 20000; ++i) {
    double in[4];
    for (double& c : in) c = rng.Below(i % 2 ? 4 : 256) / (i % 2 ? 3.0 : 255.0);
    double got[4] = {5, 5, 5, 5}, want[4] = {5, 5, 5, 5};
    px.RGBToHSV(in[0], in[1], in[2], in[3], got[0], got[1], got[2], got[3]);
    ModelHsv(in[0], in[1], in[2], in[3], want);
    ASSERT_TRUE(Same(got, want, 4)) << in[0] << " " << in[1] << " " << in[2];
  }
}

// Anchors that hold the model itself to the documented results.
TEST(ColourArithmetic, DocumentedValues) {
  ZrPixel px;
  double r, g, b, a = 9, y, cb, cr, h, s, v;
  px.YCbCrToRGB(0.0625, 0.5, 0.5, 1.0, r, g, b, a);
  EXPECT_EQ(0.0, r + g + b);
  EXPECT_EQ(0.0, a);
  px.SetYCbCrMode(ZrPixel::cmYCbCr601StudioUnclamped);
  px.YCbCrToRGB(1.5, 0.5, 0.5, 1.0, r, g, b, a);
  EXPECT_NEAR(1.4375 * 1.164, r, 1e-12);
  px.SetYCbCrMode(static_cast<ZrPixel::cmYCbCr>(1007));  // uncentred chroma, as mode 8
  px.YCbCrToRGB(0.5, 0.5, 0.5, 0, r, g, b, a);
  EXPECT_NEAR(0.5 + 1.4746 * 0.5, r, 1e-12);
  px.SetYCbCrMode(ZrPixel::cmYCbCr2020Full);
  px.RGBToYCbCr(1, 1, 1, 1, y, cb, cr, a);
  EXPECT_NEAR(0.0, cb, 1e-12);
  px.RGBToHSV(0, 0, 1, 0.3, h, s, v, a);
  EXPECT_EQ(240.0, h);
  EXPECT_EQ(0.3, a);
  px.RGBToHSV(1, 0, 1, 0.7, h, s, v, a);
  EXPECT_EQ(300.0, h);
  px.RGBToHSV(0.5, 0.5, 0.5, 0.1, h, s, v, a);
  EXPECT_EQ(-1.0, h);
  EXPECT_EQ(0.7, a);  // grey leaves alpha unwritten
  r = 0.2, g = 0.4, b = 1.0;
  px.BlendPixel(r, g, b, 1.0, 0.0, 0.2, 25);
  EXPECT_DOUBLE_EQ(0.25 + 0.75 * 0.2, r);
  EXPECT_DOUBLE_EQ(0.05 + 0.75, b);
  px.BlendPixel(r, g, b, 0.0, 0.0, 0.0, 200);  // extrapolates past the new colour
  EXPECT_DOUBLE_EQ(-(0.25 + 0.75 * 0.2), r);
}

}  // namespace
