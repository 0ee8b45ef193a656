#pragma once

// What fixes look up in a plot. Each part is gathered when it is first asked for, so that the fixes
// of many findings cost no more than a few walks over the plot. Not public.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "korrin/preflight/preflight_issue.h"
#include "korrin/review/audit.h"
#include "korrin/review/identity_index.h"
#include "korrin/review/memberships.h"
#include "korrin/review/rules.h"

namespace korrin::fixes {

/// A record that names another one.
struct Link {
  /// What names what: a row or a group an item, or an item its group.
  enum class Kind { input, mix, equipment, member, groupOfItem };

  UUID target;
  Kind kind;
  std::size_t place;  ///< Of the record that names the target, in its list.

  friend auto operator<=>(const Link&, const Link&) = default;
};

/// `subjectOf` by an index of the project's identifiers.
std::optional<IssueSubject> subjectOf(const PreflightIssue& issue, const KorrinProject& project,
                                      const revision::IdentityIndex& ids);

class PlotLookup {
 public:
  explicit PlotLookup(KorrinProject project) : project_(std::move(project)), ids_(project_) {}

  const KorrinProject& project() const { return project_; }
  const revision::IdentityIndex& ids() const { return ids_; }

  /// The place of the first record of the list that has the identifier.
  template <class Record>
  std::optional<std::size_t> placeOf(List<Record> KorrinProject::*list, const UUID& id) const {
    return ids_.find(keyOf(list), id);
  }
  /// The first of them for which `holds` is true.
  template <class Record, class Predicate>
  std::optional<std::size_t> firstWith(List<Record> KorrinProject::*list, const UUID& id,
                                       Predicate holds) const {
    for (const auto& [identifier, place] : ids_.places(keyOf(list), id))
      if (holds((project_.*list)[place])) return place;
    return std::nullopt;
  }

  /// What the finding is about.
  std::optional<IssueSubject> subjectOf(const PreflightIssue& issue) const {
    return fixes::subjectOf(issue, project_, ids_);
  }
  /// Whether the project has the finding: every member of it counts.
  bool has(const PreflightIssue& issue);
  bool has(const AuditFinding& finding);
  /// Whether an error or a warning is about the record, other than that its identifier is shared.
  bool hasSeriousFinding(std::string_view list, const UUID& id);

  /// The item that the input is linked to.
  const PlotItem* itemOf(const InputChannel& input) const;
  /// Whether the item of the project has a label that is not blank. It is read once, however many
  /// rows link to the item.
  bool hasLabel(const PlotItem& item);
  /// The only item of a kind that an input can come from that bears the name; null for a blank one.
  const PlotItem* onlySourceCalled(const Text& name);
  /// The only monitor that bears the name; null for a blank one.
  const PlotItem* onlyMonitorCalled(const Text& name);
  /// What names the record: inputs first, then mixes, equipment, groups and items.
  std::span<const Link> linksTo(const UUID& id);

  /// The lowest number from 1 on that no row has.
  std::int64_t lowestFreeChannel();
  std::int64_t lowestFreeMixNumber();

  const auditing::Memberships& memberships();

 private:
  using NamedItem = std::pair<Text, const PlotItem*>;
  using NamedItems = std::optional<std::vector<NamedItem>>;  // sorted by name
  using Subject = std::pair<std::string_view, UUID>;         // a list's key and a record of it

  const PlotItem* onlyItemCalled(const Text& name, NamedItems& items,
                                 std::span<const PlotItemKind> kinds);
  const std::vector<PreflightIssue>& issues();
  const std::vector<AuditFinding>& findings();

  KorrinProject project_;
  revision::IdentityIndex ids_;
  std::optional<std::vector<PreflightIssue>> issues_;  // sorted by id
  std::optional<std::vector<AuditFinding>> findings_;  // sorted by id
  std::optional<std::set<Subject>> seriousSubjects_;
  std::map<const PlotItem*, bool> haveLabels_;  // those that were asked about
  NamedItems sources_;
  NamedItems monitors_;
  std::optional<std::vector<Link>> links_;
  std::optional<std::int64_t> freeChannel_;
  std::optional<std::int64_t> freeMixNumber_;
  std::optional<auditing::Memberships> memberships_;
};

}  // namespace korrin::fixes
