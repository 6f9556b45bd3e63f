// The plugin's elements, registered by plugin.cc.
#ifndef ZR_GST_ELEMENTS_H
#define ZR_GST_ELEMENTS_H

#include <glib-object.h>

G_BEGIN_DECLS

GType gst_zr_transition_get_type(void);
GType gst_zr_compare_get_type(void);
GType gst_zr_overlay_get_type(void);

G_END_DECLS

#endif
