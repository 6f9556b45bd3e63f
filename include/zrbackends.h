/* Filled in by its subsystem. */
#ifndef ZRBACKENDS_H
#define ZRBACKENDS_H
#endif
