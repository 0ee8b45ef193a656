#pragma once

// What `korrin check --format json` reports, as records: the report and its schema both follow from
// the field tables. docs/check-report.md describes every field.

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"
#include "korrin/preflight/preflight_issue.h"
#include "korrin/review/audit.h"

#include "assets/asset_report.h"
#include "documents/plot_document.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// How a file fared that was inspected.
enum class InspectionStatus { clean, findings };

/// Number of findings of each severity.
struct FindingCounts {
  std::size_t error;
  std::size_t warning;
  std::size_t information;
};

struct RuleNotRun {
  PreflightRule rule;
  Text reason;
};

/// A waiver, and the finding that it accepts or accepted once.
struct WaiverEntry {
  Text findingID;
  Text reason;
  Text author;
  Text date;
};

struct InspectedFile {
  Text file;
  InspectionStatus status;
  FindingCounts counts;
  std::vector<RuleNotRun> notRun;
  std::vector<PreflightIssue> findings;
  std::optional<AssetSection> assets;
  std::optional<std::vector<AuditFinding>> audit;
  std::vector<WaiverEntry> waived;
  std::vector<WaiverEntry> staleWaivers;
};

struct FileRefusal {
  Text message;
  std::optional<Text> keyPath;
};

struct RefusedFile {
  Text file;
  RefusalReason status;
  FileRefusal refusal;
};

struct CheckReport {
  ReportVersion reportVersion;
  ExitCode exitCode;
  std::vector<std::variant<InspectedFile, RefusedFile>> files;
};

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::InspectionStatus> {
  static constexpr std::array cases = {Case{host::InspectionStatus::clean, "clean"},
                                       Case{host::InspectionStatus::findings, "findings"}};
};

template <>
constexpr auto fieldsOf<host::FindingCounts>() {
  return std::tuple{
      Field{"error", &host::FindingCounts::error},
      Field{"warning", &host::FindingCounts::warning},
      Field{"information", &host::FindingCounts::information},
  };
}
static_assert(tableIsComplete<host::FindingCounts>);

template <>
constexpr auto fieldsOf<host::RuleNotRun>() {
  return std::tuple{
      Field{"rule", &host::RuleNotRun::rule},
      Field{"reason", &host::RuleNotRun::reason},
  };
}
static_assert(tableIsComplete<host::RuleNotRun>);

template <>
constexpr auto fieldsOf<host::WaiverEntry>() {
  return std::tuple{
      Field{"findingID", &host::WaiverEntry::findingID},
      Field{"reason", &host::WaiverEntry::reason},
      Field{"author", &host::WaiverEntry::author},
      Field{"date", &host::WaiverEntry::date},
  };
}
static_assert(tableIsComplete<host::WaiverEntry>);

template <>
constexpr auto fieldsOf<host::InspectedFile>() {
  return std::tuple{
      Field{"file", &host::InspectedFile::file},
      Field{"status", &host::InspectedFile::status},
      Field{"counts", &host::InspectedFile::counts},
      Field{"notRun", &host::InspectedFile::notRun},
      Field{"findings", &host::InspectedFile::findings},
      Field{"assets", &host::InspectedFile::assets},
      Field{"audit", &host::InspectedFile::audit},
      Field{"waived", &host::InspectedFile::waived},
      Field{"staleWaivers", &host::InspectedFile::staleWaivers},
  };
}
static_assert(tableIsComplete<host::InspectedFile>);

template <>
constexpr auto fieldsOf<host::FileRefusal>() {
  return std::tuple{
      Field{"message", &host::FileRefusal::message},
      Field{"keyPath", &host::FileRefusal::keyPath},
  };
}
static_assert(tableIsComplete<host::FileRefusal>);

template <>
constexpr auto fieldsOf<host::RefusedFile>() {
  return std::tuple{
      Field{"file", &host::RefusedFile::file},
      Field{"status", &host::RefusedFile::status},
      Field{"refusal", &host::RefusedFile::refusal},
  };
}
static_assert(tableIsComplete<host::RefusedFile>);

template <>
constexpr auto fieldsOf<host::CheckReport>() {
  return std::tuple{
      Field{"reportVersion", &host::CheckReport::reportVersion},
      Field{"exitCode", &host::CheckReport::exitCode},
      Field{"files", &host::CheckReport::files},
  };
}
static_assert(tableIsComplete<host::CheckReport>);

}  // namespace korrin
