/* Filled in by its subsystem. */
#ifndef ZRIPP_H
#define ZRIPP_H
#endif
