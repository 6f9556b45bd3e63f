#include "formats.h"

#include <zrdraw.h>

#include <string>

namespace zrgst {
namespace {

// The 16-bit words of ARGB64 are the machine's, as the canvas's are.
static_assert(G_BYTE_ORDER == G_LITTLE_ENDIAN, "ARGB64_LE is the native ARGB64 layout");

constexpr uint32_t kAll = kUseTransition | kUseCompare | kUseOverlay;
constexpr uint32_t kMoving = kUseTransition | kUseOverlay;

constexpr VideoFormat kFormats[] = {
    {GST_VIDEO_FORMAT_RGBA, pixelRGBA32, WipeRoute::kDirect, kAll, 1},
    {GST_VIDEO_FORMAT_BGRA, pixelBGRA32, WipeRoute::kDirect, kAll, 1},
    {GST_VIDEO_FORMAT_ARGB, pixelARGB32, WipeRoute::kDirect, kAll, 1},
    {GST_VIDEO_FORMAT_ABGR, pixelABGR32, WipeRoute::kDirect, kAll, 1},
    {GST_VIDEO_FORMAT_UYVY, pixelUYVY, WipeRoute::kYCbCr, kMoving, 2},
    {GST_VIDEO_FORMAT_YUY2, pixelYUYV, WipeRoute::kYCbCr, kMoving, 2},
    {GST_VIDEO_FORMAT_v210, pixelV210, WipeRoute::kV210, kMoving, 1},
    {GST_VIDEO_FORMAT_ARGB64_LE, pixelARGB64, WipeRoute::kDirect, kMoving, 1},
    {GST_VIDEO_FORMAT_RGB, pixelRGB24, WipeRoute::kNone, kUseOverlay, 1},
    {GST_VIDEO_FORMAT_BGR, pixelBGR24, WipeRoute::kNone, kUseOverlay, 1},
    {GST_VIDEO_FORMAT_YVYU, pixelYVYU, WipeRoute::kNone, kUseOverlay, 2},
    {GST_VIDEO_FORMAT_VYUY, pixelVYUY, WipeRoute::kNone, kUseOverlay, 2},
};

}  // namespace

const VideoFormat* FindVideoFormat(GstVideoFormat format) {
  for (const VideoFormat& f : kFormats)
    if (f.format == format) return &f;
  return nullptr;
}

GstCaps* CapsFor(ElementUse use) {
  std::string names;
  for (const VideoFormat& f : kFormats)
    if (f.uses & use) names.append(names.empty() ? "" : ", ").append(gst_video_format_to_string(f.format));
  const std::string caps = "video/x-raw, format=(string){ " + names +
                           " }, width=(int)[ 1, 32767 ], height=(int)[ 1, 32767 ], "
                           "framerate=(fraction)[ 0/1, 2147483647/1 ]";
  return gst_caps_from_string(caps.c_str());
}

}  // namespace zrgst
