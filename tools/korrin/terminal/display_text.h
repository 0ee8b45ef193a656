#pragma once

// Text on its way to a terminal: documents and file names come from strangers, and a terminal obeys
// what it is sent. Widths are columns of a terminal, wide characters counting two.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::host {

/// The text on one line, with nothing in it that a terminal would obey or that would reorder or
/// hide other text: control characters, line separators and invisible format characters stand as
/// "\n", "\t", "\r" or "\u{1B}", ill-formed bytes as U+FFFD. The joiners that scripts and emoji
/// need stay. A backslash of the text's own stays as it is, so this cannot be read back.
std::string printable(std::string_view text);

/// JSON with the characters that `printable` would show in another way written as JSON's own
/// escapes: the same value.
std::string printableJSON(std::string_view json);

/// The number in at most `digits` significant ones, with a point whatever the process's locale.
std::string shortNumber(double value, int digits);

/// Columns that well-formed UTF-8 without control characters takes.
std::size_t displayWidth(std::string_view text);

/// The text, or as much of it as `width` columns take together with an ellipsis; 0 for no limit.
std::string shortened(std::string_view text, std::size_t width);

/// The text in lines of at most `width` columns (at least 2; 0 for no limit), broken at blanks
/// where there are any; at least one line.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

}  // namespace korrin::host
