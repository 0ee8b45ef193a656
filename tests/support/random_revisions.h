#pragma once

// Revisions of a project by chance: what somebody may have done to a plot between two versions.

#include <utility>

#include "tests/support/random_edits.h"

namespace korrin::test {

/// Draws revisions. They share the storage of what they do not change. Identifiers of added records
/// come from the same few as those of `RandomEdits`, so that sides add under one identifier, and
/// lists repeat one now and then. Some numbers are not finite.
class RandomRevisions {
 public:
  explicit RandomRevisions(Chance chance) : chance_(chance), edits_(std::move(chance)) {}

  KorrinProject project() { return edits_.project(); }

  /// The project after a few edits, at times none: records added, removed, moved and changed in any
  /// field, and other values of the project changed.
  KorrinProject revised(KorrinProject project);

 private:
  template <class Record>
  void edit(List<Record>& list, const List<Record>& donor);
  template <class Value>
  void change(Value& value, const Value& donor);

  std::size_t below(std::size_t limit) {
    return static_cast<std::size_t>(chance_(static_cast<int>(limit)));
  }

  Chance chance_;
  RandomEdits edits_;
};

}  // namespace korrin::test
