// The base of the two-input elements: a video aggregator with the pads
// sink_0 (picture A, the outgoing one) and sink_1 (picture B, the incoming
// one), both of the output's format and size. An input that ends holds its
// last frame while the other goes on; with one input, its frames pass
// through. Subclasses make each output frame from the two input frames.
#ifndef ZR_GST_TWO_INPUT_H
#define ZR_GST_TWO_INPUT_H

#include <gst/video/gstvideoaggregator.h>
#include <gst/video/video.h>

#include "formats.h"

G_BEGIN_DECLS

#define GST_TYPE_ZR_TWO_INPUT (gst_zr_two_input_get_type())
G_DECLARE_DERIVABLE_TYPE(GstZrTwoInput, gst_zr_two_input, GST, ZR_TWO_INPUT, GstVideoAggregator)

struct _GstZrTwoInputClass {
  GstVideoAggregatorClass parent_class;
  // Writes `out` from `a` and `b`, all three of the output's format and
  // size; `runningTime` is the output frame's (or GST_CLOCK_TIME_NONE).
  GstFlowReturn (*combine)(GstZrTwoInput* self, GstVideoFrame* a, GstVideoFrame* b, GstVideoFrame* out,
                           GstClockTime runningTime);
  // Forgets what the element learnt from the streams (on flush and stop).
  void (*reset)(GstZrTwoInput* self);
};

G_END_DECLS

namespace zrgst {

// The request pad template sink_%u and the source template, with the
// formats of `use`.
void AddTwoInputTemplates(GstElementClass* klass, ElementUse use);

}  // namespace zrgst

#endif
