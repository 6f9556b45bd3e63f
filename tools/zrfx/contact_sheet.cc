#include "zrfx/contact_sheet.h"

#include <zrdraw.h>

#include <algorithm>
#include <fstream>

#include "zrfx/caption.h"
#include "zrfx/errors.h"
#include "zrfx/png_io.h"

namespace zrfx {
namespace {

constexpr uint32_t kMontageColumns = 6;
constexpr uint32_t kMontageGap = 8;
constexpr uint32_t kCaptionLines = 2;

// Each 2 by 2 block of pixels averaged into one.
Frame HalfSize(const Frame& picture) {
  Frame half(std::max(picture.width() / 2, 1u), std::max(picture.height() / 2, 1u));
  for (uint32_t y = 0; y < half.height(); ++y)
    for (uint32_t x = 0; x < half.width(); ++x) {
      uint8_t* out = half.Pixel(x, y);
      for (int k = 0; k < 4; ++k) {
        unsigned sum = 0;
        for (uint32_t dy = 0; dy < 2; ++dy)
          for (uint32_t dx = 0; dx < 2; ++dx)
            sum += picture.Pixel(std::min(2 * x + dx, picture.width() - 1),
                                 std::min(2 * y + dy, picture.height() - 1))[k];
        out[k] = static_cast<uint8_t>((sum + 2) / 4);
      }
    }
  return half;
}

// Splits `text` into lines of at most `columns` characters, at spaces where
// it can.
std::vector<std::string> Wrap(const std::string& text, size_t columns) {
  columns = std::max<size_t>(columns, 1);
  std::vector<std::string> lines;
  std::string rest = text;
  while (rest.size() > columns) {
    size_t cut = rest.rfind(' ', columns);
    if (cut == std::string::npos || cut == 0) cut = columns;
    lines.push_back(rest.substr(0, cut));
    rest = rest.substr(rest[cut] == ' ' ? cut + 1 : cut);
  }
  lines.push_back(rest);
  return lines;
}

void Blit(Frame& target, const Frame& source, uint32_t left, uint32_t top) {
  for (uint32_t y = 0; y < source.height() && top + y < target.height(); ++y)
    for (uint32_t x = 0; x < source.width() && left + x < target.width(); ++x)
      std::copy_n(source.Pixel(x, y), 4, target.Pixel(left + x, top + y));
}

}  // namespace

ContactSheet::ContactSheet(std::string dir, bool montages)
    : dir_(std::move(dir)), montages_(montages), progress_(0, "picture") {}

void ContactSheet::BeginSection(const std::string& title, const std::string& note) {
  sections_.push_back({title, note, {}});
}

void ContactSheet::AppendNote(const std::string& text) { sections_.back().note += text; }

void ContactSheet::Add(const std::string& file, const Frame& picture, const std::string& caption,
                       const std::string& label) {
  WritePng(dir_ + "/" + file, picture, false);
  sections_.back().items.push_back(
      {file, caption, label, picture.width(), picture.height(), montages_ ? HalfSize(picture) : Frame()});
  progress_.Update(PictureCount());
}

size_t ContactSheet::PictureCount() const {
  size_t count = 0;
  for (const Section& section : sections_) count += section.items.size();
  return count;
}

std::string ContactSheet::WriteIndex(const std::string& title, const std::string& intro) {
  progress_.Finish();
  const std::string path = dir_ + "/index.html";
  std::ofstream html(path);
  html << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
       << HtmlEscape(title)
       << "</title>\n<style>\n"
          "body{background:#1c1c1c;color:#ddd;font:14px/1.4 sans-serif;margin:24px}\n"
          "h1{font-size:22px}h2{font-size:18px;margin-top:32px;border-bottom:1px solid #444}\n"
          "nav a{color:#9cf;margin-right:12px}p.note{color:#aaa;max-width:70em}\n"
          ".grid{display:flex;flex-wrap:wrap;gap:14px}\n"
          "figure{margin:0;width:min-content}\n"
          "img{display:block;background:#000;image-rendering:pixelated}\n"
          "figcaption{font:12px/1.35 monospace;color:#ccc;margin-top:4px}\n"
          "</style>\n</head>\n<body>\n<h1>"
       << HtmlEscape(title) << "</h1>\n<p class=\"note\">" << HtmlEscape(intro) << "</p>\n<nav>";
  for (size_t i = 0; i < sections_.size(); ++i)
    html << "<a href=\"#s" << i + 1 << "\">" << HtmlEscape(sections_[i].title) << "</a>";
  html << "</nav>\n";
  for (size_t i = 0; i < sections_.size(); ++i) {
    const Section& section = sections_[i];
    html << "<h2 id=\"s" << i + 1 << "\">" << HtmlEscape(section.title) << "</h2>\n<p class=\"note\">"
         << HtmlEscape(section.note) << "</p>\n<div class=\"grid\">\n";
    for (const Item& item : section.items)
      html << "<figure><a href=\"" << HtmlEscape(item.file) << "\"><img src=\"" << HtmlEscape(item.file)
           << "\" width=\"" << item.width << "\" height=\"" << item.height << "\" loading=\"lazy\" alt=\""
           << HtmlEscape(item.caption) << "\"></a><figcaption>" << HtmlEscape(item.caption)
           << "</figcaption></figure>\n";
    html << "</div>\n";
  }
  html << "<p class=\"note\">zrdraw " << ZRDRAW_VERSION_MAJOR << "." << ZRDRAW_VERSION_MINOR << "."
       << ZRDRAW_VERSION_PATCH << "</p>\n</body>\n</html>\n";
  html.close();
  if (!html) throw RunError("cannot write " + path);
  return path;
}

std::vector<std::string> ContactSheet::WriteMontages() const {
  std::vector<std::string> paths;
  if (!montages_) return paths;
  for (size_t s = 0; s < sections_.size(); ++s) {
    const Section& section = sections_[s];
    if (section.items.empty()) continue;
    const Frame& first = section.items.front().thumbnail;
    const uint32_t cellW = first.width(), captionH = kCaptionLines * TextHeight(1) + 4;
    const uint32_t cellH = first.height() + captionH;
    const uint32_t columns = std::min<uint32_t>(kMontageColumns, static_cast<uint32_t>(section.items.size()));
    const auto rows = static_cast<uint32_t>((section.items.size() + columns - 1) / columns);
    const uint32_t titleH = TextHeight(2) + kMontageGap;
    Frame sheet(kMontageGap + columns * (cellW + kMontageGap),
                titleH + kMontageGap + rows * (cellH + kMontageGap));
    sheet.Fill(0xFF1C1C1Cu);
    DrawText(sheet, static_cast<int>(kMontageGap), static_cast<int>(kMontageGap), section.title, 2,
             0xFFFFFFFFu);
    for (size_t i = 0; i < section.items.size(); ++i) {
      const Item& item = section.items[i];
      const uint32_t left = kMontageGap + static_cast<uint32_t>(i % columns) * (cellW + kMontageGap);
      const uint32_t top = titleH + kMontageGap + static_cast<uint32_t>(i / columns) * (cellH + kMontageGap);
      Blit(sheet, item.thumbnail, left, top);
      const std::vector<std::string> lines =
          Wrap(item.label, cellW / static_cast<uint32_t>(TextWidth("x", 1)));
      for (size_t l = 0; l < lines.size() && l < kCaptionLines; ++l)
        DrawText(sheet, static_cast<int>(left),
                 static_cast<int>(top + item.thumbnail.height() + 3 + l * TextHeight(1)), lines[l], 1,
                 0xFFD0D0D0u);
    }
    paths.push_back(dir_ + "/sheet-" + std::to_string(s + 1) + ".png");
    WritePng(paths.back(), sheet, false);
  }
  return paths;
}

std::string HtmlEscape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

}  // namespace zrfx
