#pragma once

// Where the records of a project stand, by their identifiers: for many look-ups. Sorted, and not
// hashed, since whoever writes a document chooses its identifiers. Not public.

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "korrin/review/record_walk.h"

namespace korrin::revision {

class IdentityIndex {
  template <class Identity>
  using Entries = std::vector<std::pair<Identity, std::size_t>>;
  template <class Identity>
  using EntriesByList = std::map<std::string_view, Entries<Identity>>;

 public:
  explicit IdentityIndex(const KorrinProject& project) {
    forEachField<KorrinProject>([&](const auto& field) {
      using Value = ValueOf<decltype(field)>;
      if constexpr (isList<Value>) {
        const auto& list = project.*field.member;
        auto& entries =
            std::get<EntriesByList<IdentityOf<typename Value::value_type>>>(lists_)[field.key];
        entries.reserve(list.size());
        for (const auto& record : list) entries.emplace_back(identityOf(record), entries.size());
        std::sort(entries.begin(), entries.end());
      }
    });
    hasRepeats_ = isAnyRepeated();
  }

  /// The records of the list that have the identity, each with its place, in their order.
  template <class Identity>
  std::span<const std::pair<Identity, std::size_t>> places(std::string_view list,
                                                           const Identity& identity) const {
    const Entries<Identity>& entries = std::get<EntriesByList<Identity>>(lists_).at(list);
    const auto first = std::lower_bound(
        entries.begin(), entries.end(), identity,
        [](const auto& entry, const Identity& sought) { return entry.first < sought; });
    const auto last = std::upper_bound(
        first, entries.end(), identity,
        [](const Identity& sought, const auto& entry) { return sought < entry.first; });
    return {first, last};
  }

  /// The place of the first of them.
  template <class Identity>
  std::optional<std::size_t> find(std::string_view list, const Identity& identity) const {
    const auto found = places(list, identity);
    return found.empty() ? std::nullopt : std::optional(found.front().second);
  }

  /// Number of records that have an identifier.
  std::size_t size() const {
    std::size_t count = 0;
    for (const auto& list : std::get<EntriesByList<UUID>>(lists_)) count += list.second.size();
    return count;
  }

  /// Whether a record of any list has the identifier.
  bool contains(const UUID& id) const {
    const auto& lists = std::get<EntriesByList<UUID>>(lists_);
    return std::any_of(lists.begin(), lists.end(),
                       [&](const auto& list) { return find(list.first, id).has_value(); });
  }

  /// Whether two records of one list share their identifier, which validation refuses.
  bool hasRepeats() const { return hasRepeats_; }

 private:
  bool isAnyRepeated() const {
    const auto& lists = std::get<EntriesByList<UUID>>(lists_);
    return std::any_of(lists.begin(), lists.end(), [](const auto& list) {
      const Entries<UUID>& entries = list.second;
      return std::adjacent_find(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
               return a.first == b.first;
             }) != entries.end();
    });
  }

  std::tuple<EntriesByList<UUID>, EntriesByList<Text>> lists_;
  bool hasRepeats_;
};

}  // namespace korrin::revision
