#pragma once

// Making texts fit a width without the font at hand: the widths are those of a wide sans-serif font
// and a little more, so that another font only leaves more room. Texts are cut between what a
// reader sees as characters, in any script.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::host {

/// A text as one line of paper: line breaks, tabs and control characters become blanks, blanks in a
/// row one, and characters that cannot be seen but reorder others are dropped.
std::string paperLine(std::string_view text);

/// The width of one line in millimetres, at most.
double textWidth(std::string_view line, double size, bool isBold = false);

/// The text in at most `mostLines` lines (at least 1) of at most `width` millimetres, broken at
/// blanks where there are any; the last one ends in an ellipsis when there was more. The text's own
/// line breaks count when `mostLines` is more than 1. No lines for a text of nothing but blanks.
std::vector<std::string> fitted(std::string_view text, double size, double width,
                                std::size_t mostLines, bool isBold = false);

/// The text as one line of at most `width` millimetres; empty for blanks.
std::string fittedLine(std::string_view text, double size, double width, bool isBold = false);

}  // namespace korrin::host
