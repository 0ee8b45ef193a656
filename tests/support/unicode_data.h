#pragma once

// The tables that the Unicode Consortium publishes, from Debian's package unicode-data.

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korrin::test {

std::string utf8Of(char32_t scalar);

/// The scalars that PropList.txt gives `property`; nothing when the file is not installed.
std::optional<std::set<char32_t>> scalarsWithProperty(const std::string& property);

/// One line of NormalizationTest.txt as UTF-8: a text and its four normal forms.
struct NormalizationRow {
  std::string source;
  std::string nfc;
  std::string nfd;
  std::string nfkc;
  std::string nfkd;
  bool isSingleScalar;  ///< The line lists one scalar that no normal form leaves as it is.
};

/// The lines of NormalizationTest.txt, compressed or not; nothing when the file is in neither place
/// where it is looked for.
std::optional<std::vector<NormalizationRow>> normalizationRows();

}  // namespace korrin::test
