#pragma once

// Looking into pictures.

#include <string>
#include <string_view>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::host {

/// The texts of a picture in the order they are drawn, with XML's escapes undone. The test fails
/// when the picture is not well-formed: elements that do not nest, attributes without quotes,
/// characters or escapes that XML does not allow.
std::vector<std::string> textsOf(std::string_view svg);

/// How many times `part` stands in the text.
std::size_t countOf(std::string_view text, std::string_view part);

/// The example with a fixed clock and counting identifiers.
KorrinProject fixedExample();

}  // namespace korrin::host
