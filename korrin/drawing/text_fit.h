#pragma once

// Making texts fit a width without the font at hand: the widths are those of a wide sans-serif font
// and a little more, so that another font only leaves more room. Texts, which are well-formed
// UTF-8, are cut between what a reader sees as characters, in any script.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::drawing {

/// A text as one line of paper: line breaks, tabs and control characters become blanks, blanks in a
/// row one, and characters that cannot be seen but reorder others are dropped.
std::string paperLine(std::string_view text);

/// The width of one line in millimetres, at most.
double textWidth(std::string_view line, double size, bool isBold = false);

/// Cuts a text into lines, one at a time, so that a text of megabytes takes no more memory than a
/// line. The text must outlive it.
class LineCutter {
 public:
  /// Lines of at most `width` millimetres, broken at blanks where there are any. The text's own
  /// line breaks count when `keepsBreaks`.
  LineCutter(std::string_view text, double size, double width, bool keepsBreaks,
             bool isBold = false);

  /// Whether there is no further line.
  bool isAtEnd();
  /// The next line; the text must not be at its end. Blank lines are left out.
  std::string next();
  /// All the rest on one line, which ends in an ellipsis if there is more than fits. Returns
  /// whether there was.
  bool addLast(std::vector<std::string>& lines);

 private:
  void fill();
  std::string_view ahead() const;

  std::string_view rest_;  // not looked at yet
  std::string paragraph_;  // made a line of paper, as far as was needed
  std::size_t at_ = 0;     // in the paragraph
  bool isEnded_ = true;    // whether nothing of the paragraph is left in `rest_`
  double em_;
  double width_;
  bool keepsBreaks_;
};

/// Lines of a text, and whether they leave out some of it.
struct Fitted {
  std::vector<std::string> lines;
  bool isShortened = false;
};

/// The text in at most `mostLines` lines (at least 1) of at most `width` millimetres; the last one
/// ends in an ellipsis when there was more. The text's own line breaks count when `mostLines` is
/// more than 1. No lines for a text of nothing but blanks.
Fitted fitted(std::string_view text, double size, double width, std::size_t mostLines,
              bool isBold = false);

/// The text as one line of at most `width` millimetres; empty for blanks.
std::string fittedLine(std::string_view text, double size, double width, bool isBold = false);

/// How many times its size a text may be wide that is written on every page or for every item.
constexpr double longestRepeated = 160;

/// As `paperLine`, and shortened to `longestRepeated`: some 200 characters. Who writes a document
/// could otherwise make a picture as large as the product of a text and the items.
std::string repeatedLine(std::string_view text);

}  // namespace korrin::drawing
