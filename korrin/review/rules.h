#pragma once

// What findings are about: the catalogue of the rules that inspect a plot, and the record and field
// that a finding of preflight points at.

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "korrin/model/project.h"
#include "korrin/preflight/preflight_issue.h"
#include "korrin/validation/document_validation_error.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A rule of preflight in words, for help and documentation. The texts live as long as the program.
struct RuleDescription {
  PreflightRule rule;            ///< The rule; its raw value is its name.
  PreflightSeverity severity;    ///< How serious its findings are.
  std::string_view title;        ///< A short heading.
  std::string_view explanation;  ///< What it means on a stage, in sentences.
  std::string_view remedy;       ///< How to mend it, in sentences.
};

/// All rules of preflight in the order of `PreflightRule`.
std::span<const RuleDescription> preflightRules();

/// A reason for which a document is refused in words, as `RuleDescription` is for a rule.
struct ValidationDescription {
  DocumentValidationError::Code code;  ///< The error that is thrown.
  std::string_view name;               ///< The error's name, such as "invalidGeometry".
  std::string_view title;              ///< A short heading.
  std::string_view explanation;        ///< What it means on a stage, in sentences.
  std::string_view remedy;             ///< How to mend it, in sentences.
};

/// All reasons in the order of `DocumentValidationError::Code`.
std::span<const ValidationDescription> validationRules();

/// The lists of a project that findings of preflight point into.
enum class ProjectList { items, inputs, monitorMixes, equipmentRequirements };

template <>
struct CaseTable<ProjectList> {
  static constexpr std::array cases = {
      Case{ProjectList::items, "items"},
      Case{ProjectList::inputs, "inputs"},
      Case{ProjectList::monitorMixes, "monitorMixes"},
      Case{ProjectList::equipmentRequirements, "equipmentRequirements"},
  };
};

/// The record and the field on which to put the cursor.
struct IssueSubject {
  ProjectList list;        ///< The list that holds the record.
  std::size_t index;       ///< The record's place in it, counted from 0.
  std::string_view field;  ///< The field's key, such as "channel"; lives as long as the program.

  friend bool operator==(const IssueSubject&, const IssueSubject&) = default;
};

/// What the finding is about, also where it no longer holds; nothing when its record is gone. The
/// rule tells the list, and for `invalidPlotReference` the title does, so that lists may share
/// identifiers. Under a title that preflight does not use, that rule's record is looked for among
/// inputs, mixes and equipment in this order. Where several records of a list have the identifier,
/// the first that the finding fits is meant. Takes linear time.
std::optional<IssueSubject> subjectOf(const PreflightIssue& issue, const KorrinProject& project);

/// `subjectOf` for many findings of one project: finds each record in O(log n).
class IssueSubjects {
 public:
  /// Keeps the project and makes an index of its identifiers in O(n log n).
  explicit IssueSubjects(KorrinProject project);
  /// What `subjectOf` returns.
  std::optional<IssueSubject> operator()(const PreflightIssue& issue) const;

 private:
  struct Index;
  std::shared_ptr<const Index> index_;
};

}  // namespace korrin

#pragma GCC visibility pop
