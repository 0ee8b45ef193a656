#pragma once

// What had to be shortened on sheets, to be listed in full.

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/drawing/text_fit.h"
#include "korrin/foundation/text.h"

namespace korrin::drawing {

class ShortenedTexts {
 public:
  struct Entry {
    std::string printed;
    Text full;
  };

  /// As `fitted`, and noted when the text is shortened.
  std::vector<std::string> fit(const Text& text, double size, double width, std::size_t mostLines,
                               bool isBold = false);
  /// Notes a text that was shortened to these lines.
  void note(const Text& text, const std::vector<std::string>& printed);
  /// `fit` in one line.
  std::string fitLine(const Text& text, double size, double width, bool isBold = false);

  /// Each text once, in the order in which they were noted.
  const std::vector<Entry>& entries() const { return entries_; }

 private:
  std::vector<Entry> entries_;
  std::set<Text> known_;
};

}  // namespace korrin::drawing
