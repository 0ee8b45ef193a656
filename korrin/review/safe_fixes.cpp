#include "korrin/review/safe_fixes.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "korrin/foundation/list_difference.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/list_alignment.h"

namespace korrin {
namespace {

using namespace revision;

// Puts fixes of one plot together that touch different records. A fix is a command for the plot as
// it stands, and most commands replace a whole list: what it comes to is read off the storage that
// the mended plot no longer shares with the plot.
class Round {
 public:
  explicit Round(const KorrinProject& project) : project_(project), mended_(project) {}

  // Whether the fix took effect: not where an earlier one touched a record of its.
  bool take(const Fix& fix, const Environment& environment) {
    const KorrinProject changed = after(fix.command, environment);
    touched_.clear();
    forEachList([&](std::string_view key, auto member) { touch(key, member, changed); });
    const auto isTaken = [this](const Place& place) { return taken_.contains(place); };
    if (std::any_of(touched_.begin(), touched_.end(), isTaken)) return false;
    taken_.insert(touched_.begin(), touched_.end());
    forEachList([&](std::string_view key, auto member) { copy(key, member, changed); });
    return true;
  }

  // The plot with all fixes that took effect.
  KorrinProject result() && {
    forEachList([this](std::string_view key, auto member) {
      // From the end, so that the places before stay what they are.
      for (auto place = removed_.rbegin(); place != removed_.rend(); ++place)
        if (place->first == key) (mended_.*member).erase(place->second);
    });
    return std::move(mended_);
  }

 private:
  using Place = std::pair<std::string_view, std::size_t>;  // a list's key and a record's index

  // Applying either of the two cases below would gather the identifiers of all their items, which
  // nobody asks for here.
  KorrinProject after(const DocumentCommand& command, const Environment& environment) const {
    if (const auto* replacement = command.get<ReplaceProject>()) return replacement->project;
    KorrinProject changed = project_;
    if (const auto* replacement = command.get<ReplaceGroups>()) {
      changed.groups = replacement->groups;
      return changed;
    }
    command.apply(changed, environment);
    return changed;
  }

  template <class Visit>
  static void forEachList(Visit visit) {
    forEachField<KorrinProject>([&visit](const auto& field) {
      if constexpr (isList<ValueOf<decltype(field)>>) visit(field.key, field.member);
    });
  }

  // A fix replaces records of a list or removes some, never both.
  template <class Record>
  void touch(std::string_view key, List<Record> KorrinProject::*list,
             const KorrinProject& changed) {
    const List<Record>& before = project_.*list;
    const List<Record>& after = changed.*list;
    std::vector<IndexRange> ranges;
    bool isAnyNew = false;
    forEachDifference(before, after, [&](IndexRange was, IndexRange is) {
      ranges.push_back(was);
      isAnyNew = isAnyNew || is.size() > 0;
    });
    // Where many records are removed at once, some that stay may stand among the differences.
    if (isAnyNew && before.size() != after.size()) {
      const std::vector<Run> runs = sortedBy(&Run::before, Alignment<Record>(before, after).runs());
      ranges = uncovered(&Run::before, runs, before.size());
    }
    for (const IndexRange& range : ranges)
      for (std::size_t i = range.first; i < range.last; ++i) touched_.emplace_back(key, i);
  }

  template <class Record>
  void copy(std::string_view key, List<Record> KorrinProject::*list, const KorrinProject& changed) {
    const bool isReplaced = (project_.*list).size() == (changed.*list).size();
    for (const Place& place : touched_) {
      if (place.first != key) continue;
      if (isReplaced)
        (mended_.*list).replace(place.second, (changed.*list)[place.second]);
      else
        removed_.insert(place);
    }
  }

  const KorrinProject& project_;
  KorrinProject mended_;
  std::vector<Place> touched_;  // by the fix at hand
  std::set<Place> taken_;
  std::set<Place> removed_;
};

class SafeMending {
 public:
  SafeMending(const KorrinProject& project, const WaiverList& accepted,
              const Environment& environment)
      : project_(project), environment_(environment) {
    forEachFinding([this](const auto& finding) { sought_.insert(finding.id); });
    for (const Waiver& waiver : accepted.waivers) sought_.erase(waiver.findingID);
  }

  std::optional<SafeFixes> result() && {
    constexpr int mostRounds = 100;
    for (int round = 0; round < mostRounds; ++round)
      if (!goOnce(Mends::contents) && !goOnce(Mends::identifiers)) break;
    if (titles_.empty()) return std::nullopt;
    return SafeFixes{.titles = std::move(titles_),
                     .command = fixes::replacingProject(std::move(project_), environment_)};
  }

 private:
  // Fresh identifiers have rounds of their own: a link made in the same round would go to the
  // former one.
  enum class Mends { contents, identifiers };

  static Mends mendedBy(const PreflightIssue&) { return Mends::contents; }
  static Mends mendedBy(const AuditFinding& finding) {
    return finding.rule == AuditRule::sharedIdentifier ? Mends::identifiers : Mends::contents;
  }

  template <class Visit>
  void forEachFinding(Visit visit) const {
    for (const PreflightIssue& issue : PreflightEngine::inspect(project_, {})) visit(issue);
    for (const AuditFinding& finding : audit(project_)) visit(finding);
  }

  // Whether anything was mended: what was in the way of another fix may be gone.
  bool goOnce(Mends mends) {
    FixFinder fixesFor(project_);
    Round round(project_);
    const std::size_t count = titles_.size();
    forEachFinding([&](const auto& finding) {
      if (mendedBy(finding) != mends || !sought_.contains(finding.id)) return;
      const std::vector<Fix> fixes = fixesFor(finding, environment_);
      if (fixes.size() == 1 && round.take(fixes.front(), environment_))
        titles_.push_back(fixes.front().title);
    });
    project_ = std::move(round).result();
    return titles_.size() > count;
  }

  KorrinProject project_;
  const Environment& environment_;
  std::set<Text> sought_;  // the ids of findings of the plot as it was
  std::vector<Text> titles_;
};

}  // namespace

std::optional<SafeFixes> safeFixes(const KorrinProject& project, const WaiverList& accepted,
                                   const Environment& environment) {
  if (IdentityIndex(project).hasRepeats()) return std::nullopt;
  return SafeMending(project, accepted, environment).result();
}

}  // namespace korrin
