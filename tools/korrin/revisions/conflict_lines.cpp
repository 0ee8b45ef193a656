#include "revisions/conflict_lines.h"

#include <string>

#include "korrin/review/difference.h"

#include "revisions/plot_revisions.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

/// What one side did, as a sentence.
class SideOfConflict {
 public:
  SideOfConflict(const KorrinProject& base, const KorrinProject& side) : sentences_(base, side) {}

  std::string didIn(const MergeConflict& conflict, const std::string& value) const {
    Difference difference = {.kind = DifferenceKind::changed,
                             .list = conflict.list,
                             .id = conflict.id,
                             .field = conflict.field,
                             .before = conflict.base,
                             .after = value};
    if (!conflict.field.empty() || conflict.id.empty()) return sentences_(difference);
    if (conflict.base.empty()) difference.kind = DifferenceKind::added;
    if (value.empty()) difference.kind = DifferenceKind::removed;
    if (difference.kind != DifferenceKind::changed) return sentences_(difference);
    // The name of the record is what stands before the word of its removal.
    difference.kind = DifferenceKind::removed;
    std::string sentence = sentences_(difference);
    sentence.resize(sentence.rfind(' '));
    return sentence + " changed";
  }

 private:
  DifferenceSentences sentences_;
};

}  // namespace

void printConflicts(std::ostream& out, std::string_view name,
                    const std::vector<MergeConflict>& conflicts, const MergedSides& sides) {
  if (conflicts.empty()) return;
  const SideOfConflict ours(sides.base, sides.ours);
  const SideOfConflict theirs(sides.base, sides.theirs);
  out << printable(name) << ": " << conflicts.size()
      << (conflicts.size() == 1 ? " conflict" : " conflicts") << '\n';
  for (const MergeConflict& conflict : conflicts) {
    const bool isOfRecord = conflict.field.empty() && !conflict.id.empty();
    if (conflict.id.empty() && conflict.field.empty() && conflict.base.starts_with('[')) {
      out << "  " << headingOf(conflict.list) << ": both sides changed the order; ours stands\n";
    } else if (isOfRecord && conflict.base.empty()) {
      out << "  " << printable(theirs.didIn(conflict, conflict.theirs))
          << " by theirs; left out, since ours has its identifier in another list\n";
    } else {
      out << "  ours:   " << printable(ours.didIn(conflict, conflict.ours)) << '\n'
          << "  theirs: " << printable(theirs.didIn(conflict, conflict.theirs)) << '\n'
          << (isOfRecord ? "  kept as changed\n" : "  ours stands\n");
    }
  }
}

}  // namespace korrin::host
