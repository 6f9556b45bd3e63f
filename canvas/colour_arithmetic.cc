// The colour arithmetic of ZrPixel: RGB, YCbCr and HSV as doubles in the
// matrix named by mYCbCrMode. One branch a mode with literal coefficients,
// summed in a fixed order, because hosts compare low bits: the coefficients
// do not all round alike and are not to be folded into one generic matrix.
#include "canvas/convert.h"
#include "canvas/hsv.h"
#include "zrpixel.h"

int ZrPixel::YCbCrToRGB(double y, double cb, double cr, double, double& r, double& g, double& b,
                        double& alpha) {
  const int mode = mYCbCrMode;
  const double p = cb - 0.5;
  const double q = cr - 0.5;
  switch (mode) {
    case 0:
    case 1:
    case 1000:
    case 1001: {
      const double y2 = (y - 0.0625) * 1.164;
      r = y2 + 1.596 * q;
      g = y2 - 0.813 * q - 0.391 * p;
      b = y2 + 2.017 * p;
      break;
    }
    case 2:
    case 1002:
      r = y + 1.371 * q;
      g = y - 0.698 * q - 0.336 * p;
      b = y + 1.732 * p;
      break;
    case 3:
    case 1003: {
      const double y2 = (y - 0.0625) * 1.168932;
      r = y2 + 1.799744 * q;
      g = y2 - 0.534991 * q - 0.214082 * p;
      b = y2 + 2.120653 * p;
      break;
    }
    case 4:
    case 1004:
      r = y + 1.5748 * q;
      g = y - 0.468124 * q - 0.187324 * p;
      b = y + 1.8556 * p;
      break;
    case 5:
    case 1005: {
      const double y2 = (y - 0.0625) * 1.164;
      r = y2 + 1.6786 * q;
      g = y2 - 0.6504 * q - 0.1873 * p;
      b = y2 + 2.1417 * p;
      break;
    }
    case 6:
    case 7:
    case 1006:
      r = y + 1.4746 * q;
      g = y - 0.5714 * q - 0.1646 * p;
      b = y + 1.8815 * p;
      break;
    // Constant luminance, and 1007 with it (unlike 7): chroma is used
    // uncentred, green has its own coefficients and blue 1.8814. Hosts
    // rely on all three; keep them.
    case 8:
    case 1007:
    case 1008:
      r = y + 1.4746 * cr;
      g = y - 0.16455312684366 * cb - 0.57135312684366 * cr;
      b = y + 1.8814 * cb;
      break;
    default:
      // Unknown modes compute nothing; the caller's values are still clamped.
      break;
  }
  if (mode <= 999) {
    zr::ClampRgb01(r, g, b);
  }
  // The input alpha is not used: alpha always comes back 0.0.
  alpha = 0.0;
  return 0;
}

int ZrPixel::RGBToYCbCr(double r, double g, double b, double, double& y, double& cb, double& cr, double&) {
  // No clamp and no alpha in any mode; unknown modes write nothing.
  switch (static_cast<int>(mYCbCrMode)) {
    case 0:
    case 1:
    case 1000:
    case 1001:
      y = 0.257 * r + 0.504 * g + 0.098 * b + 0.0625;
      cb = -0.148 * r - 0.291 * g + 0.439 * b + 0.5;
      cr = 0.439 * r - 0.368 * g - 0.071 * b + 0.5;
      break;
    case 2:
    case 1002:
      y = 0.299 * r + 0.587 * g + 0.114 * b;
      cb = -0.172 * r - 0.339 * g + 0.511 * b + 0.5;
      cr = 0.511 * r - 0.428 * g - 0.083 * b + 0.5;
      break;
    case 3:
    case 1003:
      y = 0.183 * r + 0.614 * g + 0.062 * b + 0.0625;
      cb = -0.101 * r - 0.338 * g + 0.439 * b + 0.5;
      cr = 0.439 * r - 0.399 * g - 0.04 * b + 0.5;
      break;
    case 4:
    case 1004:
      y = 0.212585 * r + 0.71521 * g + 0.072205 * b;
      cb = -0.117188 * r - 0.394226 * g + 0.511414 * b + 0.5;
      cr = 0.511414 * r - 0.464508 * g - 0.046906 * b + 0.5;
      break;
    // Modes 5 and 6 have neither the luma offset nor the chroma centre:
    // their chroma is centred on 0. Hosts rely on it; keep it.
    case 5:
    case 1005:
      y = 0.22561 * r + 0.58228 * g + 0.05093 * b;
      cb = -0.12266 * r - 0.31656 * g + 0.43921 * b;
      cr = 0.43921 * r - 0.40389 * g - 0.03532 * b;
      break;
    case 6:
    case 1006:
      y = 0.2627 * r + 0.678 * g + 0.0593 * b;
      cb = -0.1396 * r - 0.3604 * g + 0.5 * b;
      cr = 0.5 * r - 0.4598 * g - 0.0402 * b;
      break;
    case 7:
    case 8:
    case 1007:
    case 1008: {
      // Constant luminance: the differences are taken against this Y, with
      // a divisor for each sign.
      const double luma = 0.2627 * r + 0.678 * g + 0.0593 * b;
      const double bd = b - luma;
      const double rd = r - luma;
      y = luma;
      cb = bd > 0.0 ? bd / 1.5816 : bd / 1.9404;
      cr = rd > 0.0 ? rd / 0.9936 : rd / 1.7184;
      break;
    }
    default:
      break;
  }
  return 0;
}

int ZrPixel::RGBToYCbCr10(double r, double g, double b, double, double& y, double& cb, double& cr, double&) {
  switch (static_cast<int>(mYCbCrMode)) {
    // For inputs of 0 to 255. The plus signs of Cr's green and blue weights
    // are what hosts get; keep them.
    case 0:
    case 1:
    case 3:
    case 1000:
    case 1001:
    case 1003:
      y = (11914.0 * r + 40095.0 * g + 4050.0 * b) / 16384.0 + 64.0;
      cb = (-6388.0 * r - 21595.0 * g + 28073.0 * b) / 16384.0 + 512.0;
      cr = (28017.0 * r + 25349.0 * g + 2566.0 * b) / 16384.0 + 512.0;
      break;
    // For inputs of 0 to 1.
    case 5:
    case 6:
    case 1005:
    case 1006:
      y = 269.0 * r + 694.272 * g + 60.7232 * b + 64.0;
      cb = -142.9504 * r - 369.0496 * g + 512.0 * b + 512.0;
      cr = 512.0 * r - 470.8352 * g - 41.1648 * b + 512.0;
      break;
    default:
      // Modes 2 and 4 among them: nothing is written.
      break;
  }
  return 0;
}

int ZrPixel::RGBToHSV(double r, double g, double b, double a, double& h, double& s, double& v,
                      double& alpha) {
  zr::HsvFromRgb(r, g, b, -1.0, h, s, v);
  // A colourless pixel is the one result with hue -1.0 (a coloured hue lies
  // in 0 to 360, or is NaN); only a coloured pixel passes its alpha through.
  if (h != -1.0) alpha = a;
  return 0;
}

int ZrPixel::YCbCrToHSV(double y, double cb, double cr, double a, double& h, double& s, double& v,
                        double& alpha) {
  // The locals start at 0.0 so that an unknown mode, which computes nothing,
  // converts black. The alpha handed on is the 0.0 that YCbCrToRGB leaves.
  double r = 0.0, g = 0.0, b = 0.0, rgbAlpha = 0.0;
  YCbCrToRGB(y, cb, cr, a, r, g, b, rgbAlpha);
  return RGBToHSV(r, g, b, rgbAlpha, h, s, v, alpha);
}

void ZrPixel::BlendPixel(double& c0, double& c1, double& c2, double n0, double n1, double n2, int percent) {
  // Not limited: outside 0 to 100 it extrapolates.
  const double t = static_cast<double>(percent) / 100.0;
  c0 = n0 * t + c0 * (1.0 - t);
  c1 = n1 * t + c1 * (1.0 - t);
  c2 = n2 * t + c2 * (1.0 - t);
}
