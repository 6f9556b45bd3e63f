// What a wipe number does to a picture, found by running it through the
// library on two small pictures. The slide is the one effect that reads the
// number beyond choosing it: some numbers and every reversed slide leave the
// output as it was. Asking the library keeps its rules in one place.
#ifndef ZRFX_WIPE_PROBE_H
#define ZRFX_WIPE_PROBE_H

#include <cstdint>

namespace zrfx {

// True when ZrDraw_DisplayWipe writes no byte of the output for this code
// (bit 31 included).
bool WipeWritesNothing(uint32_t code);

// The number of the gallery family (one of WipeFamilies(), same effect)
// that gives the same picture as `code`; `code` itself when none does.
uint32_t WipeShownAs(uint32_t code);

// Throws UsageError for a code that writes nothing, so that no run hands
// out black frames for a transition.
void RefuseSilentWipe(uint32_t code);

}  // namespace zrfx

#endif
