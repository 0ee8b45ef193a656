#pragma once

// Looking into pictures.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::test {

/// One element of a picture, in the order in which they begin.
struct SvgElement {
  std::string name;
  std::map<std::string, std::string> attributes;  ///< With XML's escapes undone.
  std::string text;                               ///< Directly inside, with escapes undone.
};

/// A picture as it was read, up to the first fault.
struct SvgPicture {
  std::vector<SvgElement> elements;
  /// What is wrong; empty for a picture that is well-formed XML, has one root, holds no element and
  /// no attribute but those that drawings need, writes numbers that are finite and no farther off
  /// than a kilometre, and refers to nothing but its own elements and images that it holds itself.
  std::string fault;
};

/// Reads with the strictness of an XML reader that knows no document type.
SvgPicture readSvg(std::string_view svg);

/// The texts of a picture in the order they are drawn. The test fails when the picture has a fault.
std::vector<std::string> textsOf(std::string_view svg);

/// How many times `part` stands in the text.
std::size_t countOf(std::string_view text, std::string_view part);

/// The example with a fixed clock and counting identifiers.
KorrinProject fixedExample();

}  // namespace korrin::test
