// Operations whose subsystems have not landed yet: the curves and the
// metafile headers. They exist so that every slot of the virtual table is
// filled; until their own sources replace this file each draws nothing and
// returns 0.
#include "zrdrawobject.h"

int ZrDraw::Circle(int, int, int) { return 0; }
int ZrDraw::Ellipse(int, int, int, int) { return 0; }
int ZrDraw::Arc(int, int, int, int, int, int, int, int) { return 0; }
int ZrDraw::ArcTo(int, int, int, int, int, int, int, int) { return 0; }
int ZrDraw::AngleArc(int, int, unsigned int, float, float) { return 0; }
int ZrDraw::AngleArcTo(int, int, int, int, float, float) { return 0; }
int ZrDraw::Bezier(int, int, int, int, int, int, int, int) { return 0; }
int ZrDraw::PolyBezier(const _POINT*, unsigned int) { return 0; }
int ZrDraw::PolyBezierTo(const _POINT*, unsigned int) { return 0; }
int ZrDraw::Pie(int, int, int, int, int, int, int, int) { return 0; }
int ZrDraw::EMFOpen(const char*) { return 0; }
int ZrDraw::EMFGetSize(int&, int&) { return 0; }
int ZrDraw::EMFClose() { return 0; }
