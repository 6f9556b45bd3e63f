// Operations whose subsystems have not landed yet: the label text and the
// metafile headers. They exist so that every slot of the virtual table is
// filled; until their own sources replace this file each draws nothing and
// returns 0.
#include "zrdrawobject.h"

int ZrDraw::Label(int, int, const char*, bool, bool) { return 0; }
int ZrDraw::EMFOpen(const char*) { return 0; }
int ZrDraw::EMFGetSize(int&, int&) { return 0; }
int ZrDraw::EMFClose() { return 0; }
