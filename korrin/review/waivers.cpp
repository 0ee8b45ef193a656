#include "korrin/review/waivers.h"

#include <map>
#include <utility>

#include "korrin/coding/json_codec.h"

namespace korrin {

namespace json {

template struct Codec<Waiver>;
template struct Codec<WaiverList>;
template struct Codec<List<Waiver>>;
template struct Codec<List<WaiverList>>;

}  // namespace json

namespace {

template <class Reviewed, class Waived, class Finding>
Reviewed sorted(std::vector<Finding> findings, const WaiverList& list) {
  // The first waiver for each finding, and whether there is such a finding. In order, since whoever
  // wrote the file chose what is compared.
  struct Use {
    const Waiver* waiver;
    bool isUsed = false;
  };
  std::map<Text, Use> uses;
  for (const Waiver& waiver : list.waivers) uses.try_emplace(waiver.findingID, Use{&waiver});

  Reviewed reviewed;
  for (Finding& finding : findings) {
    const auto use = uses.find(finding.id);
    if (use == uses.end()) {
      reviewed.open.push_back(std::move(finding));
    } else {
      use->second.isUsed = true;
      reviewed.waived.push_back(Waived{std::move(finding), *use->second.waiver});
    }
  }
  for (const Waiver& waiver : list.waivers) {
    const Use& use = uses.find(waiver.findingID)->second;
    if (!use.isUsed || use.waiver != &waiver) reviewed.stale.push_back(waiver);
  }
  return reviewed;
}

}  // namespace

ReviewedIssues review(std::vector<PreflightIssue> issues, const WaiverList& waivers) {
  return sorted<ReviewedIssues, WaivedIssue>(std::move(issues), waivers);
}

ReviewedFindings review(std::vector<AuditFinding> findings, const WaiverList& waivers) {
  return sorted<ReviewedFindings, WaivedFinding>(std::move(findings), waivers);
}

}  // namespace korrin
