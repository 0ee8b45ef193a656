#pragma once

// What an edit touched, so that a host refreshes only what it must.

#include "korrin/foundation/record.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A summary of one edit, or of several.
struct ChangeSet {
  /// The plot items that the edit touched or that the request named. It may hold identifiers of
  /// items that are gone, or that never existed.
  IDSet changedItemIDs;
  /// Whether inputs, monitor mixes, equipment or notes may have changed.
  bool affectsTechnicalData;
  /// Whether more than the contents of items changed: items came or went, or the groups, the
  /// layers, the stage, the asset manifest or the whole project were replaced.
  bool affectsDocumentStructure;

  /// Adds what another edit changed: afterwards this sums up both. When memory runs out, it is what
  /// it was.
  void merge(ChangeSet other) {
    const bool isSmaller = changedItemIDs.size() < other.changedItemIDs.size();
    IDSet& larger = isSmaller ? other.changedItemIDs : changedItemIDs;
    larger.reserve(changedItemIDs.size() + other.changedItemIDs.size());
    if (isSmaller) changedItemIDs.swap(other.changedItemIDs);
    changedItemIDs.merge(other.changedItemIDs);
    affectsTechnicalData |= other.affectsTechnicalData;
    affectsDocumentStructure |= other.affectsDocumentStructure;
  }

  friend bool operator==(const ChangeSet&, const ChangeSet&) = default;
};

template <>
constexpr auto fieldsOf<ChangeSet>() {
  return std::tuple{
      Field{"changedItemIDs", &ChangeSet::changedItemIDs},
      Field{"affectsTechnicalData", &ChangeSet::affectsTechnicalData},
      Field{"affectsDocumentStructure", &ChangeSet::affectsDocumentStructure},
  };
}
static_assert(tableIsComplete<ChangeSet>);
template <>
inline constexpr bool standsInDocuments<ChangeSet> = false;

}  // namespace korrin

#pragma GCC visibility pop
