// The gallery's output: each picture as a PNG file in one directory, and an
// index.html contact sheet that shows them in sections with a caption under
// each. Optionally also one PNG montage per section, with the captions
// burned in, for places where HTML cannot go.
#ifndef ZRFX_CONTACT_SHEET_H
#define ZRFX_CONTACT_SHEET_H

#include <string>
#include <vector>

#include "zrfx/frame.h"
#include "zrfx/progress_line.h"

namespace zrfx {

class ContactSheet {
 public:
  // `dir` must exist. With `montages`, thumbnails are kept for WriteMontages.
  ContactSheet(std::string dir, bool montages);

  void BeginSection(const std::string& title, const std::string& note);
  // Adds `text` to the note of the current section.
  void AppendNote(const std::string& text);
  // Writes `picture` to dir/file (RGB, alpha dropped for viewing) and lists
  // it under `caption` in the current section; montages show the shorter
  // `label` instead.
  void Add(const std::string& file, const Frame& picture, const std::string& caption,
           const std::string& label);

  // Writes dir/index.html and returns its path. A counter of the pictures
  // shows on a terminal while they are added, and ends here.
  std::string WriteIndex(const std::string& title, const std::string& intro);
  // With montages, writes dir/sheet-N.png for each section N (1, 2, ...);
  // returns the paths.
  std::vector<std::string> WriteMontages() const;

  size_t PictureCount() const;

 private:
  struct Item {
    std::string file;
    std::string caption;
    std::string label;
    uint32_t width, height;
    Frame thumbnail;  // half size, only with montages
  };
  struct Section {
    std::string title;
    std::string note;
    std::vector<Item> items;
  };

  std::string dir_;
  bool montages_;
  std::vector<Section> sections_;
  ProgressLine progress_;
};

// `text` with &, <, > and " escaped for HTML.
std::string HtmlEscape(const std::string& text);

}  // namespace zrfx

#endif
