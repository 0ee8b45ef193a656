#pragma once

// What an edit touched, so that a host refreshes only what it must.

#include "korrin/foundation/record.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A summary of one edit. Two edits in a row are summed up by the union of their sets and the
/// logical or of their flags.
struct ChangeSet {
  /// The plot items that the edit touched or that the request named: it may hold identifiers that
  /// are no longer in the project and such as never were.
  IDSet changedItemIDs;
  /// Whether inputs, monitor mixes, equipment or notes may have changed.
  bool affectsTechnicalData;
  /// Whether more than the contents of items changed: items came or went, or the groups, the
  /// layers, the stage, the asset manifest or the whole project were replaced.
  bool affectsDocumentStructure;

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
