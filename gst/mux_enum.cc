#include "mux_enum.h"

#include <iterator>

#include "mux/mux_mode_names.h"

namespace zrgst {

std::string PropertyName(const char* name) {
  std::string out;
  for (const char* c = name; *c; ++c) out += *c == '_' ? '-' : static_cast<char>(g_ascii_tolower(*c));
  return out;
}

GType MuxModeType() {
  static gsize type = 0;
  if (g_once_init_enter(&type)) {
    // Registered once for the life of the process, as every GType is.
    static GEnumValue values[std::size(zr::mux::kMuxModeNames) + 1];
    size_t k = 0;
    for (const zr::mux::MuxName& mode : zr::mux::kMuxModeNames)
      values[k++] = {static_cast<gint>(mode.value), mode.looks,
                     g_intern_string(PropertyName(mode.name).c_str())};
    values[k] = {0, nullptr, nullptr};
    g_once_init_leave(&type, g_enum_register_static("GstZrCompareMode", values));
  }
  return type;
}

}  // namespace zrgst
