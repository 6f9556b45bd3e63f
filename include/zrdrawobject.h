/* Filled in by its subsystem. */
#ifndef ZRDRAWOBJECT_H
#define ZRDRAWOBJECT_H
#endif
