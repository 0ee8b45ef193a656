#pragma once

// JSON readers by other authors, asked whether a text is JSON.

#include <optional>
#include <string>
#include <string_view>

namespace korrin::test {

enum class Verdict {
  accepted,
  refused,
  /// The reader stopped at something that it cannot hold though the grammar allows it.
  undecided,
};

Verdict nlohmannVerdict(std::string_view text);
Verdict rapidjsonVerdict(std::string_view text);

/// Which of the readers judges `text` otherwise than the document reader does, in a sentence;
/// nothing when they agree or differ where they are known to:
/// - a byte 0 ends the text for both of them; for ours it is a fault, as it is in the grammar;
/// - nlohmann-json passes over a byte order mark at the start;
/// - both refuse numbers beyond a double, which the grammar allows;
/// - RapidJSON takes a low surrogate that stands alone in escapes;
/// - ours promises 512 levels of nesting, the others set no limit.
std::optional<std::string> disagreement(std::string_view text);

}  // namespace korrin::test
