#include "korrin/review/merge.h"

#include <map>
#include <set>
#include <type_traits>
#include <utility>

#include "korrin/review/list_merge.h"
#include "korrin/review/record_merge.h"

namespace korrin {
namespace {

using namespace revision;

template <class Value>
inline constexpr bool isListWithUUIDs = false;
template <class Record>
inline constexpr bool isListWithUUIDs<List<Record>> = std::is_same_v<IdentityOf<Record>, UUID>;

/// Calls `visit(field)` for each list of the project whose records have a UUID.
template <class Visit>
void forEachListWithUUIDs(Visit visit) {
  forEachField<KorrinProject>([&visit](const auto& field) {
    if constexpr (isListWithUUIDs<ValueOf<decltype(field)>>) visit(field);
  });
}

/// The identifiers, which are sorted, with the number of times that each stands in all lists of the
/// project.
std::map<UUID, std::size_t> countsOf(const std::vector<UUID>& ids, const KorrinProject& project) {
  std::map<UUID, std::size_t> counts;
  forEachListWithUUIDs([&](const auto& field) {
    const auto& list = project.*field.member;
    forEachWithIdentity(list, ids, [&](std::size_t index) { ++counts[list[index].id]; });
  });
  return counts;
}

/// Where the identifiers, which are sorted, stand in the list.
template <class Record>
std::map<UUID, std::size_t> placesOf(const std::vector<UUID>& ids, const List<Record>& list) {
  std::map<UUID, std::size_t> places;
  forEachWithIdentity(list, ids, [&](std::size_t index) { places[list[index].id] = index; });
  return places;
}

class ProjectMerge {
 public:
  ProjectMerge(const KorrinProject& base, const KorrinProject& ours, const KorrinProject& theirs)
      : base_(base), ours_(ours), theirs_(theirs), merged_(ours) {}

  MergeResult result() && {
    forEachField<KorrinProject>([this](const auto& field) {
      mergeField(field.key, merged_.*field.member, base_.*field.member, ours_.*field.member,
                 theirs_.*field.member);
    });
    merged_.metadata.modifiedAt = std::max(ours_.metadata.modifiedAt, theirs_.metadata.modifiedAt);
    leaveOutSharedIdentifiers();

    MergeResult result = {.project = std::move(merged_), .conflicts = {}};
    forEachField<KorrinProject>([&](const auto& field) {
      for (MergeConflict& conflict : conflicts_[field.key])
        result.conflicts.push_back(std::move(conflict));
    });
    return result;
  }

 private:
  template <class Value>
  void mergeField(std::string_view key, Value& merged, const Value& base, const Value& ours,
                  const Value& theirs) {
    FieldMerge(key, {}, conflicts_[key]).merge(merged, &base, ours, theirs, {});
  }

  template <class Record>
  void mergeField(std::string_view key, List<Record>& merged, const List<Record>& base,
                  const List<Record>& ours, const List<Record>& theirs) {
    ListMerge<Record> merge(key, base, ours, theirs, conflicts_[key]);
    if constexpr (isListWithUUIDs<List<Record>>)
      onlyTheirs_.insert(onlyTheirs_.end(), merge.onlyTheirs().begin(), merge.onlyTheirs().end());
    merged = std::move(merge).result();
  }

  /// Each list has been merged for itself. A record that only they have may share its identifier
  /// with one of ours in another list.
  void leaveOutSharedIdentifiers() {
    std::sort(onlyTheirs_.begin(), onlyTheirs_.end());
    onlyTheirs_.erase(std::unique(onlyTheirs_.begin(), onlyTheirs_.end()), onlyTheirs_.end());
    std::vector<UUID> shared;
    for (const auto& [id, count] : countsOf(onlyTheirs_, merged_))
      if (count > 1) shared.push_back(id);
    for (const KorrinProject* project : {&base_, &ours_, &theirs_}) {
      const std::map<UUID, std::size_t> counts = countsOf(shared, *project);
      std::erase_if(shared, [&counts](const UUID& id) {
        const auto found = counts.find(id);
        return found != counts.end() && found->second > 1;
      });
    }
    if (!shared.empty()) forEachListWithUUIDs([&](const auto& field) { leaveOut(shared, field); });
  }

  template <class Field>
  void leaveOut(const std::vector<UUID>& shared, const Field& field) {
    const auto inBase = placesOf(shared, base_.*field.member);
    const auto inOurs = placesOf(shared, ours_.*field.member);
    const auto inTheirs = placesOf(shared, theirs_.*field.member);
    std::vector<MergeConflict>& conflicts = conflicts_[field.key];
    std::set<std::string> told;
    for (const MergeConflict& conflict : conflicts)
      if (conflict.field.empty()) told.insert(conflict.id);

    (merged_.*field.member).eraseIf([&](const auto& record) {
      if (inOurs.contains(record.id) || !inTheirs.contains(record.id)) return false;
      const auto former = inBase.find(record.id);
      if (!told.contains(record.id.text()))
        conflicts.push_back(
            {std::string(field.key),
             record.id.text(),
             {},
             former == inBase.end() ? std::string() : jsonOf((base_.*field.member)[former->second]),
             {},
             jsonOf(record)});
      return true;
    });
  }

  const KorrinProject& base_;
  const KorrinProject& ours_;
  const KorrinProject& theirs_;
  KorrinProject merged_;
  std::map<std::string_view, std::vector<MergeConflict>> conflicts_;
  std::vector<UUID> onlyTheirs_;
};

}  // namespace

MergeResult merge(const KorrinProject& base, const KorrinProject& ours,
                  const KorrinProject& theirs) {
  return ProjectMerge(base, ours, theirs).result();
}

}  // namespace korrin
