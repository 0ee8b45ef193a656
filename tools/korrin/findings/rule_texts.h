#pragma once

// The rules of preflight, audit and validation in words, from the library's own tables: for
// `--explain` and for the pages below docs/rules/.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::host {

/// One rule in words.
struct RuleText {
  std::string_view name;      ///< Such as "duplicateInputChannel".
  std::string_view group;     ///< "preflight", "audit" or "validation".
  std::string_view severity;  ///< "error", "warning" or "information"; "refused" for validation.
  std::string_view title;
  std::string_view explanation;
  std::string_view remedy;
};

/// All of them: preflight, then audit, then validation, each in its own order.
std::vector<RuleText> allRuleTexts();

/// What `--explain` prints, its last line break included. Throws UsageError for a name that no rule
/// has.
std::string explanationOf(const std::string& name);

/// The file of a rule's page from the root of the repository: "docs/rules/hiddenItems.md".
std::string pageOf(std::string_view rule);

/// Writes a page for each rule and README.md, which lists them, into a folder that is there. Throws
/// FileError.
void writeRulePages(const std::string& folder);

}  // namespace korrin::host
