// The mux modes and flags of zrcompare, named from the library's own table
// (mux/mux_mode_names.h): a mode enum and one boolean property per flag.
#ifndef ZR_GST_MUX_ENUM_H
#define ZR_GST_MUX_ENUM_H

#include <glib-object.h>

#include <string>

namespace zrgst {

// The enum of every mode by name: nick "side-by-side", value MUX_SIDE_BY_SIDE.
GType MuxModeType();

// "flip-h-a" for the flag named "FLIP_H_A".
std::string PropertyName(const char* name);

}  // namespace zrgst

#endif
