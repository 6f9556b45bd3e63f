#include "two_input.h"

#include <cstring>
#include <initializer_list>

namespace {

struct GstZrTwoInputPrivate {
  gboolean warnedSingle;
  gboolean warnedChange;
};

}  // namespace

G_DEFINE_ABSTRACT_TYPE_WITH_PRIVATE(GstZrTwoInput, gst_zr_two_input, GST_TYPE_VIDEO_AGGREGATOR)

namespace {

// The element gives out the names sink_0 and sink_1 only.
int PadIndex(GstPad* pad) { return std::strcmp(GST_PAD_NAME(pad), "sink_1") == 0 ? 1 : 0; }

bool SameFrames(const GstVideoInfo& a, const GstVideoInfo& b) {
  return GST_VIDEO_INFO_FORMAT(&a) == GST_VIDEO_INFO_FORMAT(&b) &&
         GST_VIDEO_INFO_WIDTH(&a) == GST_VIDEO_INFO_WIDTH(&b) &&
         GST_VIDEO_INFO_HEIGHT(&a) == GST_VIDEO_INFO_HEIGHT(&b);
}

// "UYVY 1920x1080", for messages.
gchar* Describe(const GstVideoInfo& info) {
  return g_strdup_printf("%s %dx%d", gst_video_format_to_string(GST_VIDEO_INFO_FORMAT(&info)),
                         GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
}

GstPad* RequestNewPad(GstElement* element, GstPadTemplate* templ, const gchar* name, const GstCaps* caps) {
  bool taken[2] = {false, false};
  GST_OBJECT_LOCK(element);
  for (GList* l = element->sinkpads; l; l = l->next) taken[PadIndex(GST_PAD(l->data))] = true;
  GST_OBJECT_UNLOCK(element);
  const char* chosen = nullptr;
  for (const char* candidate : {"sink_0", "sink_1"})
    if (!chosen && !taken[candidate[5] - '0'] && (name == nullptr || std::strcmp(name, candidate) == 0))
      chosen = candidate;
  if (chosen == nullptr) {
    GST_ELEMENT_WARNING(element, CORE, PAD,
                        ("%s takes two inputs, sink_0 and sink_1", GST_ELEMENT_NAME(element)),
                        ("no pad %s: it is taken or not one of the two", name ? name : "for a third input"));
    return nullptr;
  }
  GstPad* pad =
      GST_ELEMENT_CLASS(gst_zr_two_input_parent_class)->request_new_pad(element, templ, chosen, caps);
  // An input that ends holds its last frame while the other goes on.
  if (pad) g_object_set(pad, "repeat-after-eos", TRUE, nullptr);
  return pad;
}

// Sets repeat-after-eos on every input; returns whether all of them ended.
bool RepeatAfterEos(GstElement* element, gboolean repeat) {
  GList* pads = nullptr;
  GST_OBJECT_LOCK(element);
  for (GList* l = element->sinkpads; l; l = l->next) pads = g_list_prepend(pads, gst_object_ref(l->data));
  GST_OBJECT_UNLOCK(element);
  bool allEnded = true;
  for (GList* l = pads; l; l = l->next) {
    allEnded = allEnded && gst_aggregator_pad_is_eos(GST_AGGREGATOR_PAD(l->data));
    g_object_set(l->data, "repeat-after-eos", repeat, nullptr);
  }
  g_list_free_full(pads, gst_object_unref);
  return allEnded;
}

// The aggregator repeats a held frame for ever once every input has ended:
// the last input to end lets them all go, and the output ends.
gboolean SinkEvent(GstAggregator* agg, GstAggregatorPad* pad, GstEvent* event) {
  const bool eos = GST_EVENT_TYPE(event) == GST_EVENT_EOS;
  const gboolean ret = GST_AGGREGATOR_CLASS(gst_zr_two_input_parent_class)->sink_event(agg, pad, event);
  if (eos && !RepeatAfterEos(GST_ELEMENT(agg), TRUE)) return ret;
  if (eos) RepeatAfterEos(GST_ELEMENT(agg), FALSE);
  return ret;
}

// Both inputs must have one format and size; the output takes them.
GstCaps* UpdateCaps(GstVideoAggregator* vagg, GstCaps* caps) {
  GstVideoInfo info[2];
  bool known[2] = {false, false};
  GST_OBJECT_LOCK(vagg);
  for (GList* l = GST_ELEMENT(vagg)->sinkpads; l; l = l->next) {
    GstVideoAggregatorPad* pad = GST_VIDEO_AGGREGATOR_PAD(l->data);
    if (pad->info.finfo == nullptr || GST_VIDEO_INFO_FORMAT(&pad->info) == GST_VIDEO_FORMAT_UNKNOWN) continue;
    const int k = PadIndex(GST_PAD(pad));
    info[k] = pad->info;
    known[k] = true;
  }
  GST_OBJECT_UNLOCK(vagg);
  if (known[0] && known[1] && !SameFrames(info[0], info[1])) {
    g_autofree gchar* a = Describe(info[0]);
    g_autofree gchar* b = Describe(info[1]);
    GST_ELEMENT_ERROR(
        vagg, CORE, NEGOTIATION,
        ("The inputs of %s differ: sink_0 has %s frames, sink_1 has %s", GST_ELEMENT_NAME(vagg), a, b),
        ("both inputs need one format and size: convert or scale one of them first"));
    return gst_caps_new_empty();
  }
  GstCaps* out = gst_caps_copy(caps);
  if (known[0] || known[1]) {
    const GstVideoInfo& common = known[0] ? info[0] : info[1];
    gst_caps_set_simple(out, "format", G_TYPE_STRING,
                        gst_video_format_to_string(GST_VIDEO_INFO_FORMAT(&common)), "width", G_TYPE_INT,
                        GST_VIDEO_INFO_WIDTH(&common), "height", G_TYPE_INT, GST_VIDEO_INFO_HEIGHT(&common),
                        nullptr);
  }
  return out;
}

GstClockTime OutputRunningTime(GstVideoAggregator* vagg, GstBuffer* outbuf) {
  GstAggregatorPad* src = GST_AGGREGATOR_PAD(GST_AGGREGATOR(vagg)->srcpad);
  if (!GST_BUFFER_PTS_IS_VALID(outbuf)) return GST_CLOCK_TIME_NONE;
  return gst_segment_to_running_time(&src->segment, GST_FORMAT_TIME, GST_BUFFER_PTS(outbuf));
}

// Zero bytes: there is no frame to show yet.
void Blank(GstVideoFrame* out) {
  for (guint p = 0; p < GST_VIDEO_FRAME_N_PLANES(out); ++p)
    std::memset(
        GST_VIDEO_FRAME_PLANE_DATA(out, p), 0,
        static_cast<size_t>(GST_VIDEO_FRAME_PLANE_STRIDE(out, p)) * GST_VIDEO_FRAME_COMP_HEIGHT(out, p));
}

GstFlowReturn AggregateFrames(GstVideoAggregator* vagg, GstBuffer* outbuf) {
  GstZrTwoInput* self = GST_ZR_TWO_INPUT(vagg);
  auto* priv = static_cast<GstZrTwoInputPrivate*>(gst_zr_two_input_get_instance_private(self));
  GstVideoFrame* in[2] = {nullptr, nullptr};
  int pads = 0;
  GST_OBJECT_LOCK(vagg);
  for (GList* l = GST_ELEMENT(vagg)->sinkpads; l; l = l->next, ++pads)
    in[PadIndex(GST_PAD(l->data))] =
        gst_video_aggregator_pad_get_prepared_frame(GST_VIDEO_AGGREGATOR_PAD(l->data));
  GST_OBJECT_UNLOCK(vagg);

  // A frame that came before a change of caps on its pad, or a change that
  // the other input did not make, does not fit the output.
  for (GstVideoFrame* frame : in)
    if (frame && !SameFrames(frame->info, vagg->info)) {
      g_autofree gchar* got = Describe(frame->info);
      g_autofree gchar* want = Describe(vagg->info);
      GST_ELEMENT_ERROR(vagg, STREAM, FORMAT,
                        ("%s got a %s frame for %s output", GST_ELEMENT_NAME(vagg), got, want),
                        ("the inputs may not change their format or size mid-stream"));
      return GST_FLOW_NOT_NEGOTIATED;
    }
  if (pads < 2 && !priv->warnedSingle) {
    priv->warnedSingle = TRUE;
    GST_ELEMENT_WARNING(vagg, STREAM, FAILED,
                        ("%s has one input: its frames pass through", GST_ELEMENT_NAME(vagg)),
                        ("link both sink_0 and sink_1 to combine two streams"));
  }

  GstVideoFrame out;
  if (!gst_video_frame_map(&out, &vagg->info, outbuf, GST_MAP_WRITE)) {
    GST_ELEMENT_ERROR(vagg, RESOURCE, WRITE, ("Could not map the output buffer"), (nullptr));
    return GST_FLOW_ERROR;
  }
  GstFlowReturn ret = GST_FLOW_OK;
  if (in[0] && in[1])
    ret =
        GST_ZR_TWO_INPUT_GET_CLASS(self)->combine(self, in[0], in[1], &out, OutputRunningTime(vagg, outbuf));
  else if (in[0] || in[1])
    gst_video_frame_copy(&out, in[0] ? in[0] : in[1]);
  else
    Blank(&out);
  gst_video_frame_unmap(&out);
  return ret;
}

// The output's caps hold once the stream plays: caps that an input offers
// then are refused, and the base class says no more than "not-negotiated".
// Says once what was offered against what the output is.
gboolean SinkQuery(GstAggregator* agg, GstAggregatorPad* pad, GstQuery* query) {
  const gboolean ret = GST_AGGREGATOR_CLASS(gst_zr_two_input_parent_class)->sink_query(agg, pad, query);
  if (GST_QUERY_TYPE(query) != GST_QUERY_ACCEPT_CAPS) return ret;
  GstVideoAggregator* vagg = GST_VIDEO_AGGREGATOR(agg);
  auto* priv =
      static_cast<GstZrTwoInputPrivate*>(gst_zr_two_input_get_instance_private(GST_ZR_TWO_INPUT(agg)));
  gboolean accepted = TRUE;
  gst_query_parse_accept_caps_result(query, &accepted);
  GstCaps* caps = nullptr;
  gst_query_parse_accept_caps(query, &caps);
  GstVideoInfo offered;
  if (accepted || priv->warnedChange || GST_VIDEO_INFO_FORMAT(&vagg->info) == GST_VIDEO_FORMAT_UNKNOWN ||
      !gst_video_info_from_caps(&offered, caps))
    return ret;
  priv->warnedChange = TRUE;
  g_autofree gchar* got = Describe(offered);
  g_autofree gchar* want = Describe(vagg->info);
  GST_ELEMENT_WARNING(agg, CORE, NEGOTIATION,
                      ("%s offered %s frames for %s output", GST_PAD_NAME(pad), got, want),
                      ("the inputs may not change their format or size mid-stream"));
  return ret;
}

void Reset(GstZrTwoInput* self) {
  RepeatAfterEos(GST_ELEMENT(self), TRUE);
  auto* priv = static_cast<GstZrTwoInputPrivate*>(gst_zr_two_input_get_instance_private(self));
  priv->warnedSingle = FALSE;
  priv->warnedChange = FALSE;
  if (GST_ZR_TWO_INPUT_GET_CLASS(self)->reset) GST_ZR_TWO_INPUT_GET_CLASS(self)->reset(self);
}

GstFlowReturn Flush(GstAggregator* agg) {
  Reset(GST_ZR_TWO_INPUT(agg));
  return GST_AGGREGATOR_CLASS(gst_zr_two_input_parent_class)->flush(agg);
}

gboolean Stop(GstAggregator* agg) {
  Reset(GST_ZR_TWO_INPUT(agg));
  return GST_AGGREGATOR_CLASS(gst_zr_two_input_parent_class)->stop(agg);
}

}  // namespace

static void gst_zr_two_input_class_init(GstZrTwoInputClass* klass) {
  GST_ELEMENT_CLASS(klass)->request_new_pad = RequestNewPad;
  GST_AGGREGATOR_CLASS(klass)->flush = Flush;
  GST_AGGREGATOR_CLASS(klass)->sink_event = SinkEvent;
  GST_AGGREGATOR_CLASS(klass)->sink_query = SinkQuery;
  GST_AGGREGATOR_CLASS(klass)->stop = Stop;
  GST_VIDEO_AGGREGATOR_CLASS(klass)->update_caps = UpdateCaps;
  GST_VIDEO_AGGREGATOR_CLASS(klass)->aggregate_frames = AggregateFrames;
}

static void gst_zr_two_input_init(GstZrTwoInput*) {}

namespace zrgst {

void AddTwoInputTemplates(GstElementClass* klass, ElementUse use) {
  GstCaps* caps = CapsFor(use);
  gst_element_class_add_pad_template(
      klass, gst_pad_template_new_with_gtype("sink_%u", GST_PAD_SINK, GST_PAD_REQUEST, caps,
                                             GST_TYPE_VIDEO_AGGREGATOR_PAD));
  gst_element_class_add_pad_template(
      klass,
      gst_pad_template_new_with_gtype("src", GST_PAD_SRC, GST_PAD_ALWAYS, caps, GST_TYPE_AGGREGATOR_PAD));
  gst_caps_unref(caps);
}

}  // namespace zrgst
