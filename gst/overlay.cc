// zroverlay: text, a running timecode, safe-area outlines and a grid drawn
// in place through a canvas of the library in the frame's own layout, with
// zrfx's burn-in routines, so that only the drawn pixels change.
#include "zrfx/overlay.h"

#include <gst/video/gstvideofilter.h>
#include <zrdraw.h>

#include <algorithm>
#include <exception>
#include <string>

#include "elements.h"
#include "formats.h"
#include "zrfx/burn_in.h"
#include "zrfx/canvas_handle.h"
#include "zrfx/frame_label.h"
#include "zrfx/timecode.h"

namespace {

constexpr gint kMaxPlace = 32767;
constexpr guint kMaxTextSize = 100;
constexpr guint kDefaultTextSize = 2;
constexpr guint kWhite = 0xFFFFFF;

enum {
  PROP_0,
  PROP_TEXT,
  PROP_TEXT_X,
  PROP_TEXT_Y,
  PROP_TIMECODE,
  PROP_TIMECODE_X,
  PROP_TIMECODE_Y,
  PROP_TEXT_SIZE,
  PROP_SAFE_AREA,
  PROP_GRID,
  PROP_COLOR,
};

struct OverlaySettings {
  std::string text;
  gint textX = -1, textY = -1;  // -1: the default place
  gboolean timecode = FALSE;
  gint timecodeX = -1, timecodeY = -1;
  guint textSize = kDefaultTextSize;
  gboolean safeArea = FALSE;
  guint grid = 0;
  guint color = kWhite;  // 0xRRGGBB
};

}  // namespace

G_BEGIN_DECLS
G_DECLARE_FINAL_TYPE(GstZrOverlay, gst_zr_overlay, GST, ZR_OVERLAY, GstVideoFilter)
G_END_DECLS

struct _GstZrOverlay {
  GstVideoFilter parent;
  OverlaySettings* settings;
  const zrgst::VideoFormat* format;
  gboolean warnedCut;
};

G_DEFINE_TYPE(GstZrOverlay, gst_zr_overlay, GST_TYPE_VIDEO_FILTER)

namespace {

// The built-in font draws printable ASCII; anything else becomes '?'.
std::string Printable(const char* text) {
  std::string out = text ? text : "";
  std::replace_if(
      out.begin(), out.end(), [](char c) { return c < 0x20 || c > 0x7E; }, '?');
  return out;
}

gboolean SetInfo(GstVideoFilter* filter, GstCaps*, GstVideoInfo* in, GstCaps*, GstVideoInfo*) {
  GstZrOverlay* self = GST_ZR_OVERLAY(filter);
  const zrgst::VideoFormat* f = zrgst::FindVideoFormat(GST_VIDEO_INFO_FORMAT(in));
  const guint width = GST_VIDEO_INFO_WIDTH(in);
  if (f == nullptr || !(f->uses & zrgst::kUseOverlay) || !zrfx::CanvasHandle::Supports(f->pixelType)) {
    GST_ELEMENT_ERROR(
        self, CORE, NEGOTIATION,
        ("zroverlay has no canvas for %s", gst_video_format_to_string(GST_VIDEO_INFO_FORMAT(in))), (nullptr));
    return FALSE;
  }
  if (width % f->groupPixels != 0) {
    GST_ELEMENT_ERROR(
        self, CORE, NEGOTIATION,
        ("zroverlay needs %s frames of an even width, not %u", gst_video_format_to_string(f->format), width),
        ("two pixels share their bytes in this layout"));
    return FALSE;
  }
  self->format = f;
  self->warnedCut = FALSE;
  return TRUE;
}

// The frame number of a running time at the stream's rate (25 when it has
// none), and the whole frames a second that the timecode counts.
void TimecodeClock(const GstVideoInfo& info, GstClockTime runningTime, uint64_t& frame, uint32_t& fps) {
  gint n = GST_VIDEO_INFO_FPS_N(&info), d = GST_VIDEO_INFO_FPS_D(&info);
  if (n <= 0 || d <= 0) n = 25, d = 1;
  fps = static_cast<uint32_t>(std::clamp<gint64>((gint64{n} + d - 1) / d, 1, zrfx::kMaxTimecodeFps));
  frame = GST_CLOCK_TIME_IS_VALID(runningTime) ? gst_util_uint64_scale(runningTime, n, GST_SECOND * d) : 0;
}

void WarnIfCut(GstZrOverlay* self, const char* what, const zrfx::TextPlace& at, size_t length, uint32_t size,
               uint32_t width, uint32_t height) {
  if (self->warnedCut || zrfx::LabelCharactersInFrame(at.x, at.y, length, size, width, height) == length)
    return;
  self->warnedCut = TRUE;
  GST_ELEMENT_WARNING(
      self, LIBRARY, SETTINGS,
      ("The %s at %d,%d does not fit the %ux%u frame: it is cut", what, at.x, at.y, width, height),
      ("a line of text-size %u is %u pixels high and each character %u wide", size, 10 * size, 8 * size));
}

GstFlowReturn TransformFrameIp(GstVideoFilter* filter, GstVideoFrame* frame) {
  GstZrOverlay* self = GST_ZR_OVERLAY(filter);
  GST_OBJECT_LOCK(self);
  const OverlaySettings s = *self->settings;
  GST_OBJECT_UNLOCK(self);
  const uint32_t width = GST_VIDEO_FRAME_WIDTH(frame), height = GST_VIDEO_FRAME_HEIGHT(frame);

  zrfx::Overlay o;
  o.rgba = (s.color >> 16 & 0xFF) | (s.color & 0xFF00) | (s.color & 0xFF) << 16 | 0xFF000000u;
  o.gridStep = s.grid;
  zrfx::BurnIn& b = o.burnIn;
  b.textSize = s.textSize;
  b.safeArea = s.safeArea;
  // By default the text stands at the top left of the title-safe area and
  // the timecode at its bottom left, as in zrfx draw.
  const RECT title = zrfx::SafeArea(width, height, zrfx::kTitleSafeMargin);
  const int line = static_cast<int>(zrfx::LabelLineHeight(s.textSize));
  if (!s.text.empty()) {
    b.caption = s.text;
    b.captionAt = zrfx::TextPlace{s.textX < 0 ? title.left : s.textX, s.textY < 0 ? title.top : s.textY};
    WarnIfCut(self, "text", *b.captionAt, s.text.size(), s.textSize, width, height);
  }
  uint64_t frameNumber = 0;
  if (s.timecode) {
    b.timecodeAt = zrfx::TextPlace{s.timecodeX < 0 ? title.left : s.timecodeX,
                                   s.timecodeY < 0 ? title.bottom + 1 - line : s.timecodeY};
    const GstSegment& segment = GST_BASE_TRANSFORM(filter)->segment;
    TimecodeClock(frame->info,
                  gst_segment_to_running_time(&segment, GST_FORMAT_TIME, GST_BUFFER_PTS(frame->buffer)),
                  frameNumber, b.fps);
    WarnIfCut(self, "timecode", *b.timecodeAt, zrfx::Timecode(frameNumber, b.fps).size(), s.textSize, width,
              height);
  }
  try {
    zrfx::CanvasHandle canvas(self->format->pixelType, width, height,
                              static_cast<uint32_t>(GST_VIDEO_FRAME_PLANE_STRIDE(frame, 0)),
                              static_cast<uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(frame, 0)));
    canvas.SetColour(o.rgba);
    zrfx::DrawOverlay(canvas, self->format->pixelType, o, width, height, frameNumber);
  } catch (const std::exception& e) {
    GST_ELEMENT_ERROR(self, LIBRARY, FAILED, ("zroverlay could not draw: %s", e.what()), (nullptr));
    return GST_FLOW_ERROR;
  }
  return GST_FLOW_OK;
}

gint* PlaceField(OverlaySettings& s, guint id) {
  switch (id) {
    case PROP_TEXT_X:
      return &s.textX;
    case PROP_TEXT_Y:
      return &s.textY;
    case PROP_TIMECODE_X:
      return &s.timecodeX;
    case PROP_TIMECODE_Y:
      return &s.timecodeY;
    default:
      return nullptr;
  }
}

guint* UintField(OverlaySettings& s, guint id) {
  switch (id) {
    case PROP_TEXT_SIZE:
      return &s.textSize;
    case PROP_GRID:
      return &s.grid;
    case PROP_COLOR:
      return &s.color;
    default:
      return nullptr;
  }
}

gboolean* BoolField(OverlaySettings& s, guint id) {
  return id == PROP_TIMECODE ? &s.timecode : id == PROP_SAFE_AREA ? &s.safeArea : nullptr;
}

void SetProperty(GObject* object, guint id, const GValue* value, GParamSpec* pspec) {
  GstZrOverlay* self = GST_ZR_OVERLAY(object);
  OverlaySettings& s = *self->settings;
  GST_OBJECT_LOCK(self);
  self->warnedCut = FALSE;
  if (id == PROP_TEXT) {
    s.text = Printable(g_value_get_string(value));
    if (g_value_get_string(value) && s.text != g_value_get_string(value))
      GST_WARNING_OBJECT(self, "the text holds characters the built-in font has no glyph for: drawn as '?'");
  } else if (gint* place = PlaceField(s, id)) {
    *place = g_value_get_int(value);
  } else if (guint* field = UintField(s, id)) {
    *field = g_value_get_uint(value);
  } else if (gboolean* flag = BoolField(s, id)) {
    *flag = g_value_get_boolean(value);
  } else {
    G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  }
  GST_OBJECT_UNLOCK(self);
}

void GetProperty(GObject* object, guint id, GValue* value, GParamSpec* pspec) {
  GstZrOverlay* self = GST_ZR_OVERLAY(object);
  OverlaySettings& s = *self->settings;
  GST_OBJECT_LOCK(self);
  if (id == PROP_TEXT)
    g_value_set_string(value, s.text.c_str());
  else if (gint* place = PlaceField(s, id))
    g_value_set_int(value, *place);
  else if (guint* field = UintField(s, id))
    g_value_set_uint(value, *field);
  else if (gboolean* flag = BoolField(s, id))
    g_value_set_boolean(value, *flag);
  else
    G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  GST_OBJECT_UNLOCK(self);
}

void Finalize(GObject* object) {
  delete GST_ZR_OVERLAY(object)->settings;
  G_OBJECT_CLASS(gst_zr_overlay_parent_class)->finalize(object);
}

}  // namespace

static void gst_zr_overlay_class_init(GstZrOverlayClass* klass) {
  GObjectClass* object = G_OBJECT_CLASS(klass);
  object->set_property = SetProperty;
  object->get_property = GetProperty;
  object->finalize = Finalize;
  const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
  const auto place = [&](guint id, const char* name, const char* blurb) {
    g_object_class_install_property(object, id,
                                    g_param_spec_int(name, name, blurb, -1, kMaxPlace, -1, flags));
  };
  g_object_class_install_property(
      object, PROP_TEXT,
      g_param_spec_string("text", "Text",
                          "A line of text in the built-in 8x10 font (printable ASCII); "
                          "empty for none",
                          "", flags));
  place(PROP_TEXT_X, "text-x", "Left edge of the text; -1: the left of the title-safe area");
  place(PROP_TEXT_Y, "text-y", "Top of the text; -1: the top of the title-safe area");
  g_object_class_install_property(
      object, PROP_TIMECODE,
      g_param_spec_boolean("timecode", "Timecode",
                           "Burn in HH:MM:SS:FF of the buffer's running time at the stream's frame rate "
                           "(whole frames a second, no drop-frame counting)",
                           FALSE, flags));
  place(PROP_TIMECODE_X, "timecode-x", "Left edge of the timecode; -1: the left of the title-safe area");
  place(PROP_TIMECODE_Y, "timecode-y",
        "Top of the timecode; -1: its last row on the title-safe area's bottom");
  g_object_class_install_property(
      object, PROP_TEXT_SIZE,
      g_param_spec_uint("text-size", "Text size",
                        "Magnification of the font for text and timecode: a character is 8N by 10N pixels", 1,
                        kMaxTextSize, kDefaultTextSize, flags));
  g_object_class_install_property(
      object, PROP_SAFE_AREA,
      g_param_spec_boolean("safe-area", "Safe areas",
                           "Outline the action-safe (93%) and title-safe (90%) areas", FALSE, flags));
  g_object_class_install_property(
      object, PROP_GRID,
      g_param_spec_uint("grid", "Grid", "Lines on every Nth column and row from 0; 0 for none", 0, kMaxPlace,
                        0, flags));
  g_object_class_install_property(
      object, PROP_COLOR,
      g_param_spec_uint("color", "Colour", "Colour of everything drawn, 0xRRGGBB, opaque", 0, 0xFFFFFF,
                        kWhite, flags));

  GstElementClass* element = GST_ELEMENT_CLASS(klass);
  gst_element_class_set_static_metadata(
      element, "zrdraw overlay", "Filter/Effect/Video",
      "Burns text, a timecode, safe areas and a grid into video in place, in its own layout (8-bit RGB, "
      "16-bit ARGB, packed 4:2:2, v210): only the bytes of the drawn pixels change",
      "zrdraw");
  GstCaps* caps = zrgst::CapsFor(zrgst::kUseOverlay);
  gst_element_class_add_pad_template(element,
                                     gst_pad_template_new("sink", GST_PAD_SINK, GST_PAD_ALWAYS, caps));
  gst_element_class_add_pad_template(element, gst_pad_template_new("src", GST_PAD_SRC, GST_PAD_ALWAYS, caps));
  gst_caps_unref(caps);
  GST_VIDEO_FILTER_CLASS(klass)->set_info = SetInfo;
  GST_VIDEO_FILTER_CLASS(klass)->transform_frame_ip = TransformFrameIp;
}

static void gst_zr_overlay_init(GstZrOverlay* self) { self->settings = new OverlaySettings; }
