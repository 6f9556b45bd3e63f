/* Filled in by its subsystem. */
#ifndef ZRFX_H
#define ZRFX_H
#endif
