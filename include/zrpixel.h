/* Filled in by its subsystem. */
#ifndef ZRPIXEL_H
#define ZRPIXEL_H
#endif
