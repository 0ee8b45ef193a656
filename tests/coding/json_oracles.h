#pragma once

// JSON readers by other authors, asked whether a text is JSON.

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

}  // namespace korrin::test
