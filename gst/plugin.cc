// The zrdraw plugin: the library's transitions, mux modes and burn-in as
// pipeline elements.
#include <gst/gst.h>

#include "elements.h"

static gboolean plugin_init(GstPlugin* plugin) {
  return gst_element_register(plugin, "zrtransition", GST_RANK_NONE, gst_zr_transition_get_type()) &&
         gst_element_register(plugin, "zrcompare", GST_RANK_NONE, gst_zr_compare_get_type()) &&
         gst_element_register(plugin, "zroverlay", GST_RANK_NONE, gst_zr_overlay_get_type());
}

GST_PLUGIN_DEFINE(GST_VERSION_MAJOR, GST_VERSION_MINOR, zrdraw,
                  "Transitions, comparisons and burn-in on uncompressed video with the zrdraw library",
                  plugin_init, VERSION, "Proprietary", "zrdraw", "Unknown package origin")
