#pragma once

// Turns what a reader met into the error that a person reads.

#include <string>
#include <string_view>
#include <vector>

#include "korrin/coding/coding_error.h"
#include "korrin/coding/json_scanner.h"
#include "korrin/coding/key_path.h"

namespace korrin::json {

/// A place in a text as an editor shows it: both count from 1, columns in characters.
struct TextPlace {
  std::size_t line;
  std::size_t column;
};

/// The place of the byte at `at`, which lies in the scanner's text or at its end.
TextPlace placeOf(const Scanner& scanner, const char* at);

/// "items[3].label: expected a string, found a number".
DecodingError refusal(DecodingError::Kind kind, const KeyPath& path, TextPlace place,
                      std::string_view expected, std::string_view found);

/// "line 3, column 14: expected a value, found ']'".
DecodingError notJSON(const Scanner& scanner, const Malformed& fault);

/// The type of the value that starts at the scanner's position: "a string", "null", ...
std::string_view typeOfNextValue(const Scanner& scanner);

/// The word of `words` that takes the fewest single-character changes to reach from `given`.
std::string nearestWord(std::string_view given, const std::vector<std::string_view>& words);

/// The words as a sentence has them: `one of "top", "right" or "left"`.
std::string oneOf(const std::vector<std::string_view>& words);

/// A value as an error shows it: shortened when it is long.
std::string shortened(std::string_view raw);

/// The same between quotation marks.
std::string quoted(std::string_view raw);

}  // namespace korrin::json
