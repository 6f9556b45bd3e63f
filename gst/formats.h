// The video formats of the plugin: which GStreamer format is which layout of
// the library, how a transition reaches it and which elements take it. One
// table, read by the pad templates and by the elements at negotiation.
#ifndef ZR_GST_FORMATS_H
#define ZR_GST_FORMATS_H

#include <gst/video/video.h>

#include <cstdint>

namespace zrgst {

// How a transition plays frames of a format.
enum class WipeRoute : uint8_t {
  kNone,    // no transition
  kDirect,  // ZrDraw_DisplayWipe with the layout's own effect format
  kYCbCr,   // the 8-bit 4:2:2 adapter
  kV210,    // the v210 adapter
};

enum ElementUse : uint32_t {
  kUseTransition = 1,
  kUseCompare = 2,
  kUseOverlay = 4,
};

struct VideoFormat {
  GstVideoFormat format;
  unsigned int pixelType;  // the canvas layout, and the effect format of the direct route
  WipeRoute route;
  uint32_t uses;         // ElementUse bits
  uint32_t groupPixels;  // pixels that share bytes: 2 in 4:2:2, 1 elsewhere (v210 rows are padded)
};

// The entry of a format, or nullptr when the plugin does not take it.
const VideoFormat* FindVideoFormat(GstVideoFormat format);

// Raw video caps with every format of `use`, any size and rate.
GstCaps* CapsFor(ElementUse use);

}  // namespace zrgst

#endif
