/* Filled in by its subsystem. */
#ifndef ZRTYPES_H
#define ZRTYPES_H
#endif
