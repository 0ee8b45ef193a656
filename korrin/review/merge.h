#pragma once

// Two edited copies of one project brought together: three ways, record by record and field by
// field. Records are told apart as differences tell them (difference.h).
//
//     base    A  B   C        ours  A' B  C D        theirs  A  C" E
//     merged  A'     C" D E
//
// References are values like any other and are not repaired: where one side deleted a layer and the
// other put an item on it, both edits are there and the item names a layer that is gone. Preflight
// and audit find that; validation passes whenever it passes all three projects.

#include <string>
#include <vector>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// One thing that both sides changed differently. `ours` stands in the merged project, except for a
/// record that one side removed and the other changed: that one is kept as changed. Values are
/// compact JSON as in a `Difference`, empty where a side has none.
struct MergeConflict {
  std::string list;  ///< The project's key, such as "items" or "metadata".
  /// The record's identifier or digest; empty for what stands in no list, and for the order of a
  /// list.
  std::string id;
  /// The keys down to the value, joined by dots; empty for a whole record, for the order of a list
  /// and for a value of the project itself.
  std::string field;
  /// The value before both edits. For the order of a list, here and below: the identifiers that all
  /// three have, as a JSON array in their order.
  std::string base;
  std::string ours;    ///< The value after our edit.
  std::string theirs;  ///< The value after their edit.

  friend bool operator==(const MergeConflict&, const MergeConflict&) = default;
};

/// The merged project and what to look at in it.
struct MergeResult {
  KorrinProject project;                 ///< Usable whether there are conflicts or not.
  std::vector<MergeConflict> conflicts;  ///< In the project's field order.
};

/// The project that has the edits of both sides.
///
/// * A value that one side changed is as that side has it. Where both changed it differently it is
///   ours, and a conflict. A position, a size and the members of a group are one value each.
/// * A record that one side removed is gone. Where the other changed it, it is kept as changed, and
///   a conflict without a field; a change of its place alone does not keep it.
/// * A record that both added under one identifier is merged field by field, without a base.
/// * A list has the order of the side that changed it. Where both did, it has ours, and a conflict
///   without an identifier unless the orders agree. Additions are no change of order: those of the
///   other side stand behind what they stood behind, after ours.
/// * `modifiedAt` is the later of the two.
/// * Where the merge would put one identifier into two lists although none of the three projects
///   has it twice, the record of theirs is left out, and a conflict without a field.
///
/// A side that changed nothing gives the other one to the bit. Without conflicts the sides may be
/// exchanged, but for the order of additions. Time and storage follow what was edited where the
/// projects share their storage, as with `differences`.
MergeResult merge(const KorrinProject& base, const KorrinProject& ours,
                  const KorrinProject& theirs);

}  // namespace korrin

#pragma GCC visibility pop
