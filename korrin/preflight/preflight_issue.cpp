#include "korrin/preflight/preflight_issue.h"

#include <string>
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

Text identifier(PreflightRule rule, const Text& detail, const std::optional<UUID>& relatedID,
                const std::optional<UUID>& recordID) {
  const std::optional<UUID>& concerned = recordID ? recordID : relatedID;
  std::string text(rawValue(rule));
  text += ':';
  text += concerned ? concerned->text() : detail.str();
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
