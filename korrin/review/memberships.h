#pragma once

// What groups list and what items name. Not public.

#include <map>
#include <utility>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::auditing {

/// Identifiers in ascending order, so that a document with identifiers of its own choosing takes no
/// longer than any other.
class Identifiers {
 public:
  template <class Record>
  explicit Identifiers(const List<Record>& records) {
    for (const Record& record : records) ids_.push_back(record.id);
    sort();
  }

  bool contains(const UUID& id) const;

 private:
  void sort();

  std::vector<UUID> ids_;
};

/// Where groups share an identifier, what one of them lists is listed.
class Memberships {
 public:
  explicit Memberships(const KorrinProject& project);

  /// Whether the member is an item that does not name the group that lists it.
  bool isStray(const PlotGroup& group, const UUID& member) const;
  /// The items that name the group and are not listed, in the project's order.
  List<UUID> unlisted(const PlotGroup& group) const;
  bool agree(const PlotGroup& group) const;
  /// Whether an item names the group.
  bool isNamed(const UUID& group) const;

 private:
  using Pairs = std::vector<std::pair<UUID, UUID>>;  // a group and an item, in ascending order

  Identifiers items_;
  Pairs listed_;
  Pairs named_;
  std::map<UUID, List<UUID>> unlisted_;
};

/// The members, each at its first place alone.
List<UUID> eachOnce(List<UUID> members);

}  // namespace korrin::auditing
