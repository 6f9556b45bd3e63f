/* Filled in by its subsystem. */
#ifndef ZRMUX_H
#define ZRMUX_H
#endif
