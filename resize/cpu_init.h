// Choosing the variant: from the processor's feature word (ippStaticInit)
// or from a processor code (ippInitCpu).
#ifndef ZR_RESIZE_CPU_INIT_H
#define ZR_RESIZE_CPU_INIT_H

#include <cstdint>

#include "zripp.h"

// ippStaticInit on given facts: whether the word could be read, the word,
// and whether the vendor is the one the variants were tuned for.
IppStatus ownStaticInitFrom(bool featuresRead, uint64_t features, bool genuineIntel);

IppStatus ownippStaticInitCpu(int32_t cpu);

#endif
