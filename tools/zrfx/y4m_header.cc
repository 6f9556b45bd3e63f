#include "zrfx/y4m_header.h"

#include <sstream>

#include "zrfx/errors.h"
#include "zrfx/numbers.h"

namespace zrfx {
namespace {

// The 4:4:4 YCbCr layouts of the effects: three 8-bit or 16-bit samples.
constexpr uint32_t kEffectYCbCr8 = 33;
constexpr uint32_t kEffectYCbCr16 = 35;

struct Colour {
  const char* tag;
  Y4mChroma chroma;
};
constexpr Colour kColours[] = {{"C422", Y4mChroma::k422},
                               {"C422p10", Y4mChroma::k422p10},
                               {"C444", Y4mChroma::k444},
                               {"C444p10", Y4mChroma::k444p10}};

uint32_t Dimension(const std::string& token, const std::string& name) {
  return ParseU32(token.substr(1), name + " frame " + (token[0] == 'W' ? "width" : "height"));
}

}  // namespace

size_t Y4mHeader::PlanarBytes() const {
  const size_t luma = static_cast<size_t>(width) * height;
  const bool full = chroma == Y4mChroma::k444 || chroma == Y4mChroma::k444p10;
  const size_t samples = luma + (full ? 2 * luma : luma);  // 4:2:2 chroma planes are half wide, width even
  return chroma == Y4mChroma::k422p10 || chroma == Y4mChroma::k444p10 ? 2 * samples : samples;
}

StreamFormat Y4mHeader::PackedFormat() const {
  const FrameSize size{width, height};
  StreamFormat s;
  switch (chroma) {
    case Y4mChroma::k422:
      s = RawStreamFormat(ParsePixelFormat("uyvy422"), size);
      break;
    case Y4mChroma::k422p10:
      s = RawStreamFormat(ParsePixelFormat("v210"), size);
      break;
    case Y4mChroma::k444:
      s = EffectStreamFormat(colour, kEffectYCbCr8, 3, size);
      break;
    case Y4mChroma::k444p10:
      s = EffectStreamFormat(colour, kEffectYCbCr16, 6, size);
      break;
  }
  s.name = colour;
  return s;
}

Y4mHeader ParseY4mHeader(const std::string& line, const std::string& name) {
  std::istringstream in(line);
  std::string token;
  if (!(in >> token) || token != "YUV4MPEG2") throw UsageError(name + " is not a YUV4MPEG2 stream");
  Y4mHeader h;
  h.line = line;
  std::string colour = "C420jpeg";  // what a stream without a C tag holds
  while (in >> token) {
    if (token[0] == 'W' || token[0] == 'H') {
      (token[0] == 'W' ? h.width : h.height) = Dimension(token, name);
    } else if (token[0] == 'I' && token != "Ip") {
      throw UsageError(name + " is not progressive (" + token + "): only Ip y4m streams are taken");
    } else if (token[0] == 'C') {
      colour = token;
    }
  }
  if (h.width == 0 || h.height == 0) throw UsageError(name + " has no frame size in its y4m header");
  CheckFrameSize(h.width, h.height, name + "'s frame size");
  const Colour* found = nullptr;
  for (const Colour& c : kColours)
    if (colour == c.tag) found = &c;
  if (!found)
    throw UsageError(name + " holds " + colour +
                     " y4m frames; the tool takes C422, C422p10, C444 and C444p10");
  h.colour = colour;
  h.chroma = found->chroma;
  if ((h.chroma == Y4mChroma::k422 || h.chroma == Y4mChroma::k422p10) && h.width % 2 != 0)
    throw UsageError(name + ": a 4:2:2 y4m stream needs an even width, not " + std::to_string(h.width));
  return h;
}

}  // namespace zrfx
