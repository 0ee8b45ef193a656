#include "korrin/review/plot_lookup.h"

#include <algorithm>
#include <array>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit_rules.h"

namespace korrin::fixes {
namespace {

// Of the numbers from 1 to one more than there are rows, at least one is free.
template <class Row>
std::int64_t lowestFree(const List<Row>& rows, std::optional<std::int64_t> Row::*number) {
  std::vector<bool> isTaken(rows.size() + 2);
  for (const Row& row : rows) {
    const std::optional<std::int64_t>& taken = row.*number;
    if (taken && *taken >= 1 && static_cast<std::uint64_t>(*taken) < isTaken.size())
      isTaken[static_cast<std::size_t>(*taken)] = true;
  }
  return std::find(isTaken.begin() + 1, isTaken.end(), false) - isTaken.begin();
}

template <class Row>
void addLinks(std::vector<Link>& links, Link::Kind kind, const List<Row>& rows) {
  for (std::size_t place = 0; const Row& row : rows) {
    if (row.plotItemID) links.push_back({*row.plotItemID, kind, place});
    ++place;
  }
}

template <class Finding>
std::vector<Finding> sortedByID(std::vector<Finding> findings) {
  std::sort(findings.begin(), findings.end(),
            [](const Finding& a, const Finding& b) { return a.id < b.id; });
  return findings;
}

// Whether the finding is among those, which are sorted by their ids.
template <class Finding>
bool isAmong(const std::vector<Finding>& findings, const Finding& sought) {
  const auto first =
      std::lower_bound(findings.begin(), findings.end(), sought.id,
                       [](const Finding& finding, const Text& id) { return finding.id < id; });
  for (auto at = first; at != findings.end() && at->id == sought.id; ++at)
    if (*at == sought) return true;
  return false;
}

template <class Finding>
bool isSerious(const Finding& finding) {
  return finding.severity != PreflightSeverity::information;
}

}  // namespace

bool PlotLookup::has(const PreflightIssue& issue) { return isAmong(issues(), issue); }
bool PlotLookup::has(const AuditFinding& finding) { return isAmong(findings(), finding); }

const std::vector<PreflightIssue>& PlotLookup::issues() {
  if (!issues_) issues_ = sortedByID(PreflightEngine::inspect(project_, {}));
  return *issues_;
}

const std::vector<AuditFinding>& PlotLookup::findings() {
  if (!findings_) findings_ = sortedByID(audit(project_));
  return *findings_;
}

bool PlotLookup::hasSeriousFinding(std::string_view list, const UUID& id) {
  if (!seriousSubjects_) {
    std::set<Subject> subjects;
    for (const PreflightIssue& issue : issues())
      if (isSerious(issue))
        if (const auto subject = subjectOf(issue))
          subjects.emplace(rawValue(subject->list),
                           issue.recordID ? *issue.recordID : *issue.relatedID);
    for (const AuditFinding& finding : findings())
      if (isSerious(finding))
        if (const auto key = auditing::listOf(finding))
          subjects.emplace(*key, finding.recordID ? *finding.recordID : finding.itemIDs.front());
    seriousSubjects_ = std::move(subjects);
  }
  return seriousSubjects_->contains({list, id});
}

const PlotItem* PlotLookup::itemOf(const InputChannel& input) const {
  if (!input.plotItemID) return nullptr;
  const auto place = placeOf(&KorrinProject::items, *input.plotItemID);
  return place ? &project_.items[*place] : nullptr;
}

bool PlotLookup::hasLabel(const PlotItem& item) {
  const auto [known, isNew] = haveLabels_.try_emplace(&item);
  if (isNew) known->second = !item.label.isBlank();
  return known->second;
}

const PlotItem* PlotLookup::onlyItemCalled(const Text& name, NamedItems& items,
                                           std::span<const PlotItemKind> kinds) {
  if (!items) {
    std::vector<NamedItem> named;
    for (const PlotItem& item : project_.items)
      if (std::find(kinds.begin(), kinds.end(), item.kind) != kinds.end() && !item.label.isBlank())
        named.emplace_back(item.label.trimmed(), &item);
    std::sort(named.begin(), named.end(),
              [](const NamedItem& a, const NamedItem& b) { return a.first < b.first; });
    items = std::move(named);
  }
  const Text wanted = name.trimmed();
  const auto found =
      std::lower_bound(items->begin(), items->end(), wanted,
                       [](const NamedItem& item, const Text& text) { return item.first < text; });
  if (found == items->end() || found->first != wanted) return nullptr;
  const auto next = std::next(found);
  return next != items->end() && next->first == wanted ? nullptr : found->second;
}

const PlotItem* PlotLookup::onlySourceCalled(const Text& name) {
  using enum PlotItemKind;
  static constexpr std::array kinds = {microphone, instrument, performer, amplifier, custom};
  return onlyItemCalled(name, sources_, kinds);
}

const PlotItem* PlotLookup::onlyMonitorCalled(const Text& name) {
  static constexpr std::array kinds = {PlotItemKind::monitor};
  return onlyItemCalled(name, monitors_, kinds);
}

std::span<const Link> PlotLookup::linksTo(const UUID& id) {
  if (!links_) {
    std::vector<Link> links;
    addLinks(links, Link::Kind::input, project_.inputs);
    addLinks(links, Link::Kind::mix, project_.monitorMixes);
    addLinks(links, Link::Kind::equipment, project_.equipmentRequirements);
    for (std::size_t place = 0; const PlotGroup& group : project_.groups) {
      for (const UUID& member : auditing::eachOnce(group.itemIDs))
        links.push_back({member, Link::Kind::member, place});
      ++place;
    }
    for (std::size_t place = 0; const PlotItem& item : project_.items) {
      if (item.groupID) links.push_back({*item.groupID, Link::Kind::groupOfItem, place});
      ++place;
    }
    std::sort(links.begin(), links.end());
    links_ = std::move(links);
  }
  const auto first =
      std::lower_bound(links_->begin(), links_->end(), id,
                       [](const Link& link, const UUID& target) { return link.target < target; });
  const auto last =
      std::upper_bound(first, links_->end(), id,
                       [](const UUID& target, const Link& link) { return target < link.target; });
  return {first, last};
}

std::int64_t PlotLookup::lowestFreeChannel() {
  if (!freeChannel_) freeChannel_ = lowestFree(project_.inputs, &InputChannel::channel);
  return *freeChannel_;
}

std::int64_t PlotLookup::lowestFreeMixNumber() {
  if (!freeMixNumber_) freeMixNumber_ = lowestFree(project_.monitorMixes, &MonitorMix::number);
  return *freeMixNumber_;
}

const auditing::Memberships& PlotLookup::memberships() {
  if (!memberships_) memberships_.emplace(project_);
  return *memberships_;
}

}  // namespace korrin::fixes
