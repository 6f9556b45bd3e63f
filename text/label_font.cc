// The font state of Label: always the built-in 8 by 10 font, at a scale.
#include "zrdrawobject.h"

// The first argument is ignored and the scale is not tested: 0 makes Label
// draw nothing.
int ZrDraw::LabelFont(unsigned int, int scale) {
  mpLabelFont = gFont8x10;
  mLabelWidth = 8;
  mLabelHeight = 10;
  mLabelScale = static_cast<unsigned int>(scale);
  return 0;
}

int ZrDraw::LabelGetFontWidth() { return static_cast<int>(mLabelScale * mLabelWidth); }

int ZrDraw::LabelGetFontHeight() { return static_cast<int>(mLabelScale * mLabelHeight); }
