// Operations whose subsystem has not landed yet: the metafile headers. They
// exist so that every slot of the virtual table is filled; until their own
// source replaces this file each returns 0.
#include "zrdrawobject.h"

int ZrDraw::EMFOpen(const char*) { return 0; }
int ZrDraw::EMFGetSize(int&, int&) { return 0; }
int ZrDraw::EMFClose() { return 0; }
