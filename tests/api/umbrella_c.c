/* The umbrella header is usable from C. */
#include "zrdraw.h"
