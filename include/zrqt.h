/* Filled in by its subsystem. */
#ifndef ZRQT_H
#define ZRQT_H
#endif
