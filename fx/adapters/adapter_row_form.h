// The row loops of an adapter, and the forms they come in.
#ifndef ZR_FX_ADAPTERS_ADAPTER_ROW_FORM_H
#define ZR_FX_ADAPTERS_ADAPTER_ROW_FORM_H

#include <cstdint>

namespace zr::fx {

// One row of the caller's layout to `width` plane pixels of 3 bytes, and back.
using ExpandRowFn = void (*)(const uint8_t* src, uint8_t* plane, uint32_t width);
using PackRowFn = void (*)(const uint8_t* plane, uint8_t* dst, uint32_t width);

// The expansion and packing of one form and the instruction set (cpu::Isa)
// it needs; every form gives the plain form's bytes, so the choice changes
// speed only.
struct AdapterRowForm {
  uint32_t isa;
  ExpandRowFn expand;
  PackRowFn pack;
};

}  // namespace zr::fx

#endif
