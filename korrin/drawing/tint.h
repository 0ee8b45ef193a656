#pragma once

// The colours an item asks for.

#include <optional>
#include <string>

#include "korrin/foundation/text.h"

namespace korrin::drawing {

struct Tint {
  std::string colour;  ///< "#" and six digits.
  double opacity;      ///< 0 to 1.
  bool isDark;         ///< Whether light lines show better on it than dark ones.

  friend bool operator==(const Tint&, const Tint&) = default;
};

/// The colour that the text writes in hexadecimal: RRGGBB or RRGGBBAA, with or without "#", in
/// either letter case. Nothing for any other text.
std::optional<Tint> tintOf(const std::optional<Text>& hex);

/// The digits of the colour; empty for what is none.
std::string tintText(const std::optional<Text>& hex);

}  // namespace korrin::drawing
