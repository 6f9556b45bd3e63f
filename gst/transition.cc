// zrtransition: a wipe, slide or dissolve from sink_0 to sink_1, played by
// the library on the frames' own layout, without conversion.
#include <zrdraw.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "elements.h"
#include "two_input.h"
#include "zrfx/late_workers.h"

namespace {

// Progress runs from 0 to this span, on which the library mixes dissolves
// in integers.
constexpr uint32_t kProgressSpan = 65536;
constexpr guint kDefaultWipe = 1;
constexpr guint kMaxWipe = 0x7FFFFFFF;
constexpr uint32_t kReverseBit = 0x80000000u;
// The 4:2:2 adapter reads whole groups of four pixels: rows of other widths
// are read a few bytes past their end.
constexpr uint32_t kYCbCrReadGroup = 4;
constexpr size_t kTailBytes = 64;

enum { PROP_0, PROP_WIPE, PROP_REVERSE, PROP_DURATION, PROP_POSITION };

// A frame's first plane as the library takes it.
struct Picture {
  uint8_t* data;
  uint32_t pitch;
};

Picture PictureOf(GstVideoFrame* frame) {
  return {static_cast<uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(frame, 0)),
          static_cast<uint32_t>(GST_VIDEO_FRAME_PLANE_STRIDE(frame, 0))};
}

// One library call; non-zero when an adapter could not get memory.
uint32_t PlayWipe(const zrgst::VideoFormat& f, Picture a, Picture b, Picture out, uint32_t width,
                  uint32_t height, uint32_t code, uint32_t progress) {
  switch (f.route) {
    case zrgst::WipeRoute::kDirect:
      return ZrDraw_DisplayWipe(a.data, a.pitch, b.data, b.pitch, out.data, out.pitch, code, f.pixelType,
                                width, height, 0, 0, 0, 0, 0, 0, kProgressSpan, progress);
    case zrgst::WipeRoute::kYCbCr:
      return ZrDraw_DisplayWipeYCbCr(a.data, a.pitch, b.data, b.pitch, out.data, out.pitch, code, 0, width,
                                     height, 0, 0, 0, 0, 0, 0, kProgressSpan, progress);
    case zrgst::WipeRoute::kV210:
      return ZrDraw_DisplayWipeV210(a.data, a.pitch, b.data, b.pitch, out.data, out.pitch, code, 0, width,
                                    height, 0, 0, 0, 0, 0, 0, kProgressSpan, progress);
    case zrgst::WipeRoute::kNone:
      break;
  }
  return 0;
}

// A copy of `height` rows of `rowBytes` at `pitch`, with room after it.
std::vector<uint8_t> Staged(Picture p, uint32_t pitch, uint32_t rowBytes, uint32_t height) {
  std::vector<uint8_t> copy(size_t{pitch} * height + kTailBytes);
  for (uint32_t y = 0; y < height; ++y)
    std::memcpy(&copy[size_t{y} * pitch], p.data + size_t{y} * p.pitch, rowBytes);
  return copy;
}

}  // namespace

G_BEGIN_DECLS
G_DECLARE_FINAL_TYPE(GstZrTransition, gst_zr_transition, GST, ZR_TRANSITION, GstZrTwoInput)
G_END_DECLS

struct _GstZrTransition {
  GstZrTwoInput parent;
  guint wipe;
  gboolean reverse;
  guint64 duration;
  gdouble position;
  // The running time of the first frame with both inputs, where a timed
  // transition starts; NONE until then.
  GstClockTime start;
};

G_DEFINE_TYPE(GstZrTransition, gst_zr_transition, GST_TYPE_ZR_TWO_INPUT)

namespace {

uint32_t Progress(GstZrTransition* self, GstClockTime runningTime) {
  if (GST_CLOCK_TIME_IS_VALID(runningTime)) gst_object_sync_values(GST_OBJECT(self), runningTime);
  GST_OBJECT_LOCK(self);
  uint32_t progress;
  if (self->duration == 0) {
    progress = static_cast<uint32_t>(self->position * kProgressSpan);
  } else {
    if (!GST_CLOCK_TIME_IS_VALID(self->start)) self->start = runningTime;
    const GstClockTime elapsed = GST_CLOCK_TIME_IS_VALID(runningTime) &&
                                         GST_CLOCK_TIME_IS_VALID(self->start) && runningTime > self->start
                                     ? runningTime - self->start
                                     : 0;
    progress = elapsed >= self->duration
                   ? kProgressSpan
                   : static_cast<uint32_t>(gst_util_uint64_scale(elapsed, kProgressSpan, self->duration));
  }
  GST_OBJECT_UNLOCK(self);
  return progress;
}

GstFlowReturn Combine(GstZrTwoInput* base, GstVideoFrame* a, GstVideoFrame* b, GstVideoFrame* out,
                      GstClockTime runningTime) {
  GstZrTransition* self = GST_ZR_TRANSITION(base);
  const zrgst::VideoFormat* f = zrgst::FindVideoFormat(GST_VIDEO_FRAME_FORMAT(out));
  const uint32_t progress = Progress(self, runningTime);
  GST_OBJECT_LOCK(self);
  const uint32_t code = self->wipe | (self->reverse ? kReverseBit : 0);
  GST_OBJECT_UNLOCK(self);
  const uint32_t width = GST_VIDEO_FRAME_WIDTH(out), height = GST_VIDEO_FRAME_HEIGHT(out);
  Picture pa = PictureOf(a), pb = PictureOf(b), po = PictureOf(out);
  uint32_t status = 0;
  // The effects write rows pitchB apart, and the 4:2:2 adapter reads past
  // rows of some widths: such frames go through copies of one pitch with
  // room after them.
  if (po.pitch == pb.pitch && (f->route != zrgst::WipeRoute::kYCbCr || width % kYCbCrReadGroup == 0)) {
    zrfx::RunAndJoinWorkers([&] { status = PlayWipe(*f, pa, pb, po, width, height, code, progress); });
  } else {
    const uint32_t rowBytes = std::min({pa.pitch, pb.pitch, po.pitch});
    std::vector<uint8_t> sa = Staged(pa, po.pitch, rowBytes, height),
                         sb = Staged(pb, po.pitch, rowBytes, height), so(sa.size());
    zrfx::RunAndJoinWorkers([&] {
      status = PlayWipe(*f, {sa.data(), po.pitch}, {sb.data(), po.pitch}, {so.data(), po.pitch}, width,
                        height, code, progress);
    });
    for (uint32_t y = 0; y < height; ++y)
      std::memcpy(po.data + size_t{y} * po.pitch, &so[size_t{y} * po.pitch], rowBytes);
  }
  if (status != 0) {
    GST_ELEMENT_ERROR(self, RESOURCE, NO_SPACE_LEFT,
                      ("The transition could not get memory for %ux%u frames", width, height), (nullptr));
    return GST_FLOW_ERROR;
  }
  return GST_FLOW_OK;
}

void Reset(GstZrTwoInput* base) {
  GstZrTransition* self = GST_ZR_TRANSITION(base);
  GST_OBJECT_LOCK(self);
  self->start = GST_CLOCK_TIME_NONE;
  GST_OBJECT_UNLOCK(self);
}

void SetProperty(GObject* object, guint id, const GValue* value, GParamSpec* pspec) {
  GstZrTransition* self = GST_ZR_TRANSITION(object);
  GST_OBJECT_LOCK(self);
  switch (id) {
    case PROP_WIPE:
      self->wipe = g_value_get_uint(value);
      break;
    case PROP_REVERSE:
      self->reverse = g_value_get_boolean(value);
      break;
    case PROP_DURATION:
      self->duration = g_value_get_uint64(value);
      break;
    case PROP_POSITION:
      self->position = g_value_get_double(value);
      break;
    default:
      G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  }
  GST_OBJECT_UNLOCK(self);
}

void GetProperty(GObject* object, guint id, GValue* value, GParamSpec* pspec) {
  GstZrTransition* self = GST_ZR_TRANSITION(object);
  GST_OBJECT_LOCK(self);
  switch (id) {
    case PROP_WIPE:
      g_value_set_uint(value, self->wipe);
      break;
    case PROP_REVERSE:
      g_value_set_boolean(value, self->reverse);
      break;
    case PROP_DURATION:
      g_value_set_uint64(value, self->duration);
      break;
    case PROP_POSITION:
      g_value_set_double(value, self->position);
      break;
    default:
      G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  }
  GST_OBJECT_UNLOCK(self);
}

}  // namespace

static void gst_zr_transition_class_init(GstZrTransitionClass* klass) {
  GObjectClass* object = G_OBJECT_CLASS(klass);
  object->set_property = SetProperty;
  object->get_property = GetProperty;
  const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
  g_object_class_install_property(
      object, PROP_WIPE,
      g_param_spec_uint(
          "wipe", "Wipe number",
          "SMPTE wipe number: 1-8 and 21-26 edges, corners and doors, 41-48 a centred box, 500-503 "
          "slides; other numbers in the table play the horizontal wipe or the box, and 0 and the numbers "
          "outside it dissolve",
          0, kMaxWipe, kDefaultWipe, flags));
  g_object_class_install_property(
      object, PROP_REVERSE,
      g_param_spec_boolean("reverse", "Reverse",
                           "Play the wipe the other way: sink_0 becomes the incoming picture", FALSE, flags));
  g_object_class_install_property(
      object, PROP_DURATION,
      g_param_spec_uint64("duration", "Duration",
                          "Length of the transition in nanoseconds, from the first frame of sink_1; "
                          "0 plays the position property instead",
                          0, G_MAXUINT64, 0, flags));
  g_object_class_install_property(
      object, PROP_POSITION,
      g_param_spec_double("position", "Position",
                          "Progress of the transition when duration is 0: 0.0 shows sink_0, 1.0 shows sink_1 "
                          "(controllable)",
                          0.0, 1.0, 0.0, static_cast<GParamFlags>(flags | GST_PARAM_CONTROLLABLE)));

  GstElementClass* element = GST_ELEMENT_CLASS(klass);
  gst_element_class_set_static_metadata(
      element, "zrdraw transition", "Filter/Editor/Video/Compositor",
      "SMPTE wipes, slides and dissolves from sink_0 to sink_1 on RGBA, BGRA, ARGB, ABGR, 16-bit ARGB, "
      "UYVY, YUY2 and v210 frames, without conversion. Both inputs need one format and size; an input "
      "that ends holds its last frame",
      "zrdraw");
  zrgst::AddTwoInputTemplates(element, zrgst::kUseTransition);
  GST_ZR_TWO_INPUT_CLASS(klass)->combine = Combine;
  GST_ZR_TWO_INPUT_CLASS(klass)->reset = Reset;
}

static void gst_zr_transition_init(GstZrTransition* self) {
  self->wipe = kDefaultWipe;
  self->start = GST_CLOCK_TIME_NONE;
}
