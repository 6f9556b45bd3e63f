// Operations that stand in the interface so that hosts link and run: each
// ignores its arguments, touches no state and returns 0, meaning nothing
// was done.
#include "zrdrawobject.h"

int ZrDraw::SetBrush(unsigned char*, int, int) { return 0; }
int ZrDraw::Fill(int, int, double) { return 0; }
int ZrDraw::GradientRect(int, int, int, int, int) { return 0; }
int ZrDraw::SymGradientRect(int, int, int, int, int) { return 0; }
int ZrDraw::CornerGradientRect(int, int, int, int, int) { return 0; }
int ZrDraw::CenterGradientRect(int, int, int, int) { return 0; }
int ZrDraw::RadialGradientFill(int, int, int, int, int, int) { return 0; }
int ZrDraw::PatternFill(int, int, int, int, int, int, unsigned char*) { return 0; }
int ZrDraw::RoundRectButton(int, int, int, int, int, int) { return 0; }
int ZrDraw::CopyRect(RECT*, const RECT*, ZrDraw*) { return 0; }
int ZrDraw::LabelFont(const char*, unsigned int) { return 0; }
int ZrDraw::Filter(zrFilterType, int, int, int, int) { return 0; }
int ZrDraw::Scale(zrScaleType, ZrDraw*, RECT*, ZrDraw*, RECT*) { return 0; }
int ZrDraw::EMFDraw(int, int, int, int, bool) { return 0; }
int ZrDraw::Arrow(int, int, int, int, bool) { return 0; }
int ZrDraw::TextOut(int, int, const char*, int) { return 0; }
int ZrDraw::SetFont(char*) { return 0; }
// Answers 0 whatever font state the canvas has.
int ZrDraw::HaveFont() { return 0; }
