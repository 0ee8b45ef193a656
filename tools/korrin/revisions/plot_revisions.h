#pragma once

// Two revisions of a plot and what differs between them, for people and for programs.

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/drawing/revision_marks.h"
#include "korrin/review/difference.h"

namespace korrin::host {

/// What a file held: a plot, or nothing.
struct Revision {
  std::string name;                      ///< By which messages call the file.
  std::optional<KorrinProject> project;  ///< Absent for an empty file and for /dev/null.
};

/// Reads a plot, which is not validated. Throws Refusal.
Revision readRevision(const std::string& path, DateStrategy dates);

/// Two revisions and their differences.
class RevisionReport {
 public:
  RevisionReport(Revision before, Revision after);

  bool isEmpty() const { return differences_.empty() && !isNew_ && !isGone_; }

  /// A heading for each list and a line for each difference.
  void print(std::ostream& out) const;
  /// The same for programs; see docs/git.md.
  std::string json() const;

 private:
  Revision before_;
  Revision after_;
  bool isNew_;
  bool isGone_;
  std::vector<Difference> differences_;
};

/// What to mark on a drawing of `after`.
RevisionMarks marksSince(const KorrinProject& before, const KorrinProject& after);

/// "Monitor mixes" for "monitorMixes": the heading of a list.
std::string headingOf(std::string_view list);

}  // namespace korrin::host
