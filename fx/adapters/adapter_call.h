// What both adapters do around their row loops: run at priority 15, take the
// scratch block and lay out its planes, and at the end give both back.
#ifndef ZR_FX_ADAPTERS_ADAPTER_CALL_H
#define ZR_FX_ADAPTERS_ADAPTER_CALL_H

#include <cstdint>

#include "fx/adapters/adapter_scratch.h"
#include "fx/shared_scratch.h"
#include "platform/zrutil.h"

namespace zr::fx {

struct AdapterCall {
  ZrHandle self;
  int priority;  // the caller's, restored at the end
  ScratchPlanes planes;
  SharedScratch* scratch;
};

// Raises the calling thread to priority 15 and takes the scratch block.
// False when no block could be had, and then the adapter returns 0xFFFFFFFF:
// after a null block the failure is logged and the priority restored; after
// an exception from the allocator nothing is logged and the thread stays at
// 15. Hosts have always seen the two so; keep the difference.
bool BeginAdapter(uint32_t width, uint32_t height, AdapterCall& call);

// Lets go of the scratch (a late worker may still hold it) and restores the
// caller's priority.
void EndAdapter(AdapterCall& call);

}  // namespace zr::fx

#endif
