#include "findings/findings_json.h"

#include <utility>

#include "assets/asset_json.h"
#include "findings/check_report.h"
#include "terminal/record_json.h"

namespace korrin::host {
namespace {

RefusedFile reportOnRefused(const FileFindings& file) {
  // Names and messages are bytes, and JSON holds well-formed text only: what Text makes of them.
  FileRefusal refusal{.message = file.refusal->what(), .keyPath = std::nullopt};
  if (!file.refusal->keyPath().empty()) refusal.keyPath = file.refusal->keyPath();
  return {.file = file.name, .status = file.refusal->reason(), .refusal = std::move(refusal)};
}

WaiverEntry entryOf(const Waiver& waiver) {
  // The coder alone knows how an instant is written.
  const auto written = RecordJson::Json::parse(encodeJSON(waiver));
  return {.findingID = waiver.findingID,
          .reason = waiver.reason,
          .author = waiver.author,
          .date = written["date"].get<std::string>()};
}

InspectedFile reportOnInspected(const FileFindings& file) {
  const auto [errors, warnings, information] = file.counts();
  std::vector<RuleNotRun> notRun;
  if (!file.missingAssetNotRunReason.empty())
    notRun.push_back({PreflightRule::missingAsset, file.missingAssetNotRunReason});
  std::optional<AssetSection> assets;
  if (file.assets) assets = assetSection(*file.assets);
  std::vector<WaiverEntry> waived, stale;
  for (const AcceptedFinding& accepted : file.waived) waived.push_back(entryOf(accepted.waiver));
  for (const Waiver& waiver : file.stale) stale.push_back(entryOf(waiver));
  const bool isClean = file.exitCode() == ExitCode::clean;
  return {.file = file.name,
          .status = isClean ? InspectionStatus::clean : InspectionStatus::findings,
          .counts = {.error = errors, .warning = warnings, .information = information},
          .notRun = std::move(notRun),
          .findings = file.issues,
          .assets = std::move(assets),
          .audit = file.audit,
          .waived = std::move(waived),
          .staleWaivers = std::move(stale)};
}

}  // namespace

std::string findingsReport(std::span<const FileFindings> files, ExitCode exitCode) {
  CheckReport report{.reportVersion = {}, .exitCode = exitCode, .files = {}};
  for (const FileFindings& file : files) {
    if (file.refusal)
      report.files.emplace_back(reportOnRefused(file));
    else
      report.files.emplace_back(reportOnInspected(file));
  }
  return RecordJson::of(report).dump(2);
}

}  // namespace korrin::host
