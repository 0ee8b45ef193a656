#pragma once

// Words in sentences: lists of them, cut short where they are long, and the one that was meant.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::host {

/// "left, right, top"; with more than `most`, "left, right and 4 more".
std::string listed(const std::vector<std::string>& words,
                   std::size_t most = static_cast<std::size_t>(-1));

/// The words one after another, `separator` between two.
std::string joined(const std::vector<std::string>& words, std::string_view separator);

/// The text without white space of ASCII at its two ends.
std::string_view trimmed(std::string_view text);

/// The text with small letters for the capital ones of ASCII.
std::string lowerCase(std::string_view text);

/// The word of `known` that takes the fewest single-character changes to reach from `given`, letter
/// case aside; nothing where even that one is quite another word. The first of several.
std::optional<std::string> similarWord(std::string_view given,
                                       const std::vector<std::string>& known);

/// "; did you mean "align"?" where there is a similar word, otherwise `otherwise`.
std::string suggestion(std::string_view given, const std::vector<std::string>& known,
                       std::string_view otherwise = "");

}  // namespace korrin::host
