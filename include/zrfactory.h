/* Filled in by its subsystem. */
#ifndef ZRFACTORY_H
#define ZRFACTORY_H
#endif
