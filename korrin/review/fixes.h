#pragma once

// What can be done about a finding of preflight: edits that a host offers and the user chooses. No
// fix applies itself.

#include <memory>
#include <vector>

#include "korrin/commands/document_command.h"
#include "korrin/preflight/preflight_issue.h"

#pragma GCC visibility push(default)

namespace korrin {

/// One way to mend a finding.
struct Fix {
  /// What the command does, on one line, naming the record: "Give input 7 "Bass DI" channel 12".
  /// Control characters of the document stand escaped.
  Text title;
  /// Meant for the project as it stood when the fix was made.
  DocumentCommand command;
};

/// The ways to mend the finding, the safest first; empty where only a person can know, and for a
/// finding that the project does not have: every member of it counts. Locked and hidden records are
/// mended too.
///
/// Each of them makes the finding disappear, changes nothing else but what its title says, brings
/// no finding of severity error or warning that was not there, and undoes exactly. What could not
/// keep this promise is not offered, which may happen when records share an identifier.
///
/// Changes nothing. The clock is read only where a fix must replace the whole project, because two
/// items of it have the identifier. Takes O(n log n) time.
std::vector<Fix> fixesFor(const PreflightIssue& issue, const KorrinProject& project,
                          const Environment& environment = Environment::system());

struct AuditFinding;

namespace fixes {
class PlotLookup;
}

/// `fixesFor` for many findings of one project: what they have in common is looked up once, and
/// each finding then takes O(log n) and its fixes. Where a list holds an identifier twice, which
/// validation refuses, each fix is tried on a copy of the project and takes O(n log n).
class FixFinder {
 public:
  /// Keeps the project.
  explicit FixFinder(KorrinProject project);
  FixFinder(FixFinder&&) noexcept;
  FixFinder& operator=(FixFinder&&) noexcept;
  ~FixFinder();

  /// @{
  /// What `fixesFor` returns.
  std::vector<Fix> operator()(const PreflightIssue& issue,
                              const Environment& environment = Environment::system());
  std::vector<Fix> operator()(const AuditFinding& finding,
                              const Environment& environment = Environment::system());
  /// @}

 private:
  std::unique_ptr<fixes::PlotLookup> plot_;
};

}  // namespace korrin

#pragma GCC visibility pop
