// zrcompare: two RGBA-family streams side by side, split, differenced or
// mixed by the library's video mux, in one of its modes, with its flags and
// its grid overlay.
#include <zrdraw.h>

#include <cstring>
#include <iterator>
#include <vector>

#include "elements.h"
#include "mux/mux_mode_names.h"
#include "mux_enum.h"
#include "two_input.h"
#include "zrfx/late_workers.h"

namespace {

using zr::mux::kMuxFlagNames;

constexpr guint kMaxWipe = 0x7FFFFFFF;
constexpr uint32_t kReverseBit = 0x80000000u;
constexpr guint kMaxPosition = 65536;
constexpr guint kMaxStep = 32767;
constexpr uint32_t kPercentGridModes = 2;  // grid modes 0 and 1 read grid-step-x as a percentage

enum {
  PROP_0,
  PROP_MODE,
  PROP_WIPE,
  PROP_REVERSE,
  PROP_POSITION,
  PROP_LEVEL,
  PROP_SPLIT_X,
  PROP_SPLIT_Y,
  PROP_GRID_MODE,
  PROP_GRID_STEP_X,
  PROP_GRID_STEP_Y,
  PROP_FIRST_FLAG,  // then one per entry of kMuxFlagNames
};

// Everything a mux call reads beside the frames.
struct MuxSettings {
  uint32_t flags = MUX_SIDE_BY_SIDE;  // mode and flag bits
  uint32_t wipe = 1;
  gboolean reverse = FALSE;
  uint32_t position = 32768, level = 0, splitX = 0, splitY = 0;
  uint32_t gridMode = 0, gridStepX = 25, gridStepY = 25;
};

// The mux flips its sources in place, and some modes read and write a row
// or a pixel past the frame: it works on copies with room after them.
struct MuxFrames {
  std::vector<uint32_t> a, b, out;
};

}  // namespace

G_BEGIN_DECLS
G_DECLARE_FINAL_TYPE(GstZrCompare, gst_zr_compare, GST, ZR_COMPARE, GstZrTwoInput)
G_END_DECLS

struct _GstZrCompare {
  GstZrTwoInput parent;
  MuxSettings* settings;
  MuxFrames* frames;
  gboolean warnedGrid;
};

G_DEFINE_TYPE(GstZrCompare, gst_zr_compare, GST_TYPE_ZR_TWO_INPUT)

namespace {

void CopyRows(uint8_t* dst, size_t dstPitch, const uint8_t* src, size_t srcPitch, size_t rowBytes,
              uint32_t height) {
  for (uint32_t y = 0; y < height; ++y) std::memcpy(dst + y * dstPitch, src + y * srcPitch, rowBytes);
}

// The grid overlay divides by its steps: a step that comes to 0 pixels on
// this frame has no outcome, and the element draws no grid then.
bool GridFits(const MuxSettings& s, uint32_t width, uint32_t height) {
  if (s.gridMode >= kPercentGridModes) return true;
  const uint32_t parts = s.gridStepX <= 100 ? 100 / s.gridStepX : 0;
  return parts != 0 && parts <= width && parts <= height;
}

GstFlowReturn Combine(GstZrTwoInput* base, GstVideoFrame* a, GstVideoFrame* b, GstVideoFrame* out,
                      GstClockTime) {
  GstZrCompare* self = GST_ZR_COMPARE(base);
  GST_OBJECT_LOCK(self);
  MuxSettings s = *self->settings;
  GST_OBJECT_UNLOCK(self);
  const uint32_t width = GST_VIDEO_FRAME_WIDTH(out), height = GST_VIDEO_FRAME_HEIGHT(out);
  const size_t pitch = size_t{width} * 4;
  if (((s.flags & MUXF_GRID) || s.gridMode) && !GridFits(s, width, height)) {
    if (!self->warnedGrid)
      GST_ELEMENT_WARNING(
          self, LIBRARY, SETTINGS,
          ("grid-step-x %u%% does not fit %ux%u frames: no grid is drawn", s.gridStepX, width, height),
          ("in grid modes 0 and 1 the step is a percentage from 1 to 100, and 100 / step "
           "lines must fit across and down"));
    self->warnedGrid = TRUE;
    s.flags &= ~MUXF_GRID;
    s.gridMode = 0;
  }
  MuxFrames& f = *self->frames;
  const size_t words = size_t{width} * (height + 1) + 16;
  for (std::vector<uint32_t>* v : {&f.a, &f.b, &f.out}) v->assign(words, 0);
  CopyRows(reinterpret_cast<uint8_t*>(f.a.data()), pitch,
           static_cast<const uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(a, 0)), GST_VIDEO_FRAME_PLANE_STRIDE(a, 0),
           pitch, height);
  CopyRows(reinterpret_cast<uint8_t*>(f.b.data()), pitch,
           static_cast<const uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(b, 0)), GST_VIDEO_FRAME_PLANE_STRIDE(b, 0),
           pitch, height);
  const auto bytes = static_cast<uint32_t>(pitch * height);
  zrfx::RunAndJoinWorkers([&] {
    ZrDraw_DisplayMuxRGBA(f.a.data(), bytes, f.b.data(), bytes, f.out.data(), bytes, s.flags,
                          s.wipe | (s.reverse ? kReverseBit : 0), s.position, s.level, s.splitX, s.splitY,
                          s.gridMode, s.gridStepX, s.gridStepY, width, height, static_cast<uint32_t>(pitch));
  });
  CopyRows(static_cast<uint8_t*>(GST_VIDEO_FRAME_PLANE_DATA(out, 0)), GST_VIDEO_FRAME_PLANE_STRIDE(out, 0),
           reinterpret_cast<const uint8_t*>(f.out.data()), pitch, pitch, height);
  return GST_FLOW_OK;
}

void Reset(GstZrTwoInput* base) { GST_ZR_COMPARE(base)->warnedGrid = FALSE; }

uint32_t* Field(MuxSettings& s, guint id) {
  switch (id) {
    case PROP_WIPE:
      return &s.wipe;
    case PROP_POSITION:
      return &s.position;
    case PROP_LEVEL:
      return &s.level;
    case PROP_SPLIT_X:
      return &s.splitX;
    case PROP_SPLIT_Y:
      return &s.splitY;
    case PROP_GRID_MODE:
      return &s.gridMode;
    case PROP_GRID_STEP_X:
      return &s.gridStepX;
    case PROP_GRID_STEP_Y:
      return &s.gridStepY;
    default:
      return nullptr;
  }
}

void SetProperty(GObject* object, guint id, const GValue* value, GParamSpec* pspec) {
  GstZrCompare* self = GST_ZR_COMPARE(object);
  MuxSettings& s = *self->settings;
  GST_OBJECT_LOCK(self);
  self->warnedGrid = FALSE;
  if (id == PROP_MODE) {
    s.flags = (s.flags & ~MUX_MODE_MASK) | static_cast<uint32_t>(g_value_get_enum(value));
  } else if (id == PROP_REVERSE) {
    s.reverse = g_value_get_boolean(value);
  } else if (uint32_t* field = Field(s, id)) {
    *field = g_value_get_uint(value);
  } else if (id >= PROP_FIRST_FLAG && id < PROP_FIRST_FLAG + std::size(kMuxFlagNames)) {
    const uint32_t bit = kMuxFlagNames[id - PROP_FIRST_FLAG].value;
    s.flags = g_value_get_boolean(value) ? s.flags | bit : s.flags & ~bit;
  } else {
    G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  }
  GST_OBJECT_UNLOCK(self);
}

void GetProperty(GObject* object, guint id, GValue* value, GParamSpec* pspec) {
  GstZrCompare* self = GST_ZR_COMPARE(object);
  MuxSettings& s = *self->settings;
  GST_OBJECT_LOCK(self);
  if (id == PROP_MODE) {
    g_value_set_enum(value, static_cast<gint>(s.flags & MUX_MODE_MASK));
  } else if (id == PROP_REVERSE) {
    g_value_set_boolean(value, s.reverse);
  } else if (uint32_t* field = Field(s, id)) {
    g_value_set_uint(value, *field);
  } else if (id >= PROP_FIRST_FLAG && id < PROP_FIRST_FLAG + std::size(kMuxFlagNames)) {
    g_value_set_boolean(value, (s.flags & kMuxFlagNames[id - PROP_FIRST_FLAG].value) != 0);
  } else {
    G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
  }
  GST_OBJECT_UNLOCK(self);
}

void Finalize(GObject* object) {
  GstZrCompare* self = GST_ZR_COMPARE(object);
  delete self->settings;
  delete self->frames;
  G_OBJECT_CLASS(gst_zr_compare_parent_class)->finalize(object);
}

void InstallUint(GObjectClass* object, guint id, const char* name, const char* nick, const char* blurb,
                 guint low, guint high, guint fallback) {
  const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
  g_object_class_install_property(object, id,
                                  g_param_spec_uint(name, nick, blurb, low, high, fallback, flags));
}

}  // namespace

static void gst_zr_compare_class_init(GstZrCompareClass* klass) {
  GObjectClass* object = G_OBJECT_CLASS(klass);
  object->set_property = SetProperty;
  object->get_property = GetProperty;
  object->finalize = Finalize;
  const MuxSettings d;
  const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
  g_object_class_install_property(
      object, PROP_MODE,
      g_param_spec_enum("mode", "Mode", "How the two pictures are combined", zrgst::MuxModeType(),
                        static_cast<gint>(d.flags & MUX_MODE_MASK), flags));
  InstallUint(object, PROP_WIPE, "wipe", "Wipe number", "The transition of mode wipe (see zrtransition)", 0,
              kMaxWipe, d.wipe);
  g_object_class_install_property(
      object, PROP_REVERSE,
      g_param_spec_boolean("reverse", "Reverse", "Mode wipe: play the transition the other way", FALSE,
                           flags));
  InstallUint(object, PROP_POSITION, "position", "Position",
              "Mix position: crossfade weight of A (65536 is all A), wipe progress, block-checker "
              "block size times 256",
              0, kMaxPosition, d.position);
  InstallUint(object, PROP_LEVEL, "level", "Level",
              "Difference gain (2-255, else 1), match-gate tolerance, or the channel-view byte mask", 0,
              G_MAXUINT, d.level);
  InstallUint(object, PROP_SPLIT_X, "split-x", "Split column",
              "Split and crop-pair: the column of the split (beyond the frame: the centre)", 0, G_MAXUINT,
              d.splitX);
  InstallUint(object, PROP_SPLIT_Y, "split-y", "Split row", "As split-x, for the row with alt-axis", 0,
              G_MAXUINT, d.splitY);
  InstallUint(object, PROP_GRID_MODE, "grid-mode", "Grid mode",
              "0: grid only with the grid flag, 0 and 1: grid-step-x is a percentage, 2: steps in pixels", 0,
              2, d.gridMode);
  InstallUint(object, PROP_GRID_STEP_X, "grid-step-x", "Grid column step",
              "Pixels between grid columns, or in grid modes 0 and 1 the percentage of the picture (1-100)",
              1, kMaxStep, d.gridStepX);
  InstallUint(object, PROP_GRID_STEP_Y, "grid-step-y", "Grid row step",
              "Pixels between grid rows in grid mode 2", 1, kMaxStep, d.gridStepY);
  guint id = PROP_FIRST_FLAG;
  for (const zr::mux::MuxName& flag : kMuxFlagNames) {
    // Installed once per process, like the class itself.
    const char* name = g_intern_string(zrgst::PropertyName(flag.name).c_str());
    g_object_class_install_property(object, id++, g_param_spec_boolean(name, name, flag.looks, FALSE, flags));
  }

  GstElementClass* element = GST_ELEMENT_CLASS(klass);
  gst_element_class_set_static_metadata(
      element, "zrdraw compare", "Filter/Editor/Video/Compositor",
      "Compares two RGBA, BGRA, ARGB or ABGR streams of one size with the zrdraw video mux: merges, "
      "differences, cross-fades, splits, mirrors, checkerboards and side-by-side views, with a grid",
      "zrdraw");
  zrgst::AddTwoInputTemplates(element, zrgst::kUseCompare);
  GST_ZR_TWO_INPUT_CLASS(klass)->combine = Combine;
  GST_ZR_TWO_INPUT_CLASS(klass)->reset = Reset;
}

static void gst_zr_compare_init(GstZrCompare* self) {
  self->settings = new MuxSettings;
  self->frames = new MuxFrames;
}
