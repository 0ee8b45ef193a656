#include "korrin/preflight/preflight_issue.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "korrin/coding/json_codec.h"

namespace korrin {

namespace json {

template struct Codec<PreflightSeverity>;
template struct Codec<PreflightRule>;
template struct Codec<List<PreflightSeverity>>;
template struct Codec<List<PreflightRule>>;

}  // namespace json

namespace {

constexpr std::size_t longestRule = [] {
  std::size_t longest = 0;
  for (const auto& row : CaseTable<PreflightRule>::cases)
    longest = std::max(longest, row.rawValue.size());
  return longest;
}();

Text identifier(PreflightRule rule, const Text& detail, const std::optional<UUID>& relatedID,
                const std::optional<UUID>& recordID) {
  const std::optional<UUID>& concerned = recordID ? recordID : relatedID;
  std::string text;
  text.reserve(longestRule + 1 + UUID::textLength);
  text.append(rawValue(rule)) += ':';
  if (!concerned) return text += std::string_view(detail);
  text.resize(text.size() + UUID::textLength);
  concerned->writeText(text.data() + text.size() - UUID::textLength);
  return text;
}

}  // namespace

PreflightIssue::PreflightIssue(PreflightRule rule_, PreflightSeverity severity_, Text title_,
                               Text detail_, std::optional<UUID> relatedID_,
                               std::optional<UUID> recordID_)
    : id(identifier(rule_, detail_, relatedID_, recordID_)),
      rule(rule_),
      severity(severity_),
      title(std::move(title_)),
      detail(std::move(detail_)),
      relatedID(relatedID_),
      recordID(recordID_) {}

}  // namespace korrin
